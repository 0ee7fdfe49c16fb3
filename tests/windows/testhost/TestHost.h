// SPDX-License-Identifier: GPL-3.0-or-later
// Ports as automation objects with the members of the CAD host's model and of the publishing library's objects.
#pragma once

#include "ports/IAcadApplication.h"
#include "ports/IPubDoc.h"
#include "windows/automation/ComRef.h"

#include <oaidl.h>

namespace sm::testhost {

/// Each gives null for null; the object keeps the port.
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IAcadApplication>& application);
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IAcadDocument>& document);
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IAcadLayout>& layout);
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IAcadBlock>& block);
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IPubDoc>& pubDoc);
windows::ComRef<IDispatch> Offer(const std::shared_ptr<IConversionLog>& log);

/// The file that every plot is a copy of; empty, as it begins: plots write nothing.
std::string& WhatIsPlotted();

} // namespace sm::testhost
