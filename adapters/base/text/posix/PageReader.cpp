// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/text/PageReader.h"

#include <cstddef>
#include <iconv.h>

namespace sm::base {

struct PageReader::Converter {
    iconv_t handle;
};

PageReader::PageReader(const std::string& page)
    : m_converter(std::make_unique<Converter>(Converter{::iconv_open("UTF-32LE", page.c_str())}))
{
}

PageReader::~PageReader()
{
    if (Knows())
        ::iconv_close(m_converter->handle);
}

bool PageReader::Knows() const
{
    return m_converter->handle != reinterpret_cast<iconv_t>(-1);
}

char32_t PageReader::One(std::string bytes)
{
    char32_t out = 0;
    char* in = bytes.data();
    std::size_t inLeft = bytes.size();
    char* to = reinterpret_cast<char*>(&out);
    std::size_t toLeft = sizeof out;
    const iconv_t handle = m_converter->handle;
    ::iconv(handle, nullptr, nullptr, nullptr, nullptr);
    const bool read = ::iconv(handle, &in, &inLeft, &to, &toLeft) != static_cast<std::size_t>(-1);
    // Pages with combining marks hold a letter back until they are told that no mark follows.
    ::iconv(handle, nullptr, nullptr, &to, &toLeft);
    return read && inLeft == 0 && toLeft == 0 ? out : 0;
}

} // namespace sm::base
