#include "nel_core/io/cFileWatch.h"

#include <filesystem>
#include <memory>

#include "nel_core/std/cRuntimeException.h"
#include "tests/io/cFsFixture.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cQueueFixture.h"

using ntest::text;

namespace {

class cFileWatchTest : public ntest::cFsFixture {
protected:
    void SetUp() override
    {
        setUp(native);
        write("watched");
        watch = std::make_unique<nio::cFileWatch>(path("watched"));
    }
    void TearDown() override
    {
        watch.reset();
        cFsFixture::TearDown();
    }
    // The last work of the system's queue, null when it has none.
    static npi::cWork* work()
    {
        npi::cWork* last = nullptr;
        for (auto const& job : npi::system().workQueue.jobs())
            last = job.get() ? job.get() : last;
        return last;
    }
    void touch(char const* entry) const
    {
        auto const file = msRoot + entry;
        using std::filesystem::last_write_time;
        last_write_time(file, last_write_time(file) - std::chrono::seconds(2));
    }
    void count()
    {
        slots.onAction = [this] { ++emitted; };
        watch->sigFileChanged.connect(nrmi::slot(&slots, &ntest::cWorkSlots::sltAction));
    }

    std::unique_ptr<nio::cFileWatch> watch;
    ntest::cWorkSlots slots;
    int emitted = 0;
};

TEST_F(cFileWatchTest, theWorkIsThereForTheLifeOfTheWatch)
{
    std::string const name = "File I/O change notifier (" + text(path("watched")) + ")";
    ASSERT_NE(work(), nullptr);
    EXPECT_EQ(text(work()->name()), name);
    EXPECT_FALSE(work()->isStarted());
    watch->start(100);
    EXPECT_TRUE(work()->isStarted());
    EXPECT_EQ(work()->type(), npi::cWork::Periodic);
    EXPECT_EQ(work()->interval(), 100u);
    watch->stop();
    EXPECT_FALSE(work()->isStarted());
    EXPECT_EQ(text(work()->name()), name);
    watch.reset();
    EXPECT_EQ(work(), nullptr);

    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([&] { nio::cFileWatch missing(path("other")); }));
    EXPECT_EQ(work(), nullptr);
    nucs::cString const foreign = path("") + nucs::cString("\xfc");
    fs().rename(path("watched"), foreign);
    nio::cFileWatch const other(foreign);
    EXPECT_EQ(text(work()->name()), "File I/O change notifier (" + msRoot + "?)");
}

TEST_F(cFileWatchTest, aChangeIsToldOnce)
{
    touch("watched");
    watch->poll(); // nobody listens
    count();
    work()->action();
    EXPECT_EQ(emitted, 0);
    touch("watched");
    work()->action();
    work()->action();
    EXPECT_EQ(emitted, 1);

    write("new");
    touch("new");
    fs().rename(path("new"), path("watched"));
    touch("watched"); // another file now
    work()->action();
    EXPECT_EQ(emitted, 1);
}

TEST_F(cFileWatchTest, aSlotMayDeleteTheWatch)
{
    ntest::cDebugRecorder recorder; // the signals tell that they die while they are emitted
    count();
    slots.onAction = [this] { watch.reset(); };
    touch("watched");
    work()->action();
    EXPECT_EQ(watch, nullptr);
    EXPECT_EQ(work(), nullptr);
}

} // namespace
