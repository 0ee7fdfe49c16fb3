// SPDX-License-Identifier: GPL-3.0-or-later
// Small text and number utilities: the one lenient number reader, the one number writer, rounding, paths.
#pragma once

#include "ports/ISystem.h"
#include "ports/Variant.h"

#include <string>
#include <string_view>
#include <vector>

namespace sm {

/// Leading number of `text`, 0 when there is none: the longest leading number, blanks and tabs inside it skipped,
/// "." the only decimal separator. Never throws.
double Val(std::string_view text);

/// Nearest 32-bit integer, halves to even; values out of range give the nearest end, NaN gives 0.
std::int32_t RoundToInteger(double value);

/// A double as text: at most 15 significant digits, shortest form, exponents as "1E+20", "." as separator, 0 for -0.
std::string NumberText(double value);

/// As NumberText, with the locale's decimal separator.
std::string LocaleNumberText(ILocale& locale, double value);

/// Equal but for the letter case of ASCII, in every locale: for words of the program's own.
bool SameAsciiText(std::string_view left, std::string_view right);
bool SameAsciiLetter(char left, char right);
char UpperAsciiLetter(char letter);
char LowerAsciiLetter(char letter);
/// `text` in small letters, those of ASCII alone.
std::string LowerAsciiText(std::string_view text);

/// A Boolean gives "1" or "0"; anything else its text (numbers in the locale's form) with blanks trimmed.
std::string BoolToText(ILocale& locale, const AcadVariant& value);

std::int32_t BoolToBit(VariantBool flag); ///< 1 when all bits are set, else 0
bool IsPositive(std::int32_t number);
double NumberOrDefault(const std::string& text, double defaultValue);
std::string TextOrDefault(const std::string& text, const std::string& defaultValue);
std::string Trim(const std::string& text); ///< blanks only

/// Everything before the last "."; empty when it is the first character; `text` itself when there is none.
std::string StripExtension(const std::string& text);
/// Everything before the last separator of `locale.PathSeparators()`; `path` itself when there is none.
std::string FolderPart(ILocale& locale, const std::string& path);
/// Everything after the last separator; `path` itself when there is none.
std::string FileNamePart(ILocale& locale, const std::string& path);
/// `folder` + joiner + `name`.
std::string JoinPath(ILocale& locale, const std::string& folder, const std::string& name);
/// Split at ";"; the piece after the last one counts, too.
std::vector<std::string> SplitList(const std::string& text);

} // namespace sm
