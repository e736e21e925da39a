#pragma once

#include "nel_core/export.h"

namespace nstd {

/// What a tokenizer knows of one special, whatever its text: its kind and how often it has been met.
class NEL_EXPORT cAbstractTokenSpec {
public:
    enum Type : unsigned int {
        ttSeparator = 0, ///< delimits tokens and is skipped
        ttKey = 1,       ///< delimits tokens and is one itself
    };

    explicit cAbstractTokenSpec(Type type) : meType(type) { }
    cAbstractTokenSpec(cAbstractTokenSpec const&) = delete;
    cAbstractTokenSpec& operator=(cAbstractTokenSpec const&) = delete;
    virtual ~cAbstractTokenSpec();

    Type type() const { return meType; }
    /// How often the special has been met so far.
    unsigned int numHints() const { return miHints; }
    void setHints(unsigned int count) { miHints = count; }
    /// Counts in `counter` too from now on; null counts nowhere else. Not owned. Specials may share one.
    void leaveCount(unsigned int* counter) { mpLeaveCounter = counter; }
    /// Counts one more meeting.
    void hint();

    /// A number that no text of any tokenizer has had before. Thread-safe.
    static unsigned long long newTextStamp();

private:
    Type meType;
    unsigned int miHints = 0;
    unsigned int* mpLeaveCounter = nullptr; ///< not owned
};

} // namespace nstd
