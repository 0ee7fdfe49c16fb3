// SPDX-License-Identifier: GPL-3.0-or-later
// From layouts to PostScript in the publishing document: which layouts, and one call per layout.
#pragma once

#include "plugin/CallContext.h"
#include "ports/Variant.h"

#include <string>
#include <vector>

namespace sm {

class IPubDoc;

/// Status codes of PlotLayoutToPubDoc. Every negative one ends the caller's run.
inline constexpr std::int32_t kPlotConverted = 0;
inline constexpr std::int32_t kPlotWithoutAnnotations = 1; ///< plot type Display: the marks were dropped
inline constexpr std::int32_t kPlotCancelled = -1;         ///< by the user, or the plot itself failed
inline constexpr std::int32_t kPlotNotConfigured = -2;     ///< the plot configuration ended with an error
inline constexpr std::int32_t kPlotNoPageSetup = -5;       ///< no usable page setup record for the source
inline constexpr std::int32_t kPlotNoPlotterFolder = -7;   ///< the plotter folder could not be set
inline constexpr std::int32_t kPlotNoPc3 = -8;
inline constexpr std::int32_t kPlotNoMedia = -9;   ///< the medium isn't in the PC3 file
inline constexpr std::int32_t kPlotNoView = -10;   ///< the view to plot is missing
inline constexpr std::int32_t kPlotNoDriver = -11; ///< no PostScript driver file
inline constexpr std::int32_t kPlotRefused = -12;  ///< the publishing document refused the PostScript file
inline constexpr std::int32_t kPlotNoLayout = -13; ///< no layout of that name

/// Names that stand for a layout, whatever their letter case.
inline constexpr const char* kCurrentTab = "*current tab*";
inline constexpr const char* kLastActiveLayoutTab = "*last active layout tab*";

/// The layouts to convert in the order of their tabs, tab position n at index n-1: the active layout alone, or all
/// paper layouts. Tab positions that no layout has leave empty names, which no layout answers to. An error is logged
/// and ends the list with what was found so far. Never throws.
std::vector<std::string> AcadGetPlotLayoutList(CallContext& context, bool allLayouts);

/// Makes one layout a page of `pubDoc`, marks included, and puts the user's plotter folder and plot settings back; the
/// layout stays the active one. `resolution` is 1200 or 600; `jobOptionsFile` a name without folder and extension,
/// empty for none. `silent` keeps questions back, but for the page size picker and the missing view or medium.
/// Returns a status code of above. Tells the run's observer how the sheet ended. Never throws.
std::int32_t PlotLayoutToPubDoc(CallContext& context, IPubDoc& pubDoc, const std::string& layoutName,
                                VariantBool silent, std::int32_t pageSetupSource, std::int32_t resolution,
                                const std::string& jobOptionsFile);

} // namespace sm
