// SPDX-License-Identifier: GPL-3.0-or-later
// Points, boxes, colours and font names as the command line and its lists write them.
#pragma once

#include "commandline/Jobs.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sm::app {

/// "X,Y" with "." as the decimal separator, whatever the locale; nothing for anything else.
std::optional<DrawingPoint> ParsePoint(const std::string& text);
/// "X1,Y1,X2,Y2"; nothing for anything else and for a box without area.
std::optional<DrawingBox> ParseBox(const std::string& text);
/// "#RRGGBB" or one of `ColorNames`, letter case aside. Red ends up in the low byte.
std::optional<std::int32_t> ParseColor(const std::string& text);
std::vector<std::string> ColorNames();
/// Its name, or "#RRGGBB" where it has none.
std::string ColorName(std::int32_t color);
/// A number of the stamp list, 1 to 15.
std::optional<std::int32_t> ParseStampNumber(const std::string& text);
/// True for a text that is a whole number, whatever its size.
bool IsWholeNumber(const std::string& text);

/// The fonts that every PDF reader has, as the stamp record names them.
const std::vector<std::string>& StampFontNames();

/// Why a text can't stand in a drawing's record, as the end of a sentence about it; empty when it can.
std::string RecordTextError(const std::string& text);

/// The shortest form, with ".".
std::string NumberText(double value);
std::string PointText(double x, double y);
std::string ColorText(std::int32_t color);

} // namespace sm::app
