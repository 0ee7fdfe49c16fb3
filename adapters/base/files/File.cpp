// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/files/File.h"

#include <utility>

namespace sm::base {

File::File(File&& other) noexcept : m_handle(std::exchange(other.m_handle, -1)) {}

File& File::operator=(File&& other) noexcept
{
    Close();
    m_handle = std::exchange(other.m_handle, -1);
    return *this;
}

File::~File()
{
    Close();
}

} // namespace sm::base
