// SPDX-License-Identifier: GPL-3.0-or-later
/* Loaded before the C library: the n-th system call of chosen kinds fails, in whatever process of a run it comes.
 *
 * SM_FAULT_COUNT  file of 8 bytes: how many such calls there were, all processes together
 * SM_FAULT_KINDS  names of kinds, with commas: open read write sync rename map fork make remove alloc
 * SM_FAULT_AT     number of the call that fails, from 1; 0: none
 * SM_FAULT_ERRNO  what it fails with; 0: a read or write of one byte rather than a failure
 * SM_FAULT_LOG    file that gets "kind what" of the call that failed
 */
#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>
#include <spawn.h>

static _Atomic uint64_t* g_count;
static uint64_t g_at;
static int g_error;
static const char *g_kinds, *g_log;

__attribute__((constructor)) static void Begin(void)
{
    const char *file = getenv("SM_FAULT_COUNT"), *at = getenv("SM_FAULT_AT"), *error = getenv("SM_FAULT_ERRNO");
    g_kinds = getenv("SM_FAULT_KINDS");
    g_log = getenv("SM_FAULT_LOG");
    if (file == NULL || g_kinds == NULL || at == NULL || error == NULL)
        return;
    const long descriptor = syscall(SYS_openat, AT_FDCWD, file, O_RDWR | O_CLOEXEC);
    if (descriptor < 0)
        return;
    void* room = (void*)syscall(SYS_mmap, NULL, 8, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    syscall(SYS_close, descriptor);
    if (room == MAP_FAILED)
        return;
    g_at = strtoull(at, NULL, 10);
    g_error = atoi(error);
    g_count = room;
}

static int IsChosen(const char* kind)
{
    const size_t length = strlen(kind);
    for (const char* at = g_kinds; at != NULL && *at != '\0';) {
        if (strncmp(at, kind, length) == 0 && (at[length] == ',' || at[length] == '\0'))
            return 1;
        at = strchr(at, ',');
        at = at == NULL ? NULL : at + 1;
    }
    return 0;
}

/* Whether this call is the one. */
static int IsDue(const char* kind, const char* what)
{
    if (g_count == NULL || !IsChosen(kind) || atomic_fetch_add(g_count, 1) + 1 != g_at)
        return 0;
    const long log = g_log == NULL ? -1 : syscall(SYS_openat, AT_FDCWD, g_log, O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (log >= 0) {
        char line[600];
        const int length = snprintf(line, sizeof line, "%s %s\n", kind, what == NULL ? "" : what);
        syscall(SYS_write, log, line, length < (int)sizeof line ? length : (int)sizeof line - 1);
        syscall(SYS_close, log);
    }
    return 1;
}

static const char* PathOf(int descriptor, char* room, size_t size)
{
    char link[40];
    snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const long length = syscall(SYS_readlinkat, AT_FDCWD, link, room, size - 1);
    room[length > 0 ? length : 0] = '\0';
    return room;
}

#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))
#define FAIL(kind, what, value)                                                                                        \
    if (IsDue(kind, what)) {                                                                                           \
        errno = g_error;                                                                                               \
        return value;                                                                                                  \
    }

static const char* OpenKind(int flags)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 && (flags & O_ACCMODE) != O_RDONLY ? "make" : "open";
}

#define OPEN(name)                                                                                                     \
    int name(const char* path, int flags, ...)                                                                         \
    {                                                                                                                  \
        va_list rest;                                                                                                  \
        va_start(rest, flags);                                                                                         \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;                           \
        va_end(rest);                                                                                                  \
        FAIL(OpenKind(flags), path, -1)                                                                                \
        return NEXT(name)(path, flags, mode);                                                                          \
    }
#define OPENAT(name)                                                                                                   \
    int name(int folder, const char* path, int flags, ...)                                                             \
    {                                                                                                                  \
        va_list rest;                                                                                                  \
        va_start(rest, flags);                                                                                         \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;                           \
        va_end(rest);                                                                                                  \
        FAIL(OpenKind(flags), path, -1)                                                                                \
        return NEXT(name)(folder, path, flags, mode);                                                                  \
    }
OPEN(open)
OPEN(open64)
OPENAT(openat)
OPENAT(openat64)

#define FOPEN(name)                                                                                                    \
    FILE* name(const char* path, const char* mode)                                                                     \
    {                                                                                                                  \
        FAIL(mode[0] == 'r' ? "open" : "make", path, NULL)                                                             \
        return NEXT(name)(path, mode);                                                                                 \
    }
FOPEN(fopen)
FOPEN(fopen64)

/* A transfer that fails, or with no error moves one byte. */
#define TRANSFER(name, kind, parameters, descriptor, size, call, shortened)                                            \
    ssize_t name parameters                                                                                            \
    {                                                                                                                  \
        char path[300];                                                                                                \
        if (g_count != NULL && descriptor > 2 && IsChosen(kind) && IsDue(kind, PathOf(descriptor, path, sizeof path))) { \
            if (g_error == 0 && size > 1)                                                                              \
                return NEXT(name) shortened;                                                                           \
            if (g_error != 0) {                                                                                        \
                errno = g_error;                                                                                       \
                return -1;                                                                                             \
            }                                                                                                          \
        }                                                                                                              \
        return NEXT(name) call;                                                                                        \
    }
TRANSFER(read, "read", (int d, void* b, size_t n), d, n, (d, b, n), (d, b, 1))
TRANSFER(write, "write", (int d, const void* b, size_t n), d, n, (d, b, n), (d, b, 1))
TRANSFER(pread, "read", (int d, void* b, size_t n, off_t o), d, n, (d, b, n, o), (d, b, 1, o))
TRANSFER(pread64, "read", (int d, void* b, size_t n, off64_t o), d, n, (d, b, n, o), (d, b, 1, o))
TRANSFER(pwrite, "write", (int d, const void* b, size_t n, off_t o), d, n, (d, b, n, o), (d, b, 1, o))
TRANSFER(pwrite64, "write", (int d, const void* b, size_t n, off64_t o), d, n, (d, b, n, o), (d, b, 1, o))
TRANSFER(writev, "write", (int d, const struct iovec* v, int n), d, 0, (d, v, n), (d, v, 1))

#define BY_DESCRIPTOR(name, kind, parameters, call)                                                                    \
    int name parameters                                                                                                \
    {                                                                                                                  \
        FAIL(kind, #name, -1)                                                                                          \
        return NEXT(name) call;                                                                                        \
    }
BY_DESCRIPTOR(fsync, "sync", (int d), (d))
BY_DESCRIPTOR(fdatasync, "sync", (int d), (d))
BY_DESCRIPTOR(ftruncate, "write", (int d, off_t n), (d, n))
BY_DESCRIPTOR(ftruncate64, "write", (int d, off64_t n), (d, n))

#define BY_PATH(name, kind, parameters, what, call)                                                                    \
    int name parameters                                                                                                \
    {                                                                                                                  \
        FAIL(kind, what, -1)                                                                                           \
        return NEXT(name) call;                                                                                        \
    }
BY_PATH(rename, "rename", (const char* a, const char* b), b, (a, b))
BY_PATH(renameat, "rename", (int x, const char* a, int y, const char* b), b, (x, a, y, b))
BY_PATH(renameat2, "rename", (int x, const char* a, int y, const char* b, unsigned f), b, (x, a, y, b, f))
BY_PATH(link, "rename", (const char* a, const char* b), b, (a, b))
BY_PATH(linkat, "rename", (int x, const char* a, int y, const char* b, int f), b, (x, a, y, b, f))
BY_PATH(mkdir, "make", (const char* p, mode_t m), p, (p, m))
BY_PATH(unlink, "remove", (const char* p), p, (p))
BY_PATH(rmdir, "remove", (const char* p), p, (p))
BY_PATH(remove, "remove", (const char* p), p, (p))
BY_PATH(pipe2, "fork", (int d[2], int f), "pipe2", (d, f))

char* mkdtemp(char* pattern)
{
    FAIL("make", pattern, NULL)
    return NEXT(mkdtemp)(pattern);
}

DIR* opendir(const char* path)
{
    FAIL("open", path, NULL)
    return NEXT(opendir)(path);
}

void* mmap(void* at, size_t size, int protection, int flags, int descriptor, off_t offset)
{
    char path[300];
    FAIL("map", descriptor < 0 ? "memory" : PathOf(descriptor, path, sizeof path), MAP_FAILED)
    return NEXT(mmap)(at, size, protection, flags, descriptor, offset);
}

void* mmap64(void* at, size_t size, int protection, int flags, int descriptor, off64_t offset)
{
    char path[300];
    FAIL("map", descriptor < 0 ? "memory" : PathOf(descriptor, path, sizeof path), MAP_FAILED)
    return NEXT(mmap64)(at, size, protection, flags, descriptor, offset);
}

/* Allocations. The C library's own names serve those that don't fail. */
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* old, size_t size);
void* __libc_memalign(size_t alignment, size_t size);

#define ALLOCATION(name, parameters, call)                                                                             \
    void* name parameters                                                                                              \
    {                                                                                                                  \
        FAIL("alloc", #name, NULL)                                                                                     \
        return __libc_##call;                                                                                          \
    }
ALLOCATION(malloc, (size_t size), malloc(size))
ALLOCATION(calloc, (size_t count, size_t size), calloc(count, size))
ALLOCATION(realloc, (void* old, size_t size), realloc(old, size))
ALLOCATION(aligned_alloc, (size_t alignment, size_t size), memalign(alignment, size))

pid_t fork(void)
{
    FAIL("fork", "fork", -1)
    return NEXT(fork)();
}

int posix_spawnp(pid_t* pid, const char* file, const posix_spawn_file_actions_t* actions, const posix_spawnattr_t* attributes,
                 char* const argv[], char* const environment[])
{
    if (IsDue("fork", file))
        return g_error;
    return NEXT(posix_spawnp)(pid, file, actions, attributes, argv, environment);
}
