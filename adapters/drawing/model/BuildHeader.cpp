// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Utf8.h"

#include <algorithm>
#include <array>

namespace sm::drawing {

namespace {

/// $ACADVER (DXF reference) in the order of the releases.
struct VersionName {
    std::string_view name;
    Version version;
};
constexpr std::array kVersions{
    VersionName{"AC1002", Version::R2_6},  VersionName{"AC1003", Version::R2_6},  VersionName{"AC1004", Version::R9},
    VersionName{"AC1006", Version::R10},   VersionName{"AC1009", Version::R12},   VersionName{"AC1011", Version::R13},
    VersionName{"AC1012", Version::R13},   VersionName{"AC1013", Version::R13},   VersionName{"AC1014", Version::R14},
    VersionName{"AC1015", Version::R2000}, VersionName{"AC1018", Version::R2004}, VersionName{"AC1021", Version::R2007},
    VersionName{"AC1024", Version::R2010}, VersionName{"AC1027", Version::R2013}, VersionName{"AC1032", Version::R2018},
};

Version VersionOf(std::string_view name)
{
    for (const VersionName& row : kVersions)
        if (row.name == name)
            return row.version;
    return Version::Unknown;
}

/// How many bytes aren't UTF-8, where the first of them stands, and how many characters of several bytes there are.
struct FoundUtf8 {
    std::uint32_t bad = 0;
    std::uint32_t line = 0;
    std::uint32_t good = 0;
};

/// Plain ASCII is passed over by words.
FoundUtf8 FindUtf8(std::string_view file)
{
    FoundUtf8 found;
    for (std::size_t at = 0; at < file.size();) {
        std::uint64_t word = 0;
        if (file.size() - at >= sizeof word)
            file.copy(reinterpret_cast<char*>(&word), sizeof word, at);
        else
            word = ~std::uint64_t{0};
        if ((word & 0x8080808080808080U) == 0) {
            at += sizeof word;
            continue;
        }
        const std::size_t before = at;
        if (const auto character = base::ReadUtf8(file, at)) {
            found.good += *character >= 0x80 ? 1 : 0;
            continue;
        }
        if (found.bad++ == 0)
            found.line = 1 + static_cast<std::uint32_t>(
                                 std::count(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(before), '\n'));
    }
    return found;
}

/// From R2007 on texts are UTF-8, and a byte order mark says so as well. A file that doesn't say its release, or one
/// that nobody knows, is taken for what most of its characters are.
bool HoldsUtf8(const Model& model)
{
    if (model.source.File().starts_with("\xEF\xBB\xBF"))
        return true;
    if (model.version != Version::Unknown)
        return model.version >= Version::R2007;
    if (model.source.format != TagFormat::Ascii)
        return true;
    const FoundUtf8 found = FindUtf8(model.source.File());
    return found.good > found.bad;
}

} // namespace

void BuildHeader(Model& model)
{
    model.header = HeaderVariables(model.source.File(), model.source.format, model.structure.variables,
                                   model.source.unreadNumbers);
    const auto acadver = model.header.RawText("$ACADVER");
    model.version = VersionOf(Trimmed(acadver.value_or("")));
    if (acadver && model.version == Version::Unknown)
        model.findings.Add(Damage::UnknownVersion, 1);
    const std::string page(Trimmed(model.header.RawText("$DWGCODEPAGE").value_or("")));
    std::string converter = ConverterName(page);
    if (converter.empty()) {
        model.findings.Add(Damage::UnknownCodePage, 1);
        converter = "CP1252";
    }
    const bool utf8 = HoldsUtf8(model);
    model.codePage = utf8 ? "UTF-8" : page;
    model.source.text = std::make_unique<TextDecoder>(converter, utf8);
    if (utf8 && model.source.format == TagFormat::Ascii)
        if (const FoundUtf8 found = FindUtf8(model.source.File()); found.bad > 0)
            model.findings.Add(Damage::NotUtf8, found.line, found.bad);
}

} // namespace sm::drawing
