#include "nel_core/std/cAbstractException.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <optional>
#include <pthread.h>
#include <string>
#include <vector>

#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectRefusal.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"
#include "tests/support/tNamedExceptions.h"

namespace {

using nstd::cAbstractException;
using nstd::cBugException;
using nstd::cRuntimeException;

nucs::cLIMessage message(char const* key)
{
    nucs::cLIMessage result;
    result << key;
    return result;
}

// Has no message, and copies itself as wished.
class cBareException : public cAbstractException {
public:
    enum Way { plain, memory, other, ownHistory, failInside };

    explicit cBareException(char const* kindWord = "bare", Way way = plain)
        : cAbstractException(kindWord, tyRuntime, nullptr, 0),
          meWay(way)
    {
    }

    cAbstractException* createObject() const override
    {
        if (meWay == memory)
            throw std::bad_alloc();
        if (meWay == other)
            throw 12;
        if (meWay == failInside)
            copyFailingChain();
        auto* const copy = new cBareException(*this);
        if (meWay == ownHistory)
            copy->link(cRuntimeException(message("own")));
        return copy;
    }
    nstd::cAsciiString typeName() const override { return "cBareException"; }

private:
    static void copyFailingChain()
    {
        cRuntimeException error;
        error.link(new cBareException);
        error.link(new cBareException("bare", other));
        EXPECT_STREQ(cRuntimeException(error).history()->what(), "bare");
    }

    Way meWay;
};

std::string namesOf(cAbstractException const& first)
{
    std::string names;
    for (auto const* e = &first; e; e = e->history())
        names += ntest::messageOf(*e) + ' ';
    return names;
}

// A -> B -> C, a bug and two runtime errors
cBugException chain()
{
    cBugException a(message("A"));
    a.link(cRuntimeException(message("B")));
    a.link(new cRuntimeException(message("C")));
    return a;
}

// Takes the debug output's entries while it lives.
class cEntryRecorder : public npi::cAbstractOut {
public:
    cEntryRecorder() { npi::system().debug.link(this); }
    ~cEntryRecorder() override { npi::system().debug.link(nullptr); }
    void printChar(char c) override { entries.back() += c; }
    npi::cAbstractOut& debugMessage(char const* file, unsigned int line) override
    {
        entries.push_back(file + (':' + std::to_string(line)) + ' ');
        return cAbstractOut::debugMessage(file, line);
    }

    std::vector<std::string> entries; ///< "file:line text"
};

class cEnvironment {
public:
    explicit cEnvironment(char const* value) { ::setenv("NE", value, 1); }
    ~cEnvironment() { ::unsetenv("NE"); }
};

class cAbstractExceptionTest : public ntest::cSystemFixture { };

TEST_F(cAbstractExceptionTest, theSourcePositionIsKeptUpToSixtyCharacters)
{
    std::string const sixty(60, 'f');
    for (std::string const& file : {sixty, sixty + 'x'}) {
        cBugException const error(message("x"), file.c_str(), 42);
        EXPECT_EQ(error.sourceFileName(), sixty);
        EXPECT_EQ(cBugException(error).backtrace()[0], error.backtrace()[0]);
        EXPECT_EQ(error.backtrace()[63], 0u);
    }
    EXPECT_STREQ(cBugException(message("x"), nullptr, 0).sourceFileName(), "");
    EXPECT_EQ(cBareException(std::string(300, 'k').c_str()).what(), std::string(255, 'k'));
}

TEST_F(cAbstractExceptionTest, linkAppendsTheCauseAtTheEndAndMakesNoRing)
{
    auto error = chain();
    auto* const middle = error.history();
    error.link(static_cast<cAbstractException*>(nullptr));
    error.link(&error);
    error.link(error);
    error.link(middle);
    error.link(*middle->history());
    middle->history()->link(&error);
    EXPECT_EQ(namesOf(error), "A B C ");
    EXPECT_EQ(error.has("cRuntimeException"), middle);
    EXPECT_EQ(error.has("cAbstractException"), nullptr);
}

TEST_F(cAbstractExceptionTest, createMessageShowsWhatTheFlagsSay)
{
    auto error = chain();
    error.link(cBareException());
    auto const textFor = [&](unsigned int flags) {
        nucs::cString out("old");
        error.createMessage(out, "; ", flags, nullptr);
        return ntest::text(out);
    };
    EXPECT_EQ(textFor(5), "A;  B;   C;    bare");
    EXPECT_EQ(textFor(0xfffffffa), "A");

    nucs::cString both("-");
    error.createMessage(both, both, cAbstractException::mfHistory, nullptr);
    EXPECT_EQ(ntest::text(both), "A-B-C-bare");
    cAbstractException::createMessage(error, both, 0, nullptr);
    EXPECT_EQ(ntest::text(both), "A-B-C-bareA") << "the static form appends";
}

TEST_F(cAbstractExceptionTest, theTextOfALongChainIsInProportion)
{
    auto const repeating = message("%a%%a%%a%") << nucs::cString(std::string(1000, 'x').c_str());
    cBugException error(repeating);
    for (int i = 0; i < 1000; ++i)
        error.link(new cBugException(repeating));
    nucs::cString out;
    error.createMessage(out, "\n", 5, nullptr);
    EXPECT_NE(ntest::text(out).find("\n" + std::string(400, ' ') + "xxx"), std::string::npos);
    EXPECT_LE(out.length(), 1001 * 1010 + nucs::cLIMessage::kRepeatedMax);
}

TEST_F(cAbstractExceptionTest, dumpWritesOneEntryForEachException)
{
    cBugException error(message("A"));
    error.link(cBareException("word"));
    error.link(cBareException(""));
    cEntryRecorder recorder;
    error.dump();

    std::string lines;
    for (auto const& entry : recorder.entries) {
        EXPECT_EQ(entry.find("nel_core/std/cAbstractException:"), 0u);
        lines += entry.substr(entry.find(' ') + 1);
    }
    EXPECT_EQ(lines, "[cBugException (bug)]: A\r\n[cBareException (runtime)]: word\r\n"
                     "[cBareException (runtime)]:  --- no message ---\r\n");
}

TEST_F(cAbstractExceptionTest, copiesOwnTheirChainAndMovesTakeIt)
{
    auto original = chain();
    auto const* const cause = original.history();
    cBugException copy(original);
    EXPECT_EQ(namesOf(copy), "A B C ");
    EXPECT_NE(copy.history(), cause);

    auto const& self = copy;
    copy = self;
    EXPECT_EQ(namesOf(copy), "A B C ");

    cBugException const moved(std::move(original));
    EXPECT_EQ(moved.history(), cause);
    EXPECT_EQ(original.history(), nullptr);

    cRuntimeException error(message("D"));
    error.link(moved);
    error = static_cast<cRuntimeException&>(*error.history()->history());
    EXPECT_EQ(namesOf(error), "B C ") << "what was its cause";
}

TEST_F(cAbstractExceptionTest, aCopyHasTheHistoryUpToAFailure)
{
    struct {
        cBareException::Way first, second; ///< the causes
        std::string copied;                ///< kind words of the copy
        bool own, any;                     ///< out-of-memory conditions
    } const rows[] = {
        {cBareException::memory, cBareException::plain, "A ", true, true},
        {cBareException::plain, cBareException::memory, "A bare ", false, true},
        {cBareException::plain, cBareException::other, "A bare ", false, false},
        {cBareException::ownHistory, cBareException::plain, "A bare own ", false, false},
        {cBareException::failInside, cBareException::plain, "A bare bare ", false, false},
    };
    for (auto const& row : rows) {
        cBugException original(message("A"));
        original.link(new cBareException("bare", row.first));
        original.link(new cBareException("bare", row.second));
        cBugException const copy(original);
        EXPECT_EQ(namesOf(copy), row.copied);
        EXPECT_EQ(copy.outOfMemoryCondition(), row.own);
        EXPECT_EQ(copy.hasOutOfMemoryCondition(), row.any);
    }
}

TEST_F(cAbstractExceptionTest, copiesMovesAndChainsKeepThePlaceTheyComeFrom)
{
    auto const placeOf = [](cAbstractException const& e) {
        return e.isRemote() ? ntest::text(e.remoteLocation().toString()) : "here";
    };
    cRuntimeException error(message("A"));
    error.setRemoteInfo(ncs::cComponentLocation("9:9-9@z"));
    error.setRemoteInfo(ncs::cComponentLocation("1:7-1@a"));
    error.setRemoteInfo(error.remoteLocation());
    error.link(new cBareException);
    error.history()->setRemoteInfo(ncs::cComponentLocation("1:8-2@b"));
    error.link(new cBareException);

    cRuntimeException copy(error);
    EXPECT_EQ(placeOf(copy), "1:7-1@a");
    EXPECT_EQ(placeOf(*copy.history()), "1:8-2@b");
    ntest::expectAssertion([&] { copy.history()->history()->remoteLocation(); }, "mpRemoteLocation != 0",
                           "nel_core/std/cAbstractException");
    cRuntimeException const moved(std::move(error));
    EXPECT_EQ(placeOf(moved) + placeOf(error), "1:7-1@ahere");
    copy = cRuntimeException();
    EXPECT_EQ(placeOf(copy), "here");

    cBareException bare;
    bare = static_cast<cBareException const&>(*moved.history());
    EXPECT_EQ(placeOf(bare), "1:8-2@b");
    bare = cBareException();
    EXPECT_EQ(placeOf(bare), "here");
}

TEST_F(cAbstractExceptionTest, withoutMemoryACopyIsLocalAndSaysSo)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    cBareException original;
    original.setRemoteInfo(ncs::cComponentLocation("1:7-1@a"));
    cBareException assigned;
    std::optional<cBareException> copy;
    auto const before = ntest::cFailingMemory::inUse();
    unsigned int local = 0;
    auto const check = [&] {
        ASSERT_TRUE(copy.has_value()) << "the failure has escaped";
        for (auto const* e : {&*copy, &assigned}) {
            EXPECT_NE(e->isRemote(), e->outOfMemoryCondition());
            local += !e->isRemote();
        }
        copy.reset();
        assigned = cBareException();
        EXPECT_EQ(ntest::cFailingMemory::inUse(), before);
    };
    ntest::failEachRequest([&] { copy.emplace(original), assigned = original; }, check);
    EXPECT_GE(local, 2u);
}

// Makes, copies and destroys a chain of 2^13 exceptions.
void* useLongChain(void* length)
{
    cBugException error(message("x"));
    for (int doubled = 0; doubled < 13; ++doubled)
        error.link(error.createObject());
    for (cAbstractException const* e = &error; e; e = e->history())
        ++*static_cast<unsigned int*>(length);
    return nullptr;
}

TEST_F(cAbstractExceptionTest, aChainMayBeLongerThanTheStackIsDeep)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    pthread_t thread;
    unsigned int length = 0;
    ASSERT_EQ(pthread_create(&thread, &attributes, &useLongChain, &length), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(length, 1u << 13);
}

class cFactory : public ntest::tNamedExceptions<cBugException, cRuntimeException, cBareException> {
public:
    nstd::tAutoPtr<cAbstractException> createException(nstd::cAsciiString const& name) const override
    {
        static cBareException shared("shared");
        if (name == "cRefused")
            throw cRuntimeException(message("no"));
        if (name == "cShared")
            return nstd::tAutoPtr<cAbstractException>(&shared, nstd::tAutoPtrType::ptUnowned);
        return tNamedExceptions::createException(name);
    }
};

std::string stored(char const* name, unsigned int type, std::string const& rest, bool outOfMemory = false)
{
    return ntest::boolean(true) + ntest::ascii(name) + ntest::number(type) + ntest::boolean(outOfMemory)
           + rest;
}

nstd::tAutoPtr<cAbstractException> readFrom(std::string const& bytes)
{
    return ntest::read(bytes,
                       [](auto& source) { return cAbstractException::createFromStream(source, cFactory()); });
}

std::string storedChain()
{
    return stored("cBugException", 0, ntest::message("A", 0, ""))
           + stored("cRuntimeException", 1, ntest::message("B", 0, "")) + stored("cBareException", 1, "")
           + stored("cBugException", 0, ntest::message("C", 0, "")) + ntest::boolean(false);
}

TEST_F(cAbstractExceptionTest, aChainIsStoredAndRebuilt)
{
    cBugException error(message("A"));
    error.link(cRuntimeException(message("B")));
    error.link(cBareException());
    error.link(cBugException(message("C")));
    ntest::cDebugRecorder recorder;
    EXPECT_EQ(ntest::written([&](auto& target) { error.storeRecursive(target); }), storedChain());
    EXPECT_EQ(recorder.count("cAbstractException::storeRecursive"), 1u);

    auto const rebuilt = readFrom(storedChain());
    ASSERT_TRUE(rebuilt);
    ASSERT_EQ(namesOf(*rebuilt), "A B bare C ");
    EXPECT_EQ(rebuilt->type(), cAbstractException::tyBug);
    EXPECT_EQ(rebuilt->history()->type(), cAbstractException::tyRuntime);
    EXPECT_FALSE(readFrom(ntest::boolean(false)));

    nstd::cOutOfBoundsException const leaf("tX", "at");
    EXPECT_NE(ntest::written([&](auto& target) { leaf.store(target); }).find("cOutOfBoundsException"),
              std::string::npos);
}

TEST_F(cAbstractExceptionTest, whatCannotBeRebuiltEndsTheChain)
{
    auto const a = stored("cBugException", 7, ntest::message("A", 0, ""), true);
    struct {
        std::string bytes, names;
    } const rows[] = {
        {a + stored("cAlien", 0, a), "A Unknown exception type cAlien! "},
        {stored("", 0, a), "Unknown exception type ! "},
        {a + stored("cRefused", 0, a), "A Unknown exception type cRefused! "},
        {stored("cShared", 1, "") + stored("cShared", 1, "") + stored("", 0, ""),
         "shared shared Unknown exception type ! "},
        {a + stored("cBugException", 0, ntest::number(1) + a), "A Unknown exception type cBugException! "},
        {ntest::boolean(true) + ntest::ascii("cBareException") + a,
         "Unknown exception type cBareException! "},
    };
    for (auto const& row : rows) {
        auto const rebuilt = readFrom(row.bytes);
        ASSERT_TRUE(rebuilt);
        EXPECT_EQ(namesOf(*rebuilt), row.names);
        EXPECT_EQ(rebuilt->type(), cAbstractException::tyRuntime);
        EXPECT_EQ(rebuilt->outOfMemoryCondition(), row.names[0] == 'A');
    }
}

TEST_F(cAbstractExceptionTest, aCutChainRaisesOrEndsWithTheClassThatWasCut)
{
    auto const whole = storedChain();
    unsigned int raised = 0;
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        try {
            auto const names = namesOf(*readFrom(whole.substr(0, cut)));
            EXPECT_EQ(names.substr(names.rfind("Unknown"), 24), "Unknown exception type c") << cut;
        } catch (cAbstractException const&) {
            ++raised;
        }
    }
    EXPECT_EQ(raised, 5 * 8 + 4 * 8 + 13 + 17 + 14 + 13u) << "the bools and the names";
}

TEST_F(cAbstractExceptionTest, aChainIsRebuiltWhollyOrWithoutLoss)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    auto const bytes = storedChain();
    nstd::tAutoPtr<cAbstractException> rebuilt;
    namesOf(*readFrom(bytes)); // takes what is taken once in a process
    auto const before = ntest::cFailingMemory::inUse();
    auto const read = [&] { rebuilt = readFrom(bytes); };
    auto const check = [&] {
        EXPECT_EQ(rebuilt ? namesOf(*rebuilt) : "A B bare C ", "A B bare C ");
        rebuilt.reset(nullptr, nstd::tAutoPtrType::ptObject);
        EXPECT_EQ(ntest::cFailingMemory::inUse(), before);
    };
    EXPECT_GT(ntest::failEachRequest(read, check), 10u);
}

TEST_F(cAbstractExceptionTest, aLongChainIsRebuilt)
{
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += stored("cBareException", 1, "");
    auto const rebuilt = readFrom(bytes + ntest::boolean(false));
    unsigned int length = 0;
    for (cAbstractException const* e = rebuilt.get(); e; e = e->history())
        ++length;
    EXPECT_EQ(length, 100000u);
}

TEST_F(cAbstractExceptionTest, theEnvironmentAsksForATraceOfEveryException)
{
    cEntryRecorder recorder;
    for (auto const* value : {"dumb", "dump"}) {
        cEnvironment const environment(value);
        cBugException const error;
        cBugException const copy(error);
    }
    ASSERT_EQ(recorder.entries.size(), 1u);
    EXPECT_EQ(recorder.entries[0].find("nel_core/std/cAbstractException:"), 0u);
    EXPECT_NE(recorder.entries[0].find(" \r\n\r\n"), std::string::npos);
}

TEST_F(cAbstractExceptionTest, rangeErrorsAndAssertionsLeaveATrace)
{
    cEntryRecorder recorder;
    ntest::raisedBy<nstd::cOutOfRangeException>(
        [] { cSTDExceptions::throwOutOfRange("tX", "at", cSTDExceptions::ortIndex, 1, 0, 0); });
    ntest::raisedBy<cBugException>([] { cSTDExceptions::throwAssertionFailed("a", "b", 1); });
    ntest::raisedBy<nstd::cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tX", "at"); });

    ASSERT_EQ(recorder.entries.size(), 2u);
    EXPECT_EQ(recorder.entries[0].find("nel_core/std/cSTDExceptions:64 \r\n\r\n"), 0u);
    EXPECT_EQ(recorder.entries[1].find("nel_core/std/cSTDExceptions:26 \r\n\r\n"), 0u);
}

TEST_F(cAbstractExceptionTest, anOutputThatFailsDoesNotReplaceTheError)
{
    class cFullOutput : public cEntryRecorder {
        void printChar(char) override
        {
            cSTDExceptions::throwOutOfRange("cFullOutput", "printChar", cSTDExceptions::ortSize, 1, 0, 0);
        }
    } output;
    cEnvironment const environment("dump");
    auto const error = ntest::raisedBy<nstd::cOutOfRangeException>(
        [] { cSTDExceptions::throwOutOfRange("tX", "at", cSTDExceptions::ortIndex, 1, 0, 0); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->container(), "tX");
}

TEST_F(cAbstractExceptionTest, theEnvironmentAsksForABreakPoint)
{
    cEnvironment const environment("break");
    EXPECT_EXIT(cBugException(), testing::KilledBySignal(SIGTRAP), "");
}

} // namespace
