#include "load.h"

#include <algorithm>
#include <cerrno>
#include <deque>
#include <memory>
#include <queue>
#include <random>
#include <sys/epoll.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "cBadPeers.h"
#include "cPeer.h"

namespace {

using namespace std::chrono_literals;

constexpr unsigned int kAtOnce = 32; // messages at the beginning and at the end
constexpr unsigned int kSlow = 20;   // peers that send a byte a second
constexpr unsigned int kSilent = 20; // peers that say nothing before the end
constexpr unsigned int kMaxMessage = 8192;
constexpr unsigned int kLastMessage = 1000;
constexpr unsigned int kMaxPause = 20; // milliseconds
constexpr unsigned int kEvents = 256;
constexpr auto kTick = 100ms;
constexpr std::size_t kTicksKept = 100;
constexpr auto kPatience = 60s; // for the opening and for the end

class cLoad {
public:
    explicit cLoad(cLoadPlan const& plan) : mPlan(plan), miEpoll(::epoll_create1(EPOLL_CLOEXEC))
    {
        if (miEpoll < 0)
            throw std::system_error(errno, std::generic_category(), "epoll_create1");
    }
    cLoad(cLoad const&) = delete;
    cLoad& operator=(cLoad const&) = delete;
    ~cLoad() { ::close(miEpoll); }

    cLoadResult run();

private:
    typedef std::pair<tClock::time_point, cPeer*> tTimer;

    void open();
    void talk();
    void sayGoodbye();
    void add(PeerRole role);
    void begin(cPeer& peer, unsigned int size);
    void beginDue();
    void beginLater(cPeer& peer);
    void turn();
    void attend(cPeer& peer);
    void complete(cPeer& peer);
    void noteWaiting();
    double waitedFor(double milliseconds) const;
    void note(std::string const& failure);

    cLoadPlan const mPlan;
    int const miEpoll;
    std::vector<std::unique_ptr<cPeer>> mPeers;
    std::priority_queue<tTimer, std::vector<tTimer>, std::greater<tTimer>> mTimers;
    std::deque<std::pair<tClock::time_point, double>> mWaiting; ///< what the server had waited, each tick
    unsigned int miWaiting = 0;                                 ///< peers with a message on its way
    bool mbTalking = false;
    std::mt19937 mRandom{3};
    cLoadResult mResult;
};

cLoadResult cLoad::run()
{
    auto const start = tClock::now();
    open();
    mResult.opening = std::chrono::duration<double>(tClock::now() - start).count();
    if (mResult.failure.empty())
        talk();
    sayGoodbye();
    for (auto const& peer : mPeers)
        mResult.bytes += peer->bytes();
    return mResult;
}

// All say something at first, but for the silent ones.
void cLoad::open()
{
    auto const end = tClock::now() + kPatience;
    add(prFloor);
    begin(*mPeers.back(), 1);
    for (unsigned int i = 0; i < mPlan.connections && tClock::now() < end;) {
        if (miWaiting >= kAtOnce) {
            turn();
            continue;
        }
        add(i < mPlan.active ? prActive : i < mPlan.active + kSlow ? prSlow : prIdle);
        if (++i + kSilent <= mPlan.connections)
            begin(*mPeers.back(), 1 + mRandom() % kMaxMessage);
    }
    while (miWaiting != 0 && tClock::now() < end)
        turn();
    if (miWaiting != 0 || mPeers.size() <= mPlan.connections)
        note("only " + std::to_string(mPeers.size() - 1 - miWaiting) + " connections could be opened");
}

void cLoad::talk()
{
    mbTalking = true;
    for (auto const& peer : mPeers)
        beginLater(*peer);
    cBadPeers bad(mPlan.server);
    auto const start = tClock::now();
    auto const end = start + std::chrono::seconds(mPlan.seconds);
    auto tick = start;
    for (auto now = start; now < end; now = tClock::now()) {
        if (now >= tick) {
            bad.tick();
            tick += kTick;
            noteWaiting();
        }
        beginDue();
        turn();
    }
    mResult.badPeers = bad.count();
    mbTalking = false;
}

// Every connection must still work, those that have done nothing for all the time included.
void cLoad::sayGoodbye()
{
    auto const end = tClock::now() + kPatience;
    for (auto const& peer : mPeers) {
        while (miWaiting >= kAtOnce && tClock::now() < end)
            turn();
        if (!peer->isWaiting())
            begin(*peer, kLastMessage);
    }
    while (miWaiting != 0 && tClock::now() < end)
        turn();
    if (miWaiting != 0)
        note(std::to_string(miWaiting) + " connections have not given everything back");
}

void cLoad::add(PeerRole role)
{
    int const fd = connectTo(role == prFloor ? mPlan.plain : mPlan.server);
    auto const seed = static_cast<unsigned int>(mPeers.size());
    mPeers.push_back(std::make_unique<cPeer>(fd, role, seed));
    epoll_event event = {};
    event.events = EPOLLIN | EPOLLOUT | EPOLLET;
    event.data.ptr = mPeers.back().get();
    if (::epoll_ctl(miEpoll, EPOLL_CTL_ADD, fd, &event) != 0)
        throw std::system_error(errno, std::generic_category(), "epoll_ctl");
}

void cLoad::begin(cPeer& peer, unsigned int size)
{
    ++miWaiting;
    peer.begin(size);
    attend(peer);
}

void cLoad::beginDue()
{
    auto const now = tClock::now();
    while (!mTimers.empty() && mTimers.top().first <= now) {
        cPeer& peer = *mTimers.top().second;
        mTimers.pop();
        begin(peer, peer.role() == prSlow ? 1 : 1 + mRandom() % kMaxMessage);
    }
}

void cLoad::beginLater(cPeer& peer)
{
    auto const pause = peer.role() == prSlow ? 1000ms : std::chrono::milliseconds(mRandom() % kMaxPause);
    if (peer.role() != prIdle)
        mTimers.push({tClock::now() + pause, &peer});
}

void cLoad::turn()
{
    epoll_event events[kEvents];
    int const count = ::epoll_wait(miEpoll, events, kEvents, 1);
    for (int i = 0; i < count; ++i)
        attend(*static_cast<cPeer*>(events[i].data.ptr));
}

void cLoad::attend(cPeer& peer)
{
    if (!peer.failure().empty())
        return;
    switch (peer.step()) {
    case cPeer::stWaiting: break;
    case cPeer::stComplete: complete(peer); break;
    case cPeer::stFailed: miWaiting -= peer.isWaiting(); note(peer.failure());
    }
}

void cLoad::complete(cPeer& peer)
{
    --miWaiting;
    if (!mbTalking)
        return;
    double const elapsed = peer.elapsed();
    if (peer.role() == prFloor) {
        mResult.floorWorst = std::max(mResult.floorWorst, elapsed);
    } else {
        mResult.worst = std::max(mResult.worst, elapsed);
        if (elapsed > mResult.worstOwn)
            mResult.worstOwn = std::max(mResult.worstOwn, elapsed - waitedFor(elapsed));
        ++mResult.messages;
    }
    beginLater(peer);
}

void cLoad::noteWaiting()
{
    mWaiting.push_back({tClock::now(), mPlan.waited()});
    if (mWaiting.size() > kTicksKept)
        mWaiting.pop_front();
}

// For how long the server has waited for a processor in the last so many milliseconds, or up to a tick more.
double cLoad::waitedFor(double milliseconds) const
{
    auto const begin = tClock::now() - std::chrono::duration<double, std::milli>(milliseconds);
    auto at = mWaiting.rbegin();
    while (at + 1 != mWaiting.rend() && at->first > begin)
        ++at;
    return mPlan.waited() - at->second;
}

void cLoad::note(std::string const& failure)
{
    if (mResult.failures++ == 0)
        mResult.failure = failure;
}

} // namespace

cLoadResult runLoad(cLoadPlan const& plan)
{
    cLoad load(plan);
    auto const result = load.run();
    plan.beforeClosing();
    return result;
}
