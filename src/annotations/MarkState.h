// SPDX-License-Identifier: GPL-3.0-or-later
// What the sections of one annotation pass share.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IAcadDocument.h"
#include "ports/IPubDoc.h"
#include "settings/DataKeg.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sm {

/// Drawing units to page points: point = offset + scale * coordinate.
struct PageMapping {
    double markScale = 1;
    double markOffsetX = 0, markOffsetY = 0;
    [[nodiscard]] double X(double x) const { return markOffsetX + markScale * x; }
    [[nodiscard]] double Y(double y) const { return markOffsetY + markScale * y; }
};

struct MarkState {
    CallContext& context;
    IPubDoc& pubDoc;
    IAcadDocument& document;
    TransferFlags transfer;
    bool quietMode = false;
    PageMapping mapping;
    std::string layoutName;
    DataKeg keg;
    /// Block attributes handed over, name and value, in order.
    std::vector<std::pair<std::string, std::string>> attributeList;
};

/// A point of the drawing in display coordinates, as the host translates it.
AcadPoint WorldToDisplay(IAcadDocument& document, const AcadPoint& point);

/// A page coordinate as a whole number of points, halves to even, never -0.
double WholePoint(double value);

/// A coordinate for a log line.
std::string PointText(MarkState& state, double value);

/// Turns a mark operation's failing status into a HostError with the library's text.
void CheckMark(MarkState& state, std::int32_t status);

/// How a section or the pass ends after an error: writes `prefix` and the error's description as its line and tells the
/// run's observer. False, for the caller to return. Never throws.
bool Lose(MarkState& state, const char* prefix, const std::string& description) noexcept;

/// What a section writes when it has nothing to add.
inline constexpr std::string_view kNone = "  [None]";

} // namespace sm
