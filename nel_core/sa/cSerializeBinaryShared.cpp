#include "nel_core/sa/cSerializeBinaryShared.h"

namespace nsa {
namespace {

constexpr char const* kTypeNames[] = {
    "invalid",    "rawBytes",  "piUChar",  "piChar",       "piUInt32", "piInt32", "piUInt64",
    "piInt64",    "piBool",    "piDouble", "cAsciiString", "cString",  "context", "label",
    "rawBytes64", "context64", "cString",  "piUInt16",     "piInt16",  "invalid",
};
static_assert(sizeof(kTypeNames) / sizeof(kTypeNames[0]) == cSerializeBinaryShared::ptEnd + 1,
              "every type id has a name");

} // namespace

char const* cSerializeBinaryShared::idToString(PrivatedTypeIDs id)
{
    return id <= ptEnd ? kTypeNames[id] : "unknown type";
}

} // namespace nsa
