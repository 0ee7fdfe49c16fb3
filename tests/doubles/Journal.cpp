// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/Journal.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace sm {
namespace {

std::ofstream OpenedJournal()
{
    const char* const path = std::getenv("SM_JOURNAL");
    return path == nullptr ? std::ofstream() : std::ofstream(path, std::ios::binary);
}

std::string OneLine(const std::string& text)
{
    std::string line;
    for (const char c : text)
        line += c == '\n' ? "\\n" : c == '\r' ? "\\r" : std::string(1, c);
    return line;
}

std::string CurrentTest()
{
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    return test == nullptr ? "(no test)" : std::string(test->test_suite_name()) + "." + test->name();
}

} // namespace

void NoteInJournal(const std::string& line)
{
    static std::ofstream journal = OpenedJournal();
    static std::string shownTest;
    if (!journal.is_open())
        return;
    if (const std::string test = CurrentTest(); test != shownTest) {
        shownTest = test;
        journal << "## " << test << '\n';
    }
    journal << OneLine(line) << '\n';
    if (testing::UnitTest::GetInstance()->current_test_info() == nullptr)
        journal.flush(); // a test host may end with its process
}

} // namespace sm
