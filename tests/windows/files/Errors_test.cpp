// SPDX-License-Identifier: GPL-3.0-or-later
// What the system's errors are called.
#include "base/windows/Handles.h"

#include <gtest/gtest.h>

namespace sm::base {
namespace {

TEST(WindowsErrors, HaveTheNamesOfTheirKindOrTheirNumber)
{
    const struct {
        DWORD error;
        std::errc kind;
        const char* number;
    } rows[] = {{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory, ""},
                {ERROR_SHARING_VIOLATION, std::errc::permission_denied, ""},
                {ERROR_DELETE_PENDING, std::errc::permission_denied, ""},
                {ERROR_DISK_FULL, std::errc::no_space_on_device, ""},
                {ERROR_NO_SYSTEM_RESOURCES, std::errc::not_enough_memory, ""},
                {ERROR_GEN_FAILURE, std::errc::io_error, " (Windows error 31)"},
                {ERROR_CRC, std::errc::io_error, " (Windows error 23)"}};
    for (const auto& row : rows) {
        const std::error_code error = ErrorOf(row.error);
        EXPECT_EQ(error, row.kind) << row.error;
        EXPECT_EQ(error.message(), std::make_error_code(row.kind).message() + row.number) << row.error;
    }
}

} // namespace
} // namespace sm::base
