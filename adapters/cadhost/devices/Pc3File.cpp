// SPDX-License-Identifier: GPL-3.0-or-later
#include "devices/Pc3File.h"

#include "answers/HostText.h"
#include "ports/HostError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <sstream>

namespace sm::cadhost {
namespace {

constexpr double kSmallestSide = 1, kLargestSide = 100000; // mm
constexpr double kCoarsest = 36, kFinest = 9600;           // dots per inch

std::optional<double> ReadNumber(std::string_view text)
{
    double value = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || end.ec != std::errc() || end.ptr != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (true) {
        const auto end = text.find(separator);
        parts.push_back(Trimmed(text.substr(0, end)));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

class Pc3Reader {
public:
    Pc3Reader(std::string_view text, const std::string& name) : m_rest(text), m_name(name) {}

    Pc3File Read()
    {
        constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
        if (m_rest.starts_with(kByteOrderMark))
            m_rest.remove_prefix(kByteOrderMark.size());
        while (NextLine()) {
            if (m_inMedia)
                ReadMedium();
            else if (m_text == "[Media]")
                m_inMedia = true;
            else
                ReadHead();
        }
        CheckWhole();
        return std::move(m_file);
    }

private:
    [[noreturn]] void Fail(const std::string& what) const
    {
        throw HostError(m_name + ", line " + std::to_string(m_line) + ": " + what);
    }

    /// The next line that says something.
    bool NextLine()
    {
        while (!m_rest.empty()) {
            const auto end = m_rest.find('\n');
            std::string_view line = m_rest.substr(0, end);
            m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
            ++m_line;
            if (line.ends_with('\r'))
                line.remove_suffix(1);
            m_text = Trimmed(line);
            if (std::any_of(m_text.begin(), m_text.end(), [](char c) { return c >= 0 && c < ' ' && c != '\t'; }))
                Fail("this is not text");
            if (!m_text.empty() && m_text.front() != '#')
                return true;
        }
        return false;
    }

    void ReadHead()
    {
        const auto colon = m_text.find(':');
        if (colon == std::string_view::npos)
            Fail("expected 'Name: value' or '[Media]'");
        const std::string_view key = Trimmed(m_text.substr(0, colon)), value = Trimmed(m_text.substr(colon + 1));
        if (key == "Format")
            ReadFormat(value);
        else if (key == "Device")
            m_file.device = value;
        else if (key == "Driver")
            m_file.driver = value;
        else if (key == "Resolution")
            ReadResolution(value);
        else if (key == "Margins")
            m_margins = ReadMargins(value);
        else
            Fail("'" + std::string(key) + "' is not known here");
    }

    void ReadFormat(std::string_view value)
    {
        if (value != "1")
            Fail("format '" + std::string(value) + "' is not known, only 1");
        m_hasFormat = true;
    }

    void ReadResolution(std::string_view value)
    {
        const auto number = ReadNumber(value);
        if (!number || *number < kCoarsest || *number > kFinest || *number != std::floor(*number))
            Fail("the resolution '" + std::string(value) + "' is not a whole number from 36 to 9600");
        m_file.resolution = static_cast<std::int32_t>(*number);
    }

    Margins ReadMargins(std::string_view value) const
    {
        std::istringstream words{std::string(value)};
        std::vector<double> numbers;
        for (std::string word; words >> word;) {
            const auto number = ReadNumber(word);
            if (!number || *number < 0)
                Fail("the margin '" + word + "' is not a length of 0 mm or more");
            numbers.push_back(*number);
        }
        if (numbers.size() != 4)
            Fail("margins are four lengths: left, bottom, right, top");
        return {numbers[0], numbers[1], numbers[2], numbers[3]};
    }

    double ReadSide(const char* which, std::string_view value) const
    {
        const auto number = ReadNumber(value);
        if (!number || *number < kSmallestSide || *number > kLargestSide)
            Fail(std::string("the ") + which + " '" + std::string(value) + "' is not a length from 1 to 100000 mm");
        return *number;
    }

    void ReadMedium()
    {
        const auto fields = Split(m_text, '|');
        if (fields.size() < 4 || fields.size() > 5)
            Fail("a medium has four or five fields between bars");
        if (fields[0].empty() || fields[1].empty())
            Fail("a medium needs both its names");
        Medium medium{std::string(fields[0]), std::string(fields[1]), ReadSide("width", fields[2]),
                      ReadSide("height", fields[3]), fields.size() == 5 ? ReadMargins(fields[4]) : m_margins};
        if (medium.margins.left + medium.margins.right >= medium.width ||
            medium.margins.bottom + medium.margins.top >= medium.height)
            Fail("the margins leave nothing of '" + medium.canonicalName + "'");
        if (m_file.FindMedium(medium.canonicalName) != nullptr)
            Fail("the medium '" + medium.canonicalName + "' is there twice");
        m_file.media.push_back(std::move(medium));
    }

    void CheckWhole() const
    {
        const char* missing = !m_hasFormat             ? "'Format: 1'"
                              : m_file.device.empty()  ? "device"
                              : m_file.driver.empty()  ? "driver"
                              : m_file.resolution == 0 ? "resolution"
                              : m_file.media.empty()   ? "media"
                                                       : nullptr;
        if (missing != nullptr)
            throw HostError(m_name + ": the plotter configuration has no " + missing);
    }

    std::string_view m_rest, m_text;
    const std::string& m_name;
    Pc3File m_file;
    Margins m_margins;
    int m_line = 0;
    bool m_hasFormat = false, m_inMedia = false;
};

} // namespace

const Medium* Pc3File::FindMedium(std::string_view canonicalName) const
{
    const auto found = std::find_if(media.begin(), media.end(),
                                    [&](const Medium& medium) { return medium.canonicalName == canonicalName; });
    return found == media.end() ? nullptr : &*found;
}

Pc3File ParseOwnPc3(std::string_view text, const std::string& name)
{
    return Pc3Reader(text, name).Read();
}

} // namespace sm::cadhost
