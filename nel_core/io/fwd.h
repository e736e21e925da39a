#pragma once

/// Forward declarations of the folder.
namespace nio {

class cIOExceptions;

} // namespace nio
