// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialect/DialectPage.h"

#include "prologue/Procedures.h"

namespace sm::publisher {

namespace {

constexpr std::string_view kPrologBegins = "%%BeginProlog\n";
constexpr std::string_view kSetupBegins = "%%EndProlog\n%%BeginSetup\n";
constexpr std::string_view kPageBegins = "%%EndSetup\n%%Page: 1 1\n%%ViewingOrientation: ";
constexpr std::string_view kTail = "\n%%PageTrailer\nshowpage\n%%Trailer\n%%EOF\n";

/// Cuts `text` behind the first `mark`; nothing when it isn't there.
std::optional<std::string_view> Before(std::string_view& text, std::string_view mark)
{
    const std::size_t at = text.find(mark);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at + mark.size());
    return part;
}

/// Cuts `text` behind `part`; false when it doesn't begin with it.
bool Skip(std::string_view& text, std::string_view part)
{
    const bool there = text.starts_with(part);
    text.remove_prefix(there ? part.size() : 0);
    return there;
}

/// True when every line of the head is a comment.
bool IsComments(std::string_view head)
{
    for (std::size_t at = 0; at < head.size(); at = head.find('\n', at) + 1) {
        if (head[at] != '%') {
            return false;
        }
        if (head.find('\n', at) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

bool IsPageSize(std::string_view line)
{
    constexpr std::string_view kBegin = "<</PageSize[", kEnd = "]>>setpagedevice";
    return line.starts_with(kBegin) && line.ends_with(kEnd) &&
           line.substr(kBegin.size(), line.size() - kBegin.size() - kEnd.size()).find_first_not_of("0123456789. ") ==
               std::string_view::npos;
}

} // namespace

std::optional<DialectPage> ReadDialectPage(std::string_view file)
{
    if (!file.starts_with("%!PS-Adobe-3.0\n%%Title: ")) {
        return std::nullopt;
    }
    const auto head = Before(file, kPrologBegins);
    if (!Skip(file, dialect::kProcedures) || !Skip(file, kSetupBegins)) {
        return std::nullopt;
    }
    const auto pageSize = Before(file, "\n");
    auto setup = Before(file, kPageBegins);
    const auto orientation = Before(file, "\n");
    if (!head || !IsComments(*head) || !pageSize || !IsPageSize(*pageSize) || !setup || !orientation ||
        !file.ends_with(kTail)) {
        return std::nullopt;
    }
    file.remove_suffix(kTail.size());
    auto pictures = TakeDialectPictures(*setup);
    auto fonts = pictures ? ReadDialectFonts(*setup) : std::nullopt;
    auto layers = ReadDialectLayers(*head);
    if (!fonts || !layers) {
        return std::nullopt;
    }
    return DialectPage{std::move(*fonts), std::move(*pictures), std::move(*layers), file};
}

} // namespace sm::publisher
