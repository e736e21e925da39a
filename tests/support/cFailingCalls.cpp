#include "tests/support/cFailingCalls.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/types.h>

namespace {

using ntest::cFailingCalls;

constexpr int kSucceeds = -1;

struct cPlan {
    bool isArmed;
    bool isLasting;
    bool hasCome;
    unsigned int call;
    unsigned int left; ///< calls to come up to the one in question, itself included
    int code;
    std::function<void()> const* action; ///< null for a call that fails
};

thread_local cPlan tPlan; // all zero: there is no code to run before its first use

// These run before a sanitizer is ready for checked code.
#define NTEST_UNCHECKED __attribute__((no_sanitize("address", "undefined", "thread")))

// Begins a function that stands before the C library's `symbol`, whatever the headers make of that name.
#define NTEST_HOOK(result, function, symbol, parameters)                                                     \
    extern "C" __attribute__((visibility("default"))) result function parameters __asm__(symbol);            \
    NTEST_UNCHECKED result function parameters

// The function that would have been called without the one of this file.
#define NTEST_NEXT(function, symbol)                                                                         \
    static auto const next = reinterpret_cast<decltype(&function)>(::dlsym(RTLD_NEXT, symbol))

// One that gives `failed` when it fails.
#define NTEST_CALL(result, function, symbol, call, failed, parameters, arguments)                            \
    NTEST_HOOK(result, function, symbol, parameters)                                                         \
    {                                                                                                        \
        NTEST_NEXT(function, symbol);                                                                        \
        return fails(call) ? failed : next arguments;                                                        \
    }

#if defined(__i386__)
#define NTEST_STAT(name) "__" name "64_time64" // seconds of 64 bits have names of their own here
#else
#define NTEST_STAT(name) name "64"
#endif

void runAction()
{
    tPlan.isArmed = false;
    (*tPlan.action)();
    tPlan.isArmed = true;
}

// Counts a call and gives the error number, or kShort, for one that fails.
NTEST_UNCHECKED int failureOf(cFailingCalls::Call call)
{
    if (!tPlan.isArmed || (tPlan.call != call && tPlan.call != cFailingCalls::clAny))
        return kSucceeds;
    if (tPlan.hasCome)
        return tPlan.isLasting ? tPlan.code : kSucceeds;
    tPlan.hasCome = --tPlan.left == 0;
    if (!tPlan.hasCome)
        return kSucceeds;
    if (!tPlan.action)
        return tPlan.code;
    runAction();
    return kSucceeds;
}

// Whether the call fails; errno is set then.
NTEST_UNCHECKED bool isError(int code)
{
    if (code == kSucceeds || code == cFailingCalls::kShort)
        return false;
    errno = code;
    return true;
}

NTEST_UNCHECKED bool fails(cFailingCalls::Call call)
{
    return isError(failureOf(call));
}

// How many of `count` bytes are transferred.
NTEST_UNCHECKED std::size_t transferred(int code, std::size_t count)
{
    return code == cFailingCalls::kShort && count != 0 ? 1 : count;
}

NTEST_UNCHECKED cFailingCalls::Call removalBy(int flags)
{
    return (flags & AT_REMOVEDIR) != 0 ? cFailingCalls::clRmdir : cFailingCalls::clUnlink;
}

// The last argument of open() and openat().
#define NTEST_MODE(mode, flags)                                                                              \
    unsigned int mode = 0;                                                                                   \
    if ((flags & O_CREAT) != 0) {                                                                            \
        std::va_list arguments;                                                                              \
        va_start(arguments, flags);                                                                          \
        mode = va_arg(arguments, unsigned);                                                                  \
        va_end(arguments);                                                                                   \
    }

} // namespace

NTEST_CALL(int, ntestRename, "rename", cFailingCalls::clRename, -1, (char const* from, char const* to),
           (from, to))
NTEST_CALL(int, ntestTruncate, "ftruncate64", cFailingCalls::clTruncate, -1, (int file, long long size),
           (file, size))
NTEST_CALL(int, ntestStat, NTEST_STAT("stat"), cFailingCalls::clStat, -1, (char const* path, void* target),
           (path, target))
NTEST_CALL(int, ntestLStat, NTEST_STAT("lstat"), cFailingCalls::clStat, -1, (char const* path, void* target),
           (path, target))
NTEST_CALL(int, ntestFStat, NTEST_STAT("fstat"), cFailingCalls::clStat, -1, (int file, void* target),
           (file, target))
NTEST_CALL(int, ntestFStatAt, NTEST_STAT("fstatat"), cFailingCalls::clStat, -1,
           (int directory, char const* path, void* target, int flags), (directory, path, target, flags))
NTEST_CALL(int, ntestMkdir, "mkdir", cFailingCalls::clMkdir, -1, (char const* path, unsigned int mode),
           (path, mode))
NTEST_CALL(int, ntestRmdir, "rmdir", cFailingCalls::clRmdir, -1, (char const* path), (path))
NTEST_CALL(int, ntestUnlink, "unlink", cFailingCalls::clUnlink, -1, (char const* path), (path))
NTEST_CALL(int, ntestUnlinkAt, "unlinkat", removalBy(flags), -1, (int directory, char const* path, int flags),
           (directory, path, flags))
NTEST_CALL(::DIR*, ntestOpenDir, "opendir", cFailingCalls::clOpenDir, nullptr, (char const* path), (path))
NTEST_CALL(::DIR*, ntestFdOpenDir, "fdopendir", cFailingCalls::clOpenDir, nullptr, (int file), (file))
NTEST_CALL(long long, ntestSeek, "lseek64", cFailingCalls::clSeek, -1,
           (int file, long long offset, int whence), (file, offset, whence))
NTEST_CALL(void*, ntestMap, "mmap64", cFailingCalls::clMap, MAP_FAILED,
           (void* address, std::size_t length, int access, int flags, int file, long long offset),
           (address, length, access, flags, file, offset))

NTEST_CALL(int, ntestAccept, "accept4", cFailingCalls::clAccept, -1,
           (int socket, ::sockaddr* name, ::socklen_t* size, int flags), (socket, name, size, flags))
NTEST_CALL(int, ntestConnect, "connect", cFailingCalls::clConnect, -1,
           (int socket, ::sockaddr const* name, ::socklen_t size), (socket, name, size))
NTEST_CALL(int, ntestPoll, "poll", cFailingCalls::clPoll, -1,
           (::pollfd * descriptors, ::nfds_t count, int timeout), (descriptors, count, timeout))

NTEST_HOOK(int, ntestOpen, "open64", (char const* path, int flags, ...))
{
    NTEST_NEXT(ntestOpen, "open64");
    NTEST_MODE(mode, flags)
    return fails(cFailingCalls::clOpen) ? -1 : next(path, flags, mode);
}

NTEST_HOOK(int, ntestOpenAt, "openat64", (int directory, char const* path, int flags, ...))
{
    NTEST_NEXT(ntestOpenAt, "openat64");
    NTEST_MODE(mode, flags)
    return fails(cFailingCalls::clOpen) ? -1 : next(directory, path, flags, mode);
}

NTEST_HOOK(::ssize_t, ntestRead, "read", (int file, void* target, std::size_t count))
{
    NTEST_NEXT(ntestRead, "read");
    int const code = failureOf(cFailingCalls::clRead);
    return isError(code) ? -1 : next(file, target, transferred(code, count));
}

NTEST_HOOK(::ssize_t, ntestWrite, "write", (int file, void const* source, std::size_t count))
{
    NTEST_NEXT(ntestWrite, "write");
    int const code = failureOf(cFailingCalls::clWrite);
    return isError(code) ? -1 : next(file, source, transferred(code, count));
}

NTEST_HOOK(::ssize_t, ntestRecv, "recv", (int socket, void* target, std::size_t count, int flags))
{
    NTEST_NEXT(ntestRecv, "recv");
    int const code = failureOf(cFailingCalls::clRecv);
    return isError(code) ? -1 : next(socket, target, transferred(code, count), flags);
}

NTEST_HOOK(::ssize_t, ntestSend, "send", (int socket, void const* source, std::size_t count, int flags))
{
    NTEST_NEXT(ntestSend, "send");
    int const code = failureOf(cFailingCalls::clSend);
    return isError(code) ? -1 : next(socket, source, transferred(code, count), flags);
}

NTEST_HOOK(int, ntestClose, "close", (int file))
{
    NTEST_NEXT(ntestClose, "close");
    int const code = failureOf(cFailingCalls::clClose);
    int const result = next(file);
    return isError(code) ? -1 : result;
}

NTEST_HOOK(struct ::dirent*, ntestReadDir, "readdir64", (::DIR * directory))
{
    NTEST_NEXT(ntestReadDir, "readdir64");
    int const code = failureOf(cFailingCalls::clReadDir);
    auto* const entry = isError(code) ? nullptr : next(directory);
    if (entry && code == cFailingCalls::kShort)
        entry->d_type = DT_UNKNOWN;
    return entry;
}

namespace ntest {

cFailingCalls::cFailingCalls(Call call, unsigned int n, int code, Mode mode)
{
    tPlan = cPlan{true, mode == moAlways, false, call, n, code, nullptr};
}

cFailingCalls::cFailingCalls(Call call, unsigned int n, std::function<void()> const& action)
{
    tPlan = cPlan{true, false, false, call, n, kSucceeds, &action};
}

cFailingCalls::~cFailingCalls()
{
    tPlan = cPlan{};
}

bool cFailingCalls::hasCome() const
{
    return tPlan.hasCome;
}

} // namespace ntest
