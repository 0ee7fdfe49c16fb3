// SPDX-License-Identifier: GPL-3.0-or-later
// The CAD host's ports over the objects of a CAD program that offers its automation model, in the same process or
// another: every member is found by its name.
//
// Made objects keep a reference to what they stand for. Calls must come from the apartment in which `application` and
// the others may be used.
#pragma once

#include "ports/IAcadApplication.h"

struct IDispatch;

namespace sm::windows {

/// Throws HostError for null. Members are not looked for before they are used.
std::shared_ptr<IAcadApplication> CreateAutomationHost(IDispatch* application);
/// One drawing that was handed over by itself.
std::shared_ptr<IAcadDocument> CreateAutomationDocument(IDispatch* document);

/// The automation object behind a port that was made here, with no reference added; null for null and for any other
/// implementation.
IDispatch* AutomationOf(const std::shared_ptr<IAcadApplication>& application);
IDispatch* AutomationOf(const std::shared_ptr<IAcadDocument>& document);
IDispatch* AutomationOf(const std::shared_ptr<IAcadLayout>& layout);

} // namespace sm::windows
