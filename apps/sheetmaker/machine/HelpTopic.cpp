// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/HelpTopic.h"

#include <string_view>

namespace sm::app {

std::string HelpTopic(const std::string& address)
{
    constexpr std::string_view kPage = "/index.html#c";
    const std::size_t page = address.rfind(kPage);
    if (!address.starts_with("file://") || page == std::string::npos)
        return address;
    const std::string number = address.substr(page + kPage.size());
    if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos)
        return address;
    return address.substr(0, page) + "/topics/c" + number + ".html";
}

} // namespace sm::app
