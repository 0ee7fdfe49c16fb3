// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/process/SharedLibrary.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace sm::base {
namespace {

TEST(SharedLibrary, GivesTheFunctionsOfALibrary)
{
    double (*cosine)(double) = nullptr;
    SharedLibrary("libm.so.6").Find(cosine, "cos");
    EXPECT_EQ(cosine(0), 1);
}

TEST(SharedLibrary, TellsWhichLibraryIsMissing)
{
    try {
        SharedLibrary("libnobody.so.9");
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(std::string(error.what()), "the library libnobody.so.9 can't be used: libnobody.so.9: cannot open "
                                             "shared object file: No such file or directory");
    }
}

TEST(SharedLibrary, RefusesAFunctionThatIsNotThere)
{
    void (*nothing)() = nullptr;
    EXPECT_THROW(SharedLibrary("libm.so.6").Find(nothing, "nobodys_function"), std::runtime_error);
    EXPECT_EQ(nothing, nullptr);
}

} // namespace
} // namespace sm::base
