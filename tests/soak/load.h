#pragma once

#include <functional>
#include <string>

#include <netinet/in.h>

struct cLoadPlan {
    sockaddr_in server; ///< the one under test
    sockaddr_in plain;  ///< an echo server that does nothing else
    unsigned int connections;
    unsigned int active;
    unsigned int seconds;
    std::function<double()>
        waited; ///< for how many milliseconds the server has waited for a processor so far
    std::function<void()> beforeClosing; ///< called when all that is left is to close the connections
};

struct cLoadResult {
    std::string failure; ///< the first one
    unsigned long long failures = 0;
    unsigned long long messages = 0;
    unsigned long long bytes = 0;
    unsigned int badPeers = 0;
    double worst = 0;      ///< the longest round trip in milliseconds
    double worstOwn = 0;   ///< the same without the time for which the server waited for a processor
    double floorWorst = 0; ///< the longest one with the plain server
    double opening = 0;    ///< how long it took to open the connections, in seconds
};

/// Opens the connections, keeps the active ones busy for the time, with bad peers around them, and lets every
/// connection say something at the end. Raises std::system_error.
cLoadResult runLoad(cLoadPlan const& plan);
