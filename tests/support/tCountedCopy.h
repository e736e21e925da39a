#pragma once

#include <stdexcept>

namespace ntest {

/// A value that counts how many of its kind live and refuses the n-th copy; `Tag` keeps the counts of two
/// tests apart.
template<typename Tag>
class tCountedCopy {
public:
    /// What the refused copy raises.
    class cRefused : public std::runtime_error {
    public:
        cRefused() : std::runtime_error("this copy is refused") { }
    };

    tCountedCopy(int number = 0) : value(number) { ++living; }
    tCountedCopy(tCountedCopy const& other) : value(other.value)
    {
        if (copiesLeft >= 0 && copiesLeft-- == 0)
            throw cRefused();
        ++living;
    }
    tCountedCopy& operator=(tCountedCopy const&) = default;
    ~tCountedCopy() { --living; }

    bool operator==(tCountedCopy const& other) const { return value == other.value; }
    bool operator<(tCountedCopy const& other) const { return value < other.value; }

    int value;
    static inline int living = 0;      ///< objects alive now
    static inline int copiesLeft = -1; ///< copies that succeed before one is refused; negative: all succeed
};

} // namespace ntest
