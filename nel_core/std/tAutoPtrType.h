#pragma once

namespace nstd {

/// How the handles of this library dispose of what they hold.
struct tAutoPtrType {
    enum PointerType : unsigned int {
        ptObject = 0,  ///< one object made with new: deleted through its virtual destructor
        ptArray = 1,   ///< an array made with new[]: deleted with delete[], the last element first
        ptUnowned = 2, ///< only referred to, never disposed of; so is any other value
    };
};

} // namespace nstd
