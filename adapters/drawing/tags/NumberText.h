// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as DXF files spell them.
#pragma once

#include "base/text/NumberText.h"
#include "drawing/Properties.h"

namespace sm::drawing {

using base::ParseInteger;
using base::ParseReal;
using base::Trimmed;

/// A handle in hexadecimal digits; 0 when there is none or it is longer than 16 digits.
inline Handle ParseHandle(std::string_view text)
{
    return base::ParseHexadecimal(text);
}

} // namespace sm::drawing
