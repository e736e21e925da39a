#pragma once

namespace npi {

/// Standard error without buffers in between.
class cLinuxStdErr {
public:
    /// Writes the bytes after what the C library holds back; waits when a non-blocking descriptor is full.
    /// What the system refuses is lost. Allocates nothing and leaves errno alone.
    static void write(char const* text, unsigned int length) noexcept;
};

} // namespace npi
