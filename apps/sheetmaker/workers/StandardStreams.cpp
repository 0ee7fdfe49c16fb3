// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/StandardStreams.h"

#include "base/files/Paths.h"
#include "commandline/Refusal.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace sm::app {
namespace {

void ReplaceAll(std::string& text, const std::string& what, const std::string& by)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

} // namespace

StandardStreams::StandardStreams(std::vector<std::string>& drawings, std::optional<std::string>& output)
    : m_takesOut(output == kStandardStream)
{
    const auto drawing = std::find(drawings.begin(), drawings.end(), kStandardStream);
    if (m_takesOut && drawings.size() > 1)
        throw Refusal{kExitUsage, "-o - takes one drawing"};
    if (drawing != drawings.end() && !output)
        throw Refusal{kExitUsage, "a drawing from standard input needs -o"};
    if (!m_takesOut && drawing == drawings.end())
        return;
    m_folder.emplace("");
    if (m_takesOut) {
        m_pdf = m_folder->Path() + "/out.pdf";
        output = m_pdf;
    }
    if (drawing == drawings.end())
        return;
    m_drawing = m_folder->Path() + "/stdin.dxf";
    *drawing = m_drawing;
    std::ofstream file(base::ToPath(m_drawing), std::ios::binary);
    if (std::cin.peek() != std::istream::traits_type::eof())
        file << std::cin.rdbuf();
    if (!file.flush())
        throw Refusal{kExitFailed, "standard input could not be kept in " + m_folder->Path()};
}

void StandardStreams::Restore(DrawingReport& report) const
{
    if (!m_pdf.empty() && !report.pdfPath.empty())
        report.pdfPath = kStandardStream;
    if (m_drawing.empty())
        return;
    if (report.drawing == m_drawing)
        report.drawing = kStandardStream;
    ReplaceAll(report.failure, m_drawing, "standard input");
    for (auto* lines : {&report.notes, &report.remarks})
        for (std::string& line : *lines)
            ReplaceAll(line, m_drawing, "standard input");
}

bool StandardStreams::Send(std::ostream& out) const
{
    std::error_code missing;
    if (m_pdf.empty() || std::filesystem::file_size(base::ToPath(m_pdf), missing) == 0 || missing)
        return true;
    std::ifstream file(base::ToPath(m_pdf), std::ios::binary);
    out << file.rdbuf() << std::flush;
    return static_cast<bool>(out);
}

} // namespace sm::app
