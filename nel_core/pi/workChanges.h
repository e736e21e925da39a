#pragma once

namespace npi {

/// A number that changes whenever something happens on this thread that may change which works are active,
/// where they stand in their queue, or what they wait for. Internal to the library: whoever keeps what a look
/// at all works has found keeps the number too, and looks again when it is another one.
unsigned long long workChanges() noexcept;
/// Tells of such a change.
void noteWorkChange() noexcept;

} // namespace npi
