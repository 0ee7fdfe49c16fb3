// SPDX-License-Identifier: GPL-3.0-or-later
// Layers of the drawing as optional content groups (PDF 1.7, 8.11), and the opacities that page contents name.
#pragma once

#include "dialect/DialectPage.h"
#include "pdf/Qpdf.h"
#include "publisher/Archive.h"

namespace sm::publisher {

/// Adds to a page's `resources` what its content names: "/L3" as a group of its own, "/A128" (of 255) as a graphics
/// state.
void AddNamedResources(QPDF& pdf, QPDFObjectHandle resources, const std::map<std::uint32_t, DialectLayer>& layers,
                       const std::set<std::uint32_t>& opacities);

/// Makes one group of all pages' groups of the same name and state, and lists them in the catalogue: by name, with
/// those that are off. Does nothing in a document without layers.
void WriteLayers(QPDF& pdf, Archive archive = Archive::None);

} // namespace sm::publisher
