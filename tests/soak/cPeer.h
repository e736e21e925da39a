#pragma once

#include <chrono>
#include <string>

#include <netinet/in.h>

typedef std::chrono::steady_clock tClock;

/// What a peer does while it is not told otherwise.
enum PeerRole {
    prIdle,   ///< nothing
    prActive, ///< one message after the other
    prSlow,   ///< a byte a second
    prFloor,  ///< as an active one, but talks to the plain server
};

/// A connected, or connecting, socket that does not block. Raises std::system_error.
int connectTo(sockaddr_in const& address);

/// One connection of the load: sends numbered bytes and checks that they come back in order.
class cPeer {
public:
    enum State { stWaiting, stComplete, stFailed };

    /// The bytes of different seeds differ.
    cPeer(int fd, PeerRole role, unsigned int seed) : miFd(fd), meRole(role), miSeed(seed) { }
    cPeer(cPeer const&) = delete;
    cPeer& operator=(cPeer const&) = delete;
    ~cPeer();

    /// A message of that size is to be sent and to come back.
    void begin(unsigned int size);
    /// Sends and receives what is possible. Complete when the last byte of the message has come; tells it
    /// once.
    State step();

    int fd() const { return miFd; }
    PeerRole role() const { return meRole; }
    /// The milliseconds since the message was begun.
    double elapsed() const;
    /// Whether the message has not come back yet.
    bool isWaiting() const { return miReceived != miEnd; }
    unsigned long long bytes() const { return miReceived; }
    std::string const& failure() const { return msFailure; }

private:
    bool sendMore();
    bool receiveMore();
    bool check(char const* data, std::size_t size);
    State fail(char const* what);

    int const miFd;
    PeerRole const meRole;
    unsigned int const miSeed;
    unsigned long long miSent = 0;
    unsigned long long miReceived = 0;
    unsigned long long miEnd = 0; ///< of the message
    tClock::time_point mBegin;
    std::string msFailure;
};
