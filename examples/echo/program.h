#pragma once

#include "nel_core/std/fwd.h"

/// What both programs are told.
struct cArguments {
    char const* address = nullptr;
    unsigned int timeout = 5000; ///< milliseconds
    char const* file = nullptr;  ///< null for standard input
};

/// One of the two programs.
struct cProgram {
    char const* name;
    char const* addressOption;
    bool isClient; ///< takes a time-out and a file
    char const* usage;
    /// Returns the exit status, 0 for success; its exceptions become 1.
    int (*run)(cArguments const&);
};

/// Reads the arguments and runs the program in a system of its own that writes no debug output. Returns the
/// exit status; whatever is wrong has been told in one line of standard error.
int runProgram(cProgram const& program, int argc, char** argv);

/// Tells of a wrong argument and returns the exit status for that.
int refuseArgument(char const* program, char const* what, char const* argument);
/// Writes an exception and what has led to it to standard error, in one line.
void report(char const* program, nstd::cAbstractException const& error);
