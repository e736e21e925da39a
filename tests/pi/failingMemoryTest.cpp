#include <memory>

#include <gtest/gtest.h>

#include "nel_core/nel_core.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cFakeEvents.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

// Every single request for memory fails once in each of these: nothing is lost, and everything can be used
// on.
namespace {

class cCounter : public nrmi::cConnectable {
public:
    piVoid sltCount()
    {
        ++calls;
        return piVoid();
    }
    piVoid sltFail()
    {
        nucs::cLIMessage message;
        message << "$MTR$Unable to count to %number%!" << 7;
        throw nstd::cRuntimeException(message, nullptr, 0);
    }
    piVoid sltError(nstd::cAbstractException const&, bool) { return piVoid(); }
    unsigned int calls = 0;
};

class failingMemoryTest : public ntest::cSystemFixture {
protected:
    void SetUp() override
    {
        if (!ntest::cFailingMemory::isAvailable())
            GTEST_SKIP() << "memory cannot fail in this build";
        cSystemFixture::SetUp();
    }

    // Runs a step that leaves nothing behind, and sees that it does.
    template<typename Step>
    static void walk(Step step)
    {
        step();
        long long const before = ntest::cFailingMemory::inUse();
        unsigned int const requests = ntest::failEachRequest(step, [] {});
        EXPECT_GT(requests, 0u);
        EXPECT_EQ(ntest::cFailingMemory::inUse(), before);
    }
};

TEST_F(failingMemoryTest, arraysKeepTheirContent)
{
    char const more[100] = {};
    walk([&] {
        nstd::tArray<char> changed;
        changed.append("0123456789", 10);
        try {
            changed.insert(5, more, sizeof more);
        } catch (std::bad_alloc const&) {
            if (!changed.isEqual("0123456789", 10))
                throw 1; // a foreign exception: reported
            throw;
        }
        changed.replace("\0", 1, "abc", 3, 0);
    });
}

TEST_F(failingMemoryTest, stringsAndMessages)
{
    walk([] {
        nstd::cAsciiString text("a text of some length that needs more than one step of the pool");
        text += text;
        text.rightAdjust(300, '.');
        nucs::cString wide(text, '?');
        nstd::tArray<char> bytes;
        nucs::cEnDecUTF8().encode(wide, bytes);
        nucs::cEnDecUTF8().decode(bytes, wide);
        nucs::cLIMessage message;
        message << "$MTR$%a% and %b%" << text << 5;
        nucs::cLIMessage const second(message);
        second.untranslated(wide);
        nstd::cAsciiStringTokenizer tokenizer(text);
        tokenizer.context().addSeparator(" ");
        nstd::cAsciiString token;
        unsigned int key = 0;
        while (tokenizer.getNextToken(token, key)) { }
    });
}

TEST_F(failingMemoryTest, containersKeepTheirElements)
{
    nstd::tVector<nstd::cAsciiString> vector;
    nstd::tList<nstd::cAsciiString> list;
    for (char const* word : {"c", "a", "d", "b"}) {
        vector.append(word);
        list.append(word);
    }
    unsigned int added = 0;
    ntest::failEachRequest(
        [&] {
            vector.insert(2, "x");
            ++added;
            list.insertSorted("x", true);
            ++added;
        },
        [&] { EXPECT_EQ(vector.size() + list.size(), 8 + added); });
    walk([&] {
        nstd::tVector<nstd::cAsciiString> copy(vector);
        copy.append(copy);
        nstd::tList<nstd::cAsciiString> other(list);
        other.append_net(other);
        nstd::tPtrVector<nstd::cAsciiString> owning;
        owning.setGuardMode(nstd::tPtrVector<nstd::cAsciiString>::gmOwn);
        std::unique_ptr<nstd::cAsciiString> pointee(new nstd::cAsciiString("p"));
        owning.append(pointee.get());
        pointee.release();
        nstd::tHash<nucs::cString, int> hash;
        hash["key"] = 1;
    });
}

TEST_F(failingMemoryTest, worksAreScheduledAndRun)
{
    npi::cWorkQueue queue;
    queue.setEvents(nstd::tAutoPtr<npi::cAbstractProcessEvents>(new ntest::cFakeEvents));
    cCounter counter;
    npi::cWork kept;
    kept.sigAction.connect(nrmi::slot(&counter, &cCounter::sltFail));
    kept.sigActionError().connect(nrmi::slot(&counter, &cCounter::sltError));
    auto const step = [&] {
        queue.addJob(kept);
        kept.start(0, npi::cWork::Periodic);
        auto const work = queue.createJob();
        work->setName("once");
        work->sigAction.connect(nrmi::slot(&counter, &cCounter::sltCount));
        work->start();
        queue.processEvents(true);
        queue.removeJob(kept);
    };
    ntest::failEachRequest(step, [&] {
        EXPECT_EQ(queue.level(), 0u);
        queue.clear();
        queue.processEvents(true);
        EXPECT_TRUE(queue.jobs().empty());
        EXPECT_EQ(kept.parent(), nullptr);
    });
    counter.calls = 0;
    step();
    EXPECT_EQ(counter.calls, 1u);
}

TEST_F(failingMemoryTest, failuresAreReportedWithWhatMemoryThereIs)
{
    walk([] {
        try {
            try {
                cSTDExceptions::throwOutOfRange("tArray", "at", cSTDExceptions::ortIndex, 5, 0, 4);
            } catch (nstd::cAbstractException const& cause) {
                cUCSExceptions::throwUCSDecodeError(cause);
            }
        } catch (nstd::cRuntimeException const& error) {
            nstd::cRuntimeException copy(error);
            copy.link(error);
            nucs::cString text;
            copy.createMessage(text, "\n", nstd::cAbstractException::mfHistory, nullptr);
            copy.dump();
        }
    });
}

} // namespace
