#pragma once

#include <exception>
#include <functional>

#include <gtest/gtest.h>

namespace ntest {

/// While it lives, counts the calls of its thread to the operating system's files and sockets, and lets one
/// of them fail, or that one and all later ones. One at a time in a thread; do not make assertions meanwhile.
///
/// Stands before the C library's functions in the test program and in nel_core, with and without sanitizers.
/// What the C library calls inside itself is not seen. A close that fails has closed the descriptor, as on
/// Linux; every other call that fails has done nothing.
///
///     ntest::atEachCall(prepare, step, check, ntest::cFailingCalls::clWrite, ENOSPC,
///     ntest::cFailingCalls::moOnce);
class cFailingCalls {
public:
    enum Call : unsigned int {
        clOpen,     ///< open(), openat()
        clRead,     ///< read()
        clWrite,    ///< write()
        clClose,    ///< close()
        clRename,   ///< rename()
        clTruncate, ///< ftruncate()
        clStat,     ///< stat(), lstat(), fstat(), fstatat()
        clMkdir,    ///< mkdir()
        clRmdir,    ///< rmdir(), unlinkat() of a directory
        clUnlink,   ///< unlink(), unlinkat() of anything else
        clOpenDir,  ///< opendir(), fdopendir()
        clReadDir,  ///< readdir()
        clSeek,     ///< lseek()
        clMap,      ///< mmap()
        clAccept,   ///< accept4()
        clConnect,  ///< connect()
        clRecv,     ///< recv()
        clSend,     ///< send()
        clPoll,     ///< poll()
        clAny,      ///< each of these
    };
    enum Mode : unsigned int {
        moOnce = 0,   ///< only that call fails
        moAlways = 1, ///< that call and all after it fail
    };
    /// In place of an error number: read(), write(), recv() and send() move one byte only, readdir() tells no
    /// file type.
    /// Other calls succeed.
    static constexpr int kShort = 0;

    /// Counts from now on; call number `n`, beginning with 1, fails with `code`.
    cFailingCalls(Call call, unsigned int n, int code, Mode mode);
    /// Counts from now on; `action` runs right before call number `n`, which succeeds. Its own calls are not
    /// counted. It has to live as long.
    cFailingCalls(Call call, unsigned int n, std::function<void()> const& action);
    /// Calls succeed again.
    ~cFailingCalls();
    cFailingCalls(cFailingCalls const&) = delete;
    cFailingCalls& operator=(cFailingCalls const&) = delete;

    /// Whether call number `n` has come.
    bool hasCome() const;
};

/// Runs `step` under a `cFailingCalls(call, n, arguments...)` for n = 1, 2, 3 ... until it makes no more such
/// calls; gives the number of runs in which call n has come. Each run begins with `prepare` and ends with
/// `check`, which gets what the step raised, null for nothing; their calls succeed.
template<typename Prepare, typename Step, typename Check, typename... A>
unsigned int atEachCall(Prepare&& prepare, Step&& step, Check&& check, cFailingCalls::Call call,
                        A const&... arguments)
{
    for (unsigned int n = 1; n < 10000; ++n) {
        prepare();
        bool hasCome = false;
        std::exception_ptr raised;
        {
            cFailingCalls const calls(call, n, arguments...);
            try {
                step();
            } catch (...) {
                raised = std::current_exception();
            }
            hasCome = calls.hasCome();
        }
        check(raised);
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "at call " << n;
            return n;
        }
        if (!hasCome)
            return n - 1;
    }
    ADD_FAILURE() << "there is no end of calls";
    return 0;
}

} // namespace ntest
