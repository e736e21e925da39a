#include <cstdlib>
#include <ctime>

#include <gtest/gtest.h>

#include "nel_core/export.h"

// Exported, so that stack traces can name it. Times are shown in UTC, and the traces that errors of misuse
// write are muted unless somebody wants them.
NEL_EXPORT int main(int argc, char** argv)
{
    setenv("TZ", "UTC", 1);
    tzset();
    setenv("PIDBG_FILTER", "cSTDExceptions", 0);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
