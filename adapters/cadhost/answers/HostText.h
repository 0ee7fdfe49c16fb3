// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of the host: numbers and names.
#pragma once

#include "base/text/Names.h"

#include <string>
#include <string_view>

namespace sm::cadhost {

using base::SameName;

/// At most 15 significant digits, the shortest form that keeps them, "." as the separator, exponents as "1E+20".
std::string NumberText(double value);
/// The same with fewer digits.
std::string RoundedText(double value, int digits);
/// Without blanks and tabs at either end.
std::string_view Trimmed(std::string_view text);

} // namespace sm::cadhost
