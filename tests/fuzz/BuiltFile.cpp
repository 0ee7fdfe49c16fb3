// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/BuiltFile.h"

#include "drawing/dwg/BitWriter.h"
#include "drawing/dwg/DwgFiles.h"
#include "dwg/bits/BitReader.h"
#include "dwg/file/Checksums.h"
#include "dwg/recovery/ObjectSearch.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace sm::drawing::dwg::testing {

namespace {

constexpr unsigned kR2000 = 2, kR2004 = 3, kR2007 = 4, kR2010 = 5, kR2018 = 7;

std::string Sum16(const std::string& bytes)
{
    return Le16(Crc16(kCrcSeed, bytes));
}

/// Fifteen bits a word.
std::string Words(std::uint64_t value)
{
    std::string bytes;
    for (; value > 0x7FFF; value >>= 15U)
        bytes += Le16(0x8000U | static_cast<unsigned>(value & 0x7FFFU));
    return bytes + Le16(static_cast<unsigned>(value));
}

/// Seven bits a byte.
std::string Septets(std::uint64_t value)
{
    std::string bytes;
    for (; value > 0x7F; value >>= 7U)
        bytes.push_back(static_cast<char>(0x80U | (value & 0x7FU)));
    return bytes + static_cast<char>(value);
}

void WriteText(BitWriter& bits, const std::string& text, bool wide)
{
    bits.BS(static_cast<unsigned>(text.size()));
    for (const char c : text)
        wide ? bits.RS(static_cast<unsigned char>(c)) : bits.RC(static_cast<unsigned char>(c));
}

bool IsEntity(const std::string& name)
{
    const std::vector<std::string>& names = ClassNames();
    return std::ranges::find(names, name) < std::ranges::find(names, "DICTIONARY");
}

/// The texts of one class: application, class of C++, name.
void WriteNames(BitWriter& bits, const std::string& name, bool wide)
{
    WriteText(bits, "A", wide);
    WriteText(bits, "B", wide);
    WriteText(bits, name, wide);
}

BitWriter ClassFields(unsigned release)
{
    BitWriter bits;
    const auto& names = ClassNames();
    if (release >= kR2004)
        bits.BS(499U + static_cast<unsigned>(names.size())).RS(0).Bits(0, 1);
    for (std::size_t i = 0; i < names.size(); ++i) {
        bits.BS(500U + static_cast<unsigned>(i)).BS(0);
        if (release < kR2007)
            WriteNames(bits, names[i], false);
        bits.Bits(0, 1).BS(IsEntity(names[i]) ? 0x1F2 : 0x1F3);
        for (int number = 0; number < 5 && release >= kR2004; ++number)
            bits.Bits(2, 2);
    }
    return bits;
}

/// From R2007 on all texts stand behind the fields, their size in bits and a flag behind them.
std::string ClassesOf(unsigned release)
{
    BitWriter fields = ClassFields(release);
    if (release < kR2007)
        return fields.Bytes();
    BitWriter texts;
    for (const std::string& name : ClassNames())
        WriteNames(texts, name, true);
    const std::uint64_t textBits = texts.Count();
    for (std::uint64_t i = 0; i < textBits; ++i)
        fields.Bits(static_cast<unsigned char>(texts.Bytes()[i / 8]) >> (7 - i % 8) & 1U, 1);
    if (textBits > 0x7FFF)
        fields.RS(static_cast<unsigned>(textBits >> 15U));
    fields.RS(textBits > 0x7FFF ? 0x8000U | static_cast<unsigned>(textBits & 0x7FFFU)
                                : static_cast<unsigned>(textBits));
    fields.Bits(1, 1);
    return Le32(static_cast<std::uint32_t>(fields.Count() + 32)) + fields.Bytes();
}

/// What the file holds, before it is put into a container.
struct Contents {
    std::string header, classes, data, objects, summary, unitSystem;
    std::vector<std::uint64_t> starts; ///< of objects
    std::optional<std::string> map;
};

void AddObject(Contents& file, unsigned release, std::string_view bytes)
{
    const std::string_view content = bytes.substr(std::min<std::size_t>(2, bytes.size()));
    std::string object = Words(content.size());
    if (release >= kR2010 && bytes.size() >= 2)
        object += Septets(static_cast<unsigned char>(bytes[0]) | static_cast<unsigned char>(bytes[1]) << 8U);
    object += content;
    file.starts.push_back(file.objects.size());
    file.objects += object + Sum16(object);
}

Contents ContentsOf(unsigned release, std::string_view input)
{
    Contents file;
    file.objects = release >= kR2004 ? Le32(0x0DCA) : std::string();
    static std::array<std::string, kReleases> kept;
    if (kept[release].empty())
        kept[release] = ClassesOf(release);
    file.classes = kept[release];
    file.unitSystem = Le16(0) + Le16(1);
    for (const PartOfInput& one : PartsOf(input)) {
        const std::string bytes(one.bytes);
        switch (one.part) {
        case Part::Object:
            AddObject(file, release, bytes);
            break;
        case Part::Header:
            file.header = bytes;
            break;
        case Part::Classes:
            file.classes = bytes;
            break;
        case Part::Data:
            file.data = bytes;
            break;
        case Part::Raw:
            file.objects += bytes;
            break;
        case Part::Map:
            file.map = bytes;
            break;
        case Part::Summary:
            file.summary = bytes;
            break;
        default:
            file.unitSystem = bytes;
            break;
        }
    }
    return file;
}

/// The handle that an object's own bytes tell; 0 when they don't.
std::uint64_t HandleAt(unsigned release, const std::string& objects, std::uint64_t start)
{
    BitReader bits(objects, start * 8, objects.size() * 8);
    (void)bits.MS();
    if (release >= kR2010)
        (void)bits.UMC();
    (void)(release >= kR2010 ? bits.BOT() : bits.BS());
    if (release >= kR2000 && release < kR2010)
        (void)bits.RL();
    const RawHandle handle = bits.H();
    return bits.Overrun() ? 0 : handle.value;
}

/// `base`: where the objects begin in what the list counts in.
std::string MapFor(unsigned release, const Contents& file, std::uint64_t base)
{
    if (file.map)
        return *file.map;
    std::map<std::uint64_t, std::uint64_t> places;
    for (const std::uint64_t start : file.starts)
        places.emplace(HandleAt(release, file.objects, start), base + start);
    std::vector<Place> list;
    for (const auto& [handle, offset] : places)
        if (list.size() < 150) // one chunk holds no more
            list.push_back({handle, offset});
    return MapOf(list);
}

std::string SectionsAround(unsigned release, const Contents& file)
{
    constexpr std::uint64_t kHead = 0x19 + 5 * 9 + 2 + 16;
    const std::string header = Enclosed(kHeaderBegin, file.header, false);
    const std::string classes = Enclosed(kClassesBegin, file.classes, false);
    const std::uint64_t first = kHead + header.size() + classes.size();
    const std::string map = MapFor(release, file, first);
    std::string bytes = std::string(kMagics[release]) + std::string(5, '\0') + '\x0F' + '\x01' + Le32(0) + '\0' + '\0' +
                        Le16(30) + Le32(5);
    std::uint64_t at = kHead;
    unsigned char number = 0;
    for (const std::size_t size : {header.size(), classes.size(), map.size(), std::size_t{0}, file.unitSystem.size()}) {
        at += number == 2 ? file.objects.size() : 0;
        bytes +=
            static_cast<char>(number++) + Le32(static_cast<std::uint32_t>(at)) + Le32(static_cast<std::uint32_t>(size));
        at += size;
    }
    bytes += Sum16(bytes) + std::string(16, '\x95');
    return bytes + header + classes + file.objects + map + file.unitSystem;
}

} // namespace

const std::vector<std::string>& ClassNames()
{
    static const std::vector<std::string> kNames{
        "ACAD_PROXY_ENTITY", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION", "HELIX", "MULTILEADER", "ACAD_TABLE", "IMAGE",
        "WIPEOUT", "PDFUNDERLAY", "DWFUNDERLAY", "DGNUNDERLAY", "MESH", "SURFACE", "EXTRUDEDSURFACE", "LOFTEDSURFACE",
        "REVOLVEDSURFACE", "SWEPTSURFACE", "PLANESURFACE", "NURBSURFACE", "LWPOLYLINE", "HATCH", "OLE2FRAME",
        // No entities from here on.
        "DICTIONARY", "DBCOLOR", "ACDBDICTIONARYWDFLT", "DICTIONARYVAR", "PLOTSETTINGS", "SORTENTSTABLE", "IMAGEDEF",
        "RASTERVARIABLES", "WIPEOUTVARIABLES", "PDFDEFINITION", "DWFDEFINITION", "DGNDEFINITION", "MLEADERSTYLE",
        "TABLESTYLE", "FIELD", "SPATIAL_FILTER", "SCALE", "ACDB_TEXTOBJECTCONTEXTDATA_CLASS",
        "ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", "ACDB_BLKREFOBJECTCONTEXTDATA_CLASS", "XRECORD", "LAYOUT",
        "ACDBPLACEHOLDER"};
    return kNames;
}

std::vector<PartOfInput> PartsOf(std::string_view input)
{
    constexpr std::size_t kHead = 3;
    std::vector<PartOfInput> parts;
    while (input.size() >= kHead) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(input[at]); };
        const std::size_t size = byte(1) | static_cast<std::size_t>(byte(2)) << 8U;
        const auto part = static_cast<Part>(byte(0) % static_cast<unsigned>(Part::Count));
        input.remove_prefix(kHead);
        parts.push_back({part, input.substr(0, size)});
        input.remove_prefix(std::min(size, input.size()));
    }
    return parts;
}

std::string PartBytes(Part part, std::string_view bytes)
{
    return static_cast<char>(part) + Le16(static_cast<unsigned>(bytes.size())) + std::string(bytes);
}

std::string FileOfParts(unsigned release, std::string_view input)
{
    release %= kReleases;
    const Contents file = ContentsOf(release, input);
    if (release < kR2004)
        return SectionsAround(release, file);
    const bool isLong = release == kR2018;
    std::map<std::string, std::string> sections{{"AcDb:Header", Enclosed(kHeaderBegin, file.header, isLong)},
                                                {"AcDb:Classes", Enclosed(kClassesBegin, file.classes, isLong)},
                                                {"AcDb:Handles", MapFor(release, file, 0)},
                                                {"AcDb:AcDbObjects", file.objects},
                                                {"AcDb:Template", file.unitSystem}};
    if (!file.data.empty())
        sections["AcDb:AcDsPrototype_1b"] = file.data;
    if (!file.summary.empty())
        sections["AcDb:SummaryInfo"] = file.summary;
    if (release == kR2007)
        return CodedFileOf(sections);
    return PagesOf(sections, {kMagics[release], 0x7400}).bytes;
}

} // namespace sm::drawing::dwg::testing
