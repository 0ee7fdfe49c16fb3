// SPDX-License-Identifier: GPL-3.0-or-later
#include "shapes/ShapeFile.h"

#include "base/files/File.h"
#include "base/text/Keywords.h"

namespace sm::render {

namespace {

constexpr std::size_t kLargestShapeFile = 16'000'000;
constexpr char kHeadEnd = '\x1A';

} // namespace

std::unique_ptr<ShapeFile> ShapeFile::Open(const std::string& path)
{
    std::optional<std::string> bytes = base::ReadRegularFile(path, kLargestShapeFile);
    return bytes ? FromBytes(std::move(*bytes)) : nullptr;
}

std::unique_ptr<ShapeFile> ShapeFile::FromBytes(std::string bytes)
{
    auto file = std::make_unique<ShapeFile>();
    file->m_bytes = std::move(bytes);
    return file->Index() ? std::move(file) : nullptr;
}

std::uint16_t ShapeFile::Word(std::size_t at) const
{
    if (at + 2 > m_bytes.size()) {
        return 0;
    }
    const auto low = static_cast<std::uint8_t>(m_bytes[at]);
    const auto high = static_cast<std::uint8_t>(m_bytes[at + 1]);
    return static_cast<std::uint16_t>(low | high << 8);
}

void ShapeFile::Add(std::uint16_t number, std::size_t at, std::size_t length)
{
    if (at >= m_bytes.size()) {
        return;
    }
    const std::string_view shape = std::string_view(m_bytes).substr(at, length);
    const std::size_t end = shape.find('\0');
    if (end == std::string_view::npos) {
        return;
    }
    m_codes.emplace(number, shape.substr(end + 1));
    if (end > 0) {
        m_names.emplace(base::UpperAscii(shape.substr(0, end)), number);
    }
}

bool ShapeFile::Index()
{
    constexpr std::size_t kLongestHead = 64;
    const std::size_t end = m_bytes.find(kHeadEnd);
    if (end == std::string::npos || end > kLongestHead) {
        return false;
    }
    const std::string_view head = std::string_view(m_bytes).substr(0, end);
    if (head.starts_with("AutoCAD-86 shapes")) {
        return IndexShapes(end + 1);
    }
    if (head.starts_with("AutoCAD-86 bigfont")) {
        m_kind = Kind::BigFont;
        return IndexBigFont(end + 1);
    }
    m_kind = Kind::Unifont;
    return head.starts_with("AutoCAD-86 unifont") && IndexUnifont(end + 1);
}

bool ShapeFile::IndexShapes(std::size_t at)
{
    constexpr std::size_t kHead = 6;  // lowest and highest number, count
    constexpr std::size_t kEntry = 4; // number, length
    const std::size_t count = Word(at + 4);
    std::size_t shape = at + kHead + count * kEntry;
    for (std::size_t i = 0; i < count && shape < m_bytes.size(); ++i) {
        const std::size_t entry = at + kHead + i * kEntry;
        Add(Word(entry), shape, Word(entry + 2));
        shape += Word(entry + 2);
    }
    return !m_codes.empty();
}

bool ShapeFile::IndexUnifont(std::size_t at)
{
    const std::size_t count = Word(at);
    at += 2;
    for (std::size_t i = 0; i < count && at + 4 <= m_bytes.size(); ++i) {
        const std::size_t length = Word(at + 2);
        Add(Word(at), at + 4, length);
        at += 4 + length;
    }
    return !m_codes.empty();
}

bool ShapeFile::IndexBigFont(std::size_t at)
{
    constexpr std::size_t kHead = 6, kRange = 4, kEntry = 8, kMostRanges = 128;
    const std::size_t count = Word(at + 2), ranges = Word(at + 4);
    const std::size_t index = at + kHead + ranges * kRange;
    if (ranges > kMostRanges) {
        return false;
    }
    const auto leads = [&](unsigned byte) {
        for (std::size_t i = 0; i < ranges; ++i) {
            const std::size_t range = at + kHead + i * kRange;
            if (byte >= Word(range) && byte <= Word(range + 2)) {
                return true;
            }
        }
        return false;
    };
    // Which byte of a number leads isn't laid down: the ranges tell.
    int swapped = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const unsigned number = Word(index + i * kEntry);
        swapped += number < 256 ? 0 : (leads(number & 0xFF) ? 1 : 0) - (leads(number >> 8) ? 1 : 0);
    }
    for (std::size_t i = 0; i < count && index + (i + 1) * kEntry <= m_bytes.size(); ++i) {
        const std::size_t entry = index + i * kEntry;
        const std::uint16_t number = Word(entry), length = Word(entry + 2);
        const auto turned = static_cast<std::uint16_t>(number << 8 | number >> 8);
        if (length > 0) {
            Add(swapped > 0 && number > 255 ? turned : number,
                Word(entry + 4) | static_cast<std::size_t>(Word(entry + 6)) << 16, length);
        }
    }
    return !m_codes.empty();
}

// The first shape says "above, below, modes, 0", or "height, 0, modes, width, 0" where others show its figures.
Vec2 ShapeFile::Cell() const
{
    const std::string_view head = Codes(0);
    const auto byte = [&](std::size_t i) { return i < head.size() ? static_cast<std::uint8_t>(head[i]) : 0; };
    const double height = byte(0) > 0 ? byte(0) : byte(1);
    return {head.size() > 4 && byte(3) > 0 ? byte(3) : height, height};
}

std::uint16_t ShapeFile::NumberOf(std::string_view name) const
{
    const auto found = m_names.find(base::UpperAscii(name));
    return found == m_names.end() ? std::uint16_t{0} : found->second;
}

bool ShapeFile::Has(std::uint16_t number) const
{
    return m_codes.find(number) != m_codes.end();
}

std::string_view ShapeFile::Codes(std::uint16_t number) const
{
    const auto found = m_codes.find(number);
    return found == m_codes.end() ? std::string_view{} : found->second;
}

} // namespace sm::render
