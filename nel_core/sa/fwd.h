#pragma once

class cSAExceptions;

/// Forward declarations of the folder.
namespace nsa {

class cLabeledTypeMissmatchException;

} // namespace nsa
