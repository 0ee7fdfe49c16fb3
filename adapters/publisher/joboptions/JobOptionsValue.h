// SPDX-License-Identifier: GPL-3.0-or-later
// Values and tokens of a job options file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sm::publisher {

struct JobOptionsValue {
    enum class Kind { Null, Boolean, Number, Name, String, Array, Dictionary };
    Kind kind = Kind::Null;
    bool boolean = false;
    double number = 0;
    std::string text;                   ///< a name without its slash, a string's bytes, a number as written
    std::vector<JobOptionsValue> items; ///< of an array; of a dictionary: key (a Name), value, key, value ...
    std::size_t line = 0;               ///< where it begins, from 1
};

/// Takes a decoded text apart, value by value. Throws PublishFailure(JobOptionsUnusable) naming path, line, remedy.
class JobOptionsScanner {
public:
    JobOptionsScanner(std::string_view text, std::string path) : m_text(text), m_path(std::move(path)) {}

    /// True when only blanks and comments are left.
    bool AtEnd();
    /// The next value; a bare word other than true, false and null is a failure.
    JobOptionsValue NextValue() { return Value(0); }
    /// The next bare word, or empty when something else comes next.
    std::string NextWord();
    /// The line of the last thing read, from 1.
    [[nodiscard]] std::size_t Line() const { return m_line; }
    [[noreturn]] void Fail(std::size_t line, const std::string& what, const std::string& remedy = "") const;

private:
    void SkipBlanks();
    char Peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }
    std::string Regular();
    JobOptionsValue Value(int depth);
    JobOptionsValue Word(std::string word, std::size_t line) const;
    void ReadString(JobOptionsValue& value);
    void ReadEscape(JobOptionsValue& value);
    void ReadHexString(JobOptionsValue& value);
    void ReadItems(JobOptionsValue& value, std::string_view closing, int depth);

    std::string_view m_text;
    std::string m_path;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
};

} // namespace sm::publisher
