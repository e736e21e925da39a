#include "nel_core/std/cAbstractException.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <pthread.h>
#include <string>
#include <vector>

#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

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
