// SPDX-License-Identifier: GPL-3.0-or-later
#include "joboptions/JobOptionsValue.h"
#include "pdf/PublishStatus.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Kind = JobOptionsValue::Kind;

constexpr int kDeepest = 16;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\0';
}

bool IsRegular(char c)
{
    return !IsBlank(c) && std::string_view("()<>[]{}/%").find(c) == std::string_view::npos;
}

int HexDigit(char c)
{
    return c >= '0' && c <= '9'   ? c - '0'
           : c >= 'a' && c <= 'f' ? c - 'a' + 10
           : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                  : -1;
}

bool ReadNumber(std::string_view word, double& number)
{
    if (word.starts_with('+')) {
        word.remove_prefix(1);
    }
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() && std::isfinite(number);
}

} // namespace

void JobOptionsScanner::Fail(std::size_t line, const std::string& what, const std::string& remedy) const
{
    throw PublishFailure(PublishStatus::JobOptionsUnusable,
                         fmt::format("{}, line {}: {}. {}", m_path, line, what,
                                     remedy.empty() ? "Save the job options anew or choose other ones." : remedy));
}

void JobOptionsScanner::SkipBlanks()
{
    while (m_at < m_text.size() && (IsBlank(m_text[m_at]) || m_text[m_at] == '%')) {
        if (m_text[m_at] == '%') {
            m_at = std::min(m_text.find('\n', m_at), m_text.size());
        } else {
            m_line += m_text[m_at++] == '\n' ? 1 : 0;
        }
    }
}

bool JobOptionsScanner::AtEnd()
{
    SkipBlanks();
    return m_at >= m_text.size();
}

std::string JobOptionsScanner::Regular()
{
    const std::size_t begin = m_at;
    while (m_at < m_text.size() && IsRegular(m_text[m_at])) {
        ++m_at;
    }
    return std::string(m_text.substr(begin, m_at - begin));
}

std::string JobOptionsScanner::NextWord()
{
    SkipBlanks();
    return Regular();
}

JobOptionsValue JobOptionsScanner::Word(std::string word, std::size_t line) const
{
    JobOptionsValue value;
    value.line = line;
    if (word == "true" || word == "false") {
        value.kind = Kind::Boolean;
        value.boolean = word == "true";
    } else if (ReadNumber(word, value.number)) {
        value.kind = Kind::Number;
    } else if (word != "null") {
        Fail(line, fmt::format("\"{}\" is no value", word.substr(0, 40)));
    }
    value.text = std::move(word);
    return value;
}

JobOptionsValue JobOptionsScanner::Value(int depth)
{
    SkipBlanks();
    JobOptionsValue value;
    value.line = m_line;
    const char first = Peek();
    if (depth > kDeepest) {
        Fail(m_line, "brackets are nested too deeply");
    }
    if (m_at >= m_text.size()) {
        Fail(m_line, "the file ends in the middle of a setting");
    }
    if (IsRegular(first)) {
        return Word(Regular(), m_line);
    }
    ++m_at;
    if (first == '/') {
        value.kind = Kind::Name;
        value.text = Regular();
    } else if (first == '(') {
        ReadString(value);
    } else if (first == '<' && Peek() == '<') {
        ++m_at;
        value.kind = Kind::Dictionary;
        ReadItems(value, ">>", depth);
    } else if (first == '<') {
        ReadHexString(value);
    } else if (first == '[') {
        value.kind = Kind::Array;
        ReadItems(value, "]", depth);
    } else if (first == '{' || first == '}') {
        Fail(m_line, "program text in braces is not allowed", "Remove it or choose other job options.");
    } else {
        Fail(m_line, fmt::format("\"{}\" stands where a value is expected", first));
    }
    return value;
}

void JobOptionsScanner::ReadItems(JobOptionsValue& value, std::string_view closing, int depth)
{
    while (true) {
        if (AtEnd()) {
            Fail(value.line, fmt::format("the \"{}\" of this line is never closed", closing == "]" ? "[" : "<<"));
        }
        if (m_text.substr(m_at).starts_with(closing)) {
            m_at += closing.size();
            break;
        }
        value.items.push_back(Value(depth + 1));
        const bool keyWanted = value.kind == Kind::Dictionary && value.items.size() % 2 == 1;
        if (keyWanted && value.items.back().kind != Kind::Name) {
            Fail(value.items.back().line, "a setting's name, which begins with \"/\", is expected");
        }
    }
    if (value.kind == Kind::Dictionary && value.items.size() % 2 == 1) {
        Fail(value.items.back().line, fmt::format("/{} has no value", value.items.back().text));
    }
}

void JobOptionsScanner::ReadString(JobOptionsValue& value)
{
    value.kind = Kind::String;
    for (int open = 1; open > 0;) {
        if (m_at >= m_text.size()) {
            Fail(value.line, "the string that begins here is never closed");
        }
        const char c = m_text[m_at++];
        open += c == '(' ? 1 : c == ')' ? -1 : 0;
        m_line += c == '\n' ? 1 : 0;
        if (c == '\\') {
            ReadEscape(value);
        } else if (open > 0) {
            value.text += c;
        }
    }
}

void JobOptionsScanner::ReadEscape(JobOptionsValue& value)
{
    static constexpr std::string_view kLetters = "nrtbf";
    static constexpr std::string_view kMeanings = "\n\r\t\b\f";
    const char c = Peek();
    int code = 0;
    int digits = 0;
    while (digits < 3 && Peek() >= '0' && Peek() <= '7') {
        code = code * 8 + (m_text[m_at++] - '0');
        ++digits;
    }
    if (digits > 0) {
        value.text += static_cast<char>(code & 0xFF);
        return;
    }
    ++m_at;
    if (c == '\n') {
        ++m_line;
        return;
    }
    const auto letter = kLetters.find(c);
    value.text += letter == std::string_view::npos ? c : kMeanings[letter];
}

void JobOptionsScanner::ReadHexString(JobOptionsValue& value)
{
    value.kind = Kind::String;
    int pending = -1;
    for (; Peek() != '>'; ++m_at) {
        const char c = Peek();
        if (m_at >= m_text.size() || (HexDigit(c) < 0 && !IsBlank(c))) {
            Fail(value.line, "a hexadecimal string holds something else than digits or is never closed");
        }
        m_line += c == '\n' ? 1 : 0;
        if (HexDigit(c) >= 0 && pending < 0) {
            pending = HexDigit(c);
        } else if (HexDigit(c) >= 0) {
            value.text += static_cast<char>(pending * 16 + HexDigit(c));
            pending = -1;
        }
    }
    ++m_at;
    if (pending >= 0) {
        value.text += static_cast<char>(pending * 16);
    }
}

} // namespace sm::publisher
