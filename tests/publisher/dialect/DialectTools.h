// SPDX-License-Identifier: GPL-3.0-or-later
// What tests of the dialect stand on.
#pragma once

#include "pages/IPageMaker.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace sm::publisher {

/// For pages that the dialect is to make itself: fails the test when one is left to it.
class NoOthers final : public IPageMaker {
public:
    void CheckPage(const PageSource&, const std::string&) override {}
    MadePages MakePages(const std::vector<PageSource>&, const std::string&, const std::string&) override
    {
        ADD_FAILURE() << "the pages went to the interpreter";
        return {};
    }
};

/// Of a shell command, which is to succeed.
inline std::string OutputOf(const std::string& command)
{
    std::string output;
    FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> block{};
    for (std::size_t got = 0; (got = std::fread(block.data(), 1, block.size(), pipe)) > 0;)
        output.append(block.data(), got);
    EXPECT_EQ(::pclose(pipe), 0) << command;
    return output;
}

} // namespace sm::publisher
