// SPDX-License-Identifier: GPL-3.0-or-later
// Whom this process's streams reach.
#include "base/process/ThisProcess.h"

#include "base/TempFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <unistd.h>

namespace sm::base {
namespace {

/// The error stream is led into the file while this lives; closed by number -1.
class Led {
public:
    explicit Led(int file) { ::dup2(file, STDERR_FILENO) < 0 ? ::close(STDERR_FILENO) : 0; }
    ~Led()
    {
        ::dup2(m_before, STDERR_FILENO);
        ::close(m_before);
    }
    Led(const Led&) = delete;
    Led& operator=(const Led&) = delete;

private:
    int m_before = ::dup(STDERR_FILENO);
};

bool IsReadIn(int file)
{
    const Led led(file);
    return IsRead(Stream::Errors);
}

int Create(const TempFolder& folder, const char* name)
{
    return ::open(folder.Path(name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
}

TEST(ThisProcess, KnowsWhetherItsErrorsReachAnybody)
{
    const TempFolder folder;
    int pipe[2] = {}, sockets[2] = {};
    ASSERT_EQ(::pipe(pipe), 0);
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, sockets), 0);
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    const struct {
        const char* name;
        int file;
        bool isRead;
    } rows[] = {{"a file", Create(folder, "errors.txt"), true},
                {"a pipe", pipe[1], true},
                {"a terminal", terminal, true},
                {"a desktop's file", Create(folder, ".xsession-errors"), false},
                {"the journal's socket", sockets[0], false},
                {"nowhere", ::open("/dev/null", O_WRONLY | O_CLOEXEC), false}};
    for (const auto& row : rows) {
        ASSERT_GE(row.file, 0) << row.name;
        EXPECT_EQ(IsReadIn(row.file), row.isRead) << row.name;
        ::close(row.file);
    }
    EXPECT_FALSE(IsReadIn(-1)) << "closed";
    ::close(pipe[0]);
    ::close(sockets[1]);
}

} // namespace
} // namespace sm::base
