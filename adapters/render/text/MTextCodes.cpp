// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/MTextCodes.h"

#include "text/MTextParser.h"

namespace sm::render {

void ParseMText(std::string_view text, const TypeStyle& base, FontLibrary& fonts, ParsedMText& out)
{
    MTextParser(text, base, fonts, out).Run();
}

} // namespace sm::render
