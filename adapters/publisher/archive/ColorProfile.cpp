// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/ColorProfile.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace sm::publisher {

namespace {

constexpr std::size_t kHeaderSize = 128, kTagSize = 12;
constexpr int kCurvePlaces = 1024;

void Put(std::string& out, std::uint32_t value, std::size_t size)
{
    for (std::size_t i = size; i-- > 0;) {
        out += static_cast<char>(value >> (8 * i) & 0xFF);
    }
}

/// s15Fixed16Number
void PutFixed(std::string& out, double value)
{
    Put(out, static_cast<std::uint32_t>(std::lround(value * 65536)), 4);
}

std::string Triple(double x, double y, double z)
{
    std::string type = "XYZ ";
    Put(type, 0, 4);
    for (const double value : {x, y, z}) {
        PutFixed(type, value);
    }
    return type;
}

std::string Text(const std::string& text)
{
    std::string type = "text";
    Put(type, 0, 4);
    return type + text + '\0';
}

/// textDescriptionType, of which only the ASCII part is filled.
std::string Description(const std::string& text)
{
    std::string type = "desc";
    Put(type, 0, 4);
    Put(type, static_cast<std::uint32_t>(text.size() + 1), 4);
    type += text + '\0';
    type.append(4 + 4 + 2 + 1 + 67, '\0'); // the Unicode and the script code parts
    return type;
}

/// From the value that a page gives to light.
std::string Curve()
{
    std::string type = "curv";
    Put(type, 0, 4);
    Put(type, kCurvePlaces, 4);
    for (int i = 0; i < kCurvePlaces; ++i) {
        const double value = static_cast<double>(i) / (kCurvePlaces - 1);
        const double light = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        Put(type, static_cast<std::uint32_t>(std::lround(light * 65535)), 2);
    }
    return type;
}

std::string Header(std::size_t size)
{
    std::string header;
    Put(header, static_cast<std::uint32_t>(size), 4);
    Put(header, 0, 4); // no preferred engine
    Put(header, 0x02100000, 4);
    header += "mntrRGB XYZ ";
    for (const std::uint32_t word : {2026U, 1U, 1U, 0U, 0U, 0U}) { // the date it was laid down
        Put(header, word, 2);
    }
    header += "acsp";
    header.append(28, '\0'); // platform, flags, device, attributes, perceptual intent
    for (const double value : {0.9642, 1.0, 0.8249}) {
        PutFixed(header, value);
    }
    header.resize(kHeaderSize, '\0');
    return header;
}

} // namespace

std::string StandardRgbProfile()
{
    const std::array<std::pair<const char*, std::string>, 7> parts{{
        {"desc", Description("sRGB IEC61966-2-1")},
        {"cprt", Text("No copyright, use freely")},
        {"wtpt", Triple(0.9642, 1, 0.8249)},
        {"rXYZ", Triple(0.43607, 0.22249, 0.01392)},
        {"gXYZ", Triple(0.38515, 0.71687, 0.09708)},
        {"bXYZ", Triple(0.14307, 0.06061, 0.71410)},
        {"rTRC", Curve()},
    }};
    constexpr std::size_t kTags = parts.size() + 2; // green and blue have red's curve
    std::string table, data;
    Put(table, kTags, 4);
    const auto enter = [&](const char* tag, std::size_t offset, std::size_t size) {
        table += tag;
        Put(table, static_cast<std::uint32_t>(offset), 4);
        Put(table, static_cast<std::uint32_t>(size), 4);
    };
    for (const auto& [tag, bytes] : parts) {
        const std::size_t offset = kHeaderSize + 4 + kTags * kTagSize + data.size();
        enter(tag, offset, bytes.size());
        if (tag == parts.back().first) {
            enter("gTRC", offset, bytes.size());
            enter("bTRC", offset, bytes.size());
        }
        data += bytes;
        data.append((4 - data.size() % 4) % 4, '\0');
    }
    return Header(kHeaderSize + table.size() + data.size()) + table + data;
}

} // namespace sm::publisher
