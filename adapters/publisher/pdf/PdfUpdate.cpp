// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/PdfUpdate.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <random>
#include <stdexcept>
#include <vector>

namespace sm::publisher {

namespace {

constexpr int kPlaceBytes = 5; // a terabyte

std::string Hex(const FileId& id)
{
    return fmt::format("<{:02x}>", fmt::join(id, ""));
}

/// A row of cross references: type 1, the place, and no generation.
void AddRow(std::string& rows, std::uint64_t place)
{
    rows += '\1';
    for (int byte = kPlaceBytes - 1; byte >= 0; --byte) {
        rows += static_cast<char>(place >> (8 * byte));
    }
}

} // namespace

FileId KnownId(QPDF& pdf, bool reproducible)
{
    QPDFObjectHandle trailer = pdf.getTrailer();
    FileId id{};
    QPDFObjectHandle known = trailer.getKey("/ID");
    if (known.isArray() && known.getArrayNItems() == 2 && known.getArrayItem(0).isString() &&
        known.getArrayItem(0).getStringValue().size() == id.size()) {
        std::ranges::copy(known.getArrayItem(0).getStringValue(), id.begin());
        return id;
    }
    std::random_device random;
    if (!reproducible) {
        std::ranges::generate(id, [&] { return static_cast<unsigned char>(random()); });
    }
    const auto text = QPDFObjectHandle::newString(std::string(id.begin(), id.end()));
    trailer.replaceKey("/ID", QPDFObjectHandle::newArray({text, text}));
    return id;
}

PdfUpdate::PdfUpdate(QPDF& pdf, QPDFWriter& writer, TargetFile& target) : m_pdf(pdf), m_writer(writer), m_target(target)
{
    auto table = writer.getWrittenXRefTable();
    if (table.empty()) {
        throw std::logic_error("the PDF has no cross references");
    }
    m_size = table.rbegin()->first.getObj() + 1;
    m_previous = table.rbegin()->second.getOffset(); // the cross references are the last object themselves
}

int PdfUpdate::NumberOf(const QPDFObjectHandle& object)
{
    const int number = m_writer.getRenumberedObjGen(object.getObjGen()).getObj();
    if (number == 0) {
        throw std::logic_error("an object was not written");
    }
    return number;
}

void PdfUpdate::Begin(int number)
{
    m_places[number] = Position();
    Write(fmt::format("{} 0 obj\n", number));
}

void PdfUpdate::Write(const std::string& text)
{
    m_target.Write(text.data(), text.size());
}

void PdfUpdate::Finish(const FileId& id)
{
    const std::uint64_t begin = Position();
    const int own = NewNumber();
    Begin(own);
    std::string rows, index;
    for (const auto& [number, place] : m_places) {
        index += fmt::format("{} 1 ", number);
        AddRow(rows, place);
    }
    Write(fmt::format("<< /Type /XRef /Size {} /W [ 1 {} 0 ] /Index [ {}] /Prev {} /Root {} 0 R /Info {} 0 R "
                      "/ID [ {} {} ] /Length {} >>\nstream\n",
                      m_size, kPlaceBytes, index, m_previous, NumberOf(m_pdf.getRoot()),
                      NumberOf(m_pdf.getTrailer().getKey("/Info")), Hex(KnownId(m_pdf, false)), Hex(id), rows.size()));
    Write(rows);
    Write(fmt::format("\nendstream\nendobj\nstartxref\n{}\n%%EOF\n", begin));
}

} // namespace sm::publisher
