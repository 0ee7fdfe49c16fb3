// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/OldSeeds.h"

#include "drawing/dwg/DwgFiles.h"
#include "drawing/dwg/OldFiles.h"

#include <initializer_list>

namespace sm::drawing::dwg::testing {

namespace {

using namespace std::string_literals;

std::string Numbers(std::initializer_list<double> values)
{
    std::string bytes;
    for (const double value : values)
        bytes += Number(value);
    return bytes;
}

std::string Counted(const std::string& text)
{
    return Le16(static_cast<unsigned>(text.size())) + text;
}

OldFileWriter Begun(OldKind kind)
{
    std::string dashes = "Dashes";
    dashes.resize(48);
    OldFileWriter file(kind);
    file.Record(1, 0, "0", Le16(7) + Le16(0)).Record(1, 64, "WALLS", Le16(0xFFFD) + Le16(1));
    file.Record(2, 64, "STANDARD", Numbers({0, 1, 0}) + "\0"s + Number(0.2) + "txt");
    file.Record(3, 64, "CONTINUOUS", "Solid line");
    file.Record(3, 64, "DASHED", dashes + "A\x02" + Numbers({0.75, 0.5, -0.25}));
    return file;
}

/// What the flags of an entity put in front of its fields.
struct Head {
    unsigned flags;
    std::string front;
};

std::vector<Head> HeadsOf(OldKind kind)
{
    const std::string linetype = kind == OldKind::R11 ? Le16(1) : "\x01"s;
    const std::string extended = "\x02"s + Le16(9) + "\0\x02\0ab"s + "\x46" + Le16(9) + "\x02\0"s;
    return {{0, ""}, {4, Number(5)}, {0x2B, "\x05" + linetype + Number(2.5) + "\x02\x01\x2A"}, {0x40, extended}};
}

/// Every kind of entity on one page, with that head and these options.
std::string AllKinds(OldKind kind, const Head& head, unsigned options)
{
    OldFileWriter file = Begun(kind);
    const std::string fields = Numbers({1, 2, 3, 4, 5, 6, 7, 8, 9}) + Counted("Hi") + Numbers({0.5, 1.5});
    for (unsigned type = 1; type < 24; ++type)
        if (type != 18) // a jump
            file.Entity(type, head.flags, 1, options, head.front, fields);
    return file.File();
}

std::string OldText(OldKind kind)
{
    OldFileWriter file = Begun(kind);
    file.Entity(7, 0, 0, 0x169, "",
                Numbers({1, 2, 3}) + Counted("Hi \\U+00E9 %%c") + Number(0.5) + "\0\x01"s + Numbers({4, 5}) + "\x02");
    return file.File();
}

std::string Polylines(OldKind kind)
{
    OldFileWriter file = Begun(kind);
    for (const unsigned flags : {1U, 8U, 16U, 64U}) {
        file.Entity(19, 0x84, 1, 1, Number(3), std::string(1, static_cast<char>(flags)));
        for (const double x : {1.0, 2.0, 3.0, 4.0})
            file.Entity(20, 4, 1, 4, Number(3), Numbers({x, 2, 0.5}));
        file.Entity(17, 0, 1, 0, "", Le32(0));
    }
    return file.File();
}

/// A block of a line and an attribute's definition, inserted with the attribute, and an anonymous block.
std::string Blocks(OldKind kind)
{
    OldFileWriter file = Begun(kind);
    const std::string attribute = Numbers({1, 2, 3}) + Counted("5") + Counted("NUMBER") + "\x08"s;
    const auto door = file.BlockEntity(12, 0, 0, 4, "", Numbers({1, 2}) + Counted("DOOR"));
    file.BlockEntity(1, 0, 1, 0, "", Numbers({0, 0, 4, 5, 6, 7}));
    file.BlockEntity(15, 0, 1, 0, "", attribute);
    file.BlockEntity(13, 0, 0, 0, "", "");
    const auto arrow = file.BlockEntity(12, 0, 0, 0, "", Numbers({0, 0}));
    file.BlockEntity(13, 0, 0, 0, "", "");
    file.Record(0, 64, "DOOR", Le32(0x40000000U | door)).Record(0, 65, "*D", Le32(0x40000000U | arrow));
    file.Entity(14, 0x80, 0, 5, "", Le16(0) + Numbers({5, 6, 2, 1.5}));
    file.Entity(16, 0, 0, 0, "", attribute).Entity(17, 0, 1, 0, "", Le32(0));
    file.Entity(14, 0, 0, 0, "", Le16(1) + Numbers({0, 0}));
    return file.File();
}

std::string Jumps(OldKind kind)
{
    OldFileWriter file = Begun(kind);
    file.Entity(3, 0, 0, 0, "", Numbers({0, 0, 1}));
    file.Raw("\x12\0"s + Le16(kind == OldKind::R11 ? 10 : 8) + Le32(0x80000000U));
    file.ExtraEntity(3, 0, 0, 0, "", Numbers({0, 0, 2}));
    file.ExtraEntity(18, 0, 0x700, 0, "", "");
    return file.File();
}

std::string Variables(OldKind kind)
{
    OldFileWriter file = Begun(kind);
    file.At(0x5E, Numbers({1, 2, 3})).At(0x78, Numbers({4, 5, 6})).At(0x1A3, Number(2.5));
    if (kind != OldKind::R9)
        file.At(0x3F9, Le16(12)).At(0x3FB, Numbers({7, 8, 9}));
    if (kind == OldKind::R11)
        file.At(0x631, Le16(1)).At(0x637, Numbers({1, 2, 3}));
    return file.Entity(2, 0x40, 0, 0, "\x04" + Le16(1), Numbers({0, 0, 1})).File();
}

} // namespace

std::vector<std::pair<std::string, std::string>> OldSeeds()
{
    std::vector<std::pair<std::string, std::string>> seeds;
    const std::pair<const char*, OldKind> kinds[]{{"r9", OldKind::R9}, {"r10", OldKind::R10}, {"r11", OldKind::R11}};
    for (const auto& [name, kind] : kinds) {
        const std::string begin = std::string(name) + "-";
        for (const Head& head : HeadsOf(kind))
            for (const unsigned options : {0U, 1U, 2U, 0x1FFU})
                seeds.emplace_back(begin + std::to_string(head.flags) + "-" + std::to_string(options),
                                   AllKinds(kind, head, options));
        seeds.emplace_back(begin + "text", OldText(kind));
        seeds.emplace_back(begin + "polylines", Polylines(kind));
        seeds.emplace_back(begin + "blocks", Blocks(kind));
        seeds.emplace_back(begin + "jumps", Jumps(kind));
        seeds.emplace_back(begin + "variables", Variables(kind));
    }
    return seeds;
}

} // namespace sm::drawing::dwg::testing
