#include "nel_core/pi/cWorkQueue.h"

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/cDebugRecorder.h"
#include "tests/support/cQueueFixture.h"

// What slots and handlers may do to the queue that calls them.
namespace {

using npi::cWork;

class cWorkQueueReentryTest : public ntest::cQueueFixture { };

TEST_F(cWorkQueueReentryTest, aHandlerMayDoAnythingToAnyWork)
{
    struct {
        char const* name;
        std::function<void(cWorkQueueReentryTest&, std::unique_ptr<cWork>&, nstd::tSharedObject<cWork>&)> act;
        char const* log;
    } const rows[] = {
        {"destroy itself", [](auto&, auto& self, auto&) { self.reset(); }, "*b"},
        {"remove the next", [](auto& t, auto&, auto& next) { t.queue->removeJob(*next); }, "*"},
        {"clear the queue", [](auto& t, auto&, auto&) { t.queue->clear(); }, "*"},
        {"schedule another", [](auto& t, auto&, auto&) { t.due('n'); }, "*bn"},
        {"take the processor away", [](auto& t, auto&, auto&) { t.setEvents(nullptr); }, "*"},
        {"end the life of a running work of the queue's own",
         [](auto& t, auto&, auto&) {
             auto doomed = t.due('d');
             t.on(*doomed, [&t, handle = doomed]() mutable {
                 handle.invalidateObject();
                 t.log += t.queue->current() ? 'C' : '0';
                 t.queue->createJob();
             });
             t.queue->processEvents(true);
         },
         "*bd0"},
        {"destroy itself in a nested run",
         [](auto& t, auto& self, auto&) {
             auto const killer = t.queue->createJob();
             t.on(*killer, [&self] { self.reset(); });
             killer->start();
             t.queue->processEvents(true);
             t.log += t.queue->current() ? 'C' : '0';
         },
         "*b0"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        log.clear();
        auto first = std::make_unique<cWork>();
        queue->addJob(*first);
        nstd::tSharedObject<cWork> next;
        on(*first, [&] {
            log += '*';
            EXPECT_EQ(queue->current(), first.get());
            row.act(*this, first, next);
        });
        first->start();
        next = due('b');
        queue->processEvents(true);
        EXPECT_EQ(log, row.log);
        EXPECT_EQ(queue->current(), nullptr);
        EXPECT_EQ(queue->level(), 0u);
        first.reset();
        queue->clear();
        setEvents(new ntest::cFakeEvents);
        queue->processEvents(true);
        EXPECT_TRUE(queue->jobs().empty());
    }
}

TEST_F(cWorkQueueReentryTest, aNestedPassDoesNotHideAChangeFromTheOuterOne)
{
    cWork early, late;
    queue->addJob(early);
    queue->addJob(late);
    on(late, [&] {
        early.start(100, cWork::Periodic); // its entry has been passed over
        queue->processEvents(true);
    });
    late.start();
    queue->processEvents(true);
    EXPECT_LE(lastTimeout(), 100u);
    EXPECT_EQ(events->yields.size(), 2u) << "the outer cycle waits, too";
}

// Where slots of sigChanged and sigDestroyed() change the queue under its own hands.
TEST_F(cWorkQueueReentryTest, slotsOfAChangedOrDyingWorkMayChangeTheQueue)
{
    ntest::cWorkSlots dying;

    // A periodic work that is taken out and deleted when the queue plans it anew.
    auto work = std::make_unique<cWork>();
    queue->addJob(*work);
    logs(*work, 'x');
    work->start(0, cWork::Periodic);
    dying.listen(*work);
    dying.onChanged = [&] {
        dying.onChanged = nullptr;
        queue->removeJob(*work);
        work.reset();
    };
    EXPECT_EQ(queue->processEvents(true), 0u);

    // A work whose successor is scheduled whenever it dies: in a purge, in clear(), in the destructor.
    unsigned int made = 0;
    dying.onDestroyed = [&, &works = *queue] {
        ++made;
        auto const next = works.createJob();
        dying.listen(*next);
        next->start();
    };
    dying.onDestroyed();
    queue->processEvents(true);
    EXPECT_EQ(made, 2u);
    queue->clear();
    EXPECT_EQ(made, 3u);
    EXPECT_EQ(log, "");
    ntest::cDebugRecorder recorder;
    cWork orphan;
    queue->addJob(orphan);
    queue.reset();
    orphan.start();
    EXPECT_EQ(made, 4u);
    EXPECT_EQ(recorder.count("cWorkQueue::addJob()"), 1u) << "a dying queue takes no work";
}

TEST_F(cWorkQueueReentryTest, anErrorThatNobodyTakesEndsTheCycleAndLeavesEverythingInOrder)
{
    cWork work;
    queue->addJob(work);
    on(work, [] { ntest::fail("broken"); });
    work.start();
    due('b');
    ntest::cDebugRecorder recorder;
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([&] { queue->processEvents(true); }));
    EXPECT_EQ(queue->level(), 0u);
    EXPECT_EQ(queue->current(), nullptr);
    EXPECT_EQ(queue->jobs().size(), 2u);
    queue->processEvents(true);
    EXPECT_EQ(log, "b");
}

TEST_F(cWorkQueueReentryTest, anEntryThatWasIdleWhenItRanIsKeptIfItIsStartedBeforeTheEndOfThePass)
{
    auto const first = due('a');
    auto const second = due('b');
    on(*second, [&] {
        if (log.size() < 3)
            first->start();
    });
    queue->processEvents(true);
    EXPECT_EQ(queue->jobs().size(), 1u);
    queue->processEvents(true);
    EXPECT_EQ(log, "aba");
    EXPECT_TRUE(queue->jobs().empty());
}

TEST_F(cWorkQueueReentryTest, aProcessorThatIsReplacedInItsWaitOutlivesIt)
{
    auto* const old = events;
    cWork io;
    queue->addJob(io);
    logs(io, 'i');
    io.setAIOData(descriptors());
    old->onYield = [&] {
        setEvents(new ntest::cFakeEvents);
        io.aioData().setEvent(true);
        old->sigFinished(); // still there, but of no concern any more
    };
    queue->processEvents(true);
    EXPECT_EQ(log, "");
    queue->processEvents(true);
    EXPECT_EQ(log, "i");
    EXPECT_EQ(events->yields.size(), 1u);
}

// Works that wait for events, and what their handlers do, beside a model of what the queue must trigger.
struct cEventWorks {
    enum Act { acNothing, acStop, acStart, acRemove, acSetEvent, acPass, acCount };
    struct cEntry {
        nstd::tSharedObject<cWork> work;
        Act act;
        unsigned int target;
        bool isListed, isStarted, hasEvent;
    };

    void add()
    {
        unsigned int const index = static_cast<unsigned int>(entries.size());
        entries.push_back({test.queue->createJob(), static_cast<Act>(random() % acCount),
                           static_cast<unsigned int>(random() % 8), true, true, false});
        cWork& work = *entries.back().work;
        work.setAIOData(test.descriptors());
        test.on(work, [this, index] { act(index); });
    }
    void act(unsigned int index)
    {
        test.log += static_cast<char>('a' + index);
        cEntry& target = entries[entries[index].target];
        switch (entries[index].act) {
        case acStop: target.work->stop(); break;
        case acStart: target.work->start(); break;
        case acRemove: test.queue->removeJob(*target.work); break;
        case acSetEvent: target.work->aioData().setEvent(true); break;
        case acPass: test.queue->processEvents(true); break;
        default: break;
        }
    }
    void expectPass()
    {
        for (unsigned int i = 0; i < entries.size(); ++i) {
            cEntry& entry = entries[i];
            if (!entry.isListed || !entry.isStarted || !entry.hasEvent)
                continue;
            entry.hasEvent = false;
            expected += static_cast<char>('a' + i);
            cEntry& target = entries[entry.target];
            switch (entry.act) {
            case acStop: target.isStarted = false; break;
            case acStart: target.isStarted = true; break;
            case acRemove: target.isListed = false; break;
            case acSetEvent: target.hasEvent = true; break;
            case acPass: expectPass(); break;
            default: break;
            }
        }
    }

    void pass()
    {
        expectPass();
        test.queue->processEvents(true);
    }

    ntest::cQueueFixture& test;
    std::mt19937 random;
    std::vector<cEntry> entries{};
    std::string expected{};
};

TEST_F(cWorkQueueReentryTest, whatHandlersChangeCountsAtOnceAlsoAfterQuietPasses)
{
    for (unsigned int seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        log.clear();
        slots.clear();
        queue->clear();
        cEventWorks works{*this, std::mt19937(seed)};
        for (unsigned int i = 0; i < 12; ++i)
            works.add();
        for (unsigned int round = 0; round < 4; ++round) {
            for (unsigned int quiet = works.random() % 4; quiet != 0; --quiet)
                works.pass();
            for (auto& entry : works.entries) {
                entry.hasEvent = entry.hasEvent || works.random() % 3 == 0;
                entry.work->aioData().setEvent(entry.hasEvent);
            }
            works.pass();
            EXPECT_EQ(log, works.expected);
        }
    }
}

} // namespace
