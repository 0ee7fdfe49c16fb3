// SPDX-License-Identifier: GPL-3.0-or-later
// One character of a code page of the system.
#pragma once

#include <memory>
#include <string>

namespace sm::base {

/// Reads single characters of a code page, by the name that the system's converter knows it by ("CP1252", "GBK").
class PageReader {
public:
    explicit PageReader(const std::string& page);
    PageReader(const PageReader&) = delete;
    PageReader& operator=(const PageReader&) = delete;
    ~PageReader();
    /// Has the system that page?
    [[nodiscard]] bool Knows() const;
    /// The one character that these bytes spell; 0 when they are no character or more than one.
    char32_t One(std::string bytes);

private:
    struct Converter;
    std::unique_ptr<Converter> m_converter;
};

} // namespace sm::base
