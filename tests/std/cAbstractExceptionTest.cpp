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
    enum Way { plain, memory, other, ownHistory, byAssignment, failInside };

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
        auto* const copy = meWay == byAssignment ? new cBareException : new cBareException(*this);
        if (meWay == byAssignment)
            *copy = *this;
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
    struct cEntry {
        std::string file;
        unsigned int line;
        std::string text;
    };

    cEntryRecorder() { npi::system().debug.link(this); }
    ~cEntryRecorder() override { npi::system().debug.link(nullptr); }
    void printChar(char c) override { entries.back().text += c; }
    npi::cAbstractOut& debugMessage(char const* file, unsigned int line) override
    {
        entries.push_back({file, line, {}});
        return cAbstractOut::debugMessage(file, line);
    }

    std::vector<cEntry> entries;
};

class cEnvironment {
public:
    explicit cEnvironment(char const* value) { ::setenv("NE", value, 1); }
    ~cEnvironment() { ::unsetenv("NE"); }
};

class cAbstractExceptionTest : public ntest::cSystemFixture { };

TEST_F(cAbstractExceptionTest, theSourcePositionIsKeptUpToSixtyCharacters)
{
    std::string const eighty(80, 'f');
    struct {
        char const* name;
        char const* file;
        std::string kept;
    } const rows[] = {
        {"none", nullptr, ""},
        {"empty", "", ""},
        {"short", "a.cpp", "a.cpp"},
        {"fits", eighty.c_str() + 20, eighty.substr(20)},
        {"one too long", eighty.c_str() + 19, eighty.substr(20)},
        {"long", eighty.c_str(), eighty.substr(20)},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cBugException const error(message("x"), row.file, 42);
        EXPECT_EQ(error.sourceFileName(), row.kept);
        EXPECT_EQ(error.sourceFileLine(), 42u);
    }
    EXPECT_STREQ(cRuntimeException().sourceFileName(), "unknown");
    EXPECT_EQ(cBareException(std::string(300, 'k').c_str()).what(), std::string(255, 'k'));
}

TEST_F(cAbstractExceptionTest, kindsDifferInWordAndType)
{
    EXPECT_STREQ(cBugException().what(), "bug");
    EXPECT_EQ(cBugException().type(), cAbstractException::tyBug);
    EXPECT_STREQ(cRuntimeException().what(), "runtime");
    EXPECT_EQ(cRuntimeException().type(), cAbstractException::tyRuntime);
}

TEST_F(cAbstractExceptionTest, aTraceIsCapturedEndedByZeroAndCopied)
{
    cBugException const error;
    ASSERT_NE(error.backtrace(), nullptr);
    EXPECT_EQ(error.backtrace()[63], 0u);
    EXPECT_EQ(cBugException(error).backtrace()[0], error.backtrace()[0]);
}

TEST_F(cAbstractExceptionTest, linkAppendsTheCauseAtTheEnd)
{
    auto const error = chain();
    EXPECT_EQ(namesOf(error), "A B C ");
    EXPECT_EQ(error.has("cBugException"), &error);
    EXPECT_EQ(error.has("cRuntimeException"), error.history());
    EXPECT_EQ(error.has("cAbstractException"), nullptr);
}

TEST_F(cAbstractExceptionTest, linksThatWouldCloseARingAreIgnored)
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
}

TEST_F(cAbstractExceptionTest, createMessageShowsWhatTheFlagsSay)
{
    struct {
        char const* name;
        unsigned int flags;
        char const* text;
    } const rows[] = {
        {"message alone", 0, "A"},          {"indentation needs the history", 4, "A"},
        {"history", 1, "A; B; C; bare"},    {"indented history", 5, "A;  B;   C;    bare"},
        {"unknown flags", 0xfffffffa, "A"},
    };
    auto error = chain();
    error.link(cBareException());
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        nucs::cString out("old");
        error.createMessage(out, "; ", row.flags, nullptr);
        EXPECT_EQ(ntest::text(out), row.text);
    }

    nucs::cString both("-");
    error.createMessage(both, both, cAbstractException::mfHistory, nullptr);
    EXPECT_EQ(ntest::text(both), "A-B-C-bare");
    cAbstractException::createMessage(error, both, 0, nullptr);
    EXPECT_EQ(ntest::text(both), "A-B-C-bareA") << "the static form appends";
}

TEST_F(cAbstractExceptionTest, dumpWritesOneEntryForEachException)
{
    auto error = chain();
    error.link(cBareException("word"));
    error.link(cBareException(""));
    cEntryRecorder recorder;
    error.dump();

    char const* const lines[] = {"[cBugException (bug)]: A", "[cRuntimeException (runtime)]: B",
                                 "[cRuntimeException (runtime)]: C", "[cBareException (runtime)]: word",
                                 "[cBareException (runtime)]:  --- no message ---"};
    ASSERT_EQ(recorder.entries.size(), std::size(lines));
    for (std::size_t i = 0; i < std::size(lines); ++i) {
        EXPECT_EQ(recorder.entries[i].file, "nel_core/std/cAbstractException");
        EXPECT_EQ(recorder.entries[i].text, std::string(lines[i]) + "\r\n");
    }
}

TEST_F(cAbstractExceptionTest, copiesOwnTheirChainAndMovesTakeIt)
{
    auto original = chain();
    auto const* const cause = original.history();
    cBugException copy(original);
    EXPECT_EQ(namesOf(copy), "A B C ");
    EXPECT_NE(copy.history(), cause);
    EXPECT_NE(copy.history()->history(), cause->history());

    auto const& self = copy;
    copy = self;
    EXPECT_EQ(namesOf(copy), "A B C ");

    cBugException const moved(std::move(original));
    EXPECT_EQ(moved.history(), cause);
    EXPECT_EQ(original.history(), nullptr);
}

TEST_F(cAbstractExceptionTest, anExceptionCanBecomeOneOfItsCauses)
{
    cRuntimeException error(message("A"));
    error.link(chain());
    error.link(new cRuntimeException(message("D")));
    error = static_cast<cRuntimeException&>(*error.history()->history());
    EXPECT_EQ(namesOf(error), "B C D ");
}

TEST_F(cAbstractExceptionTest, swapExchangesEverything)
{
    auto a = chain();
    cBugException b(message("Z"), "z.cpp", 9);
    a.swap(b);
    EXPECT_EQ(namesOf(a), "Z ");
    EXPECT_EQ(namesOf(b), "A B C ");
    EXPECT_STREQ(a.sourceFileName(), "z.cpp");
    EXPECT_EQ(b.sourceFileLine(), 0u);
}

TEST_F(cAbstractExceptionTest, aCopyHasTheHistoryUpToAFailure)
{
    struct {
        char const* name;
        std::vector<cBareException::Way> causes;
        std::string copied; ///< kind words of the copy
        bool own, any;      ///< out-of-memory conditions
    } const rows[] = {
        {"no history", {}, "A ", false, false},
        {"no memory for the first", {cBareException::memory}, "A ", true, true},
        {"no memory further down", {cBareException::plain, cBareException::memory}, "A bare ", false, true},
        {"another failure", {cBareException::other}, "A ", false, false},
        {"another failure before", {cBareException::plain, cBareException::other}, "A bare ", false, false},
        {"a class that makes a history",
         {cBareException::ownHistory, cBareException::plain},
         "A bare own ",
         false,
         false},
        {"a class that assigns",
         {cBareException::byAssignment, cBareException::plain},
         "A bare bare ",
         false,
         false},
        {"a class that copies a failing chain meanwhile",
         {cBareException::failInside, cBareException::plain},
         "A bare bare ",
         false,
         false},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cBugException original(message("A"));
        for (auto const way : row.causes)
            original.link(new cBareException("bare", way));
        cBugException const copy(original);
        EXPECT_EQ(namesOf(copy), row.copied);
        EXPECT_EQ(copy.outOfMemoryCondition(), row.own);
        EXPECT_EQ(copy.hasOutOfMemoryCondition(), row.any);
        EXPECT_FALSE(original.hasOutOfMemoryCondition());

        bool outOfMemory = false;
        auto* const history = original.getHistory(outOfMemory);
        EXPECT_EQ(outOfMemory, row.own);
        EXPECT_EQ(history ? namesOf(*history) : "", row.copied.substr(2));
        delete history;
    }
}

TEST_F(cAbstractExceptionTest, aCauseThatCannotBeCopiedIsNoted)
{
    auto error = chain();
    error.link(cBareException("bare", cBareException::memory));
    EXPECT_EQ(namesOf(error), "A B C ");
    EXPECT_FALSE(error.outOfMemoryCondition());
    EXPECT_TRUE(error.hasOutOfMemoryCondition());
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
    {
        cEnvironment const environment("dumb");
        cBugException const error;
    }
    EXPECT_EQ(recorder.entries.size(), 0u);
    {
        cEnvironment const environment("dump");
        cBugException const error;
        cBugException const copy(error);
    }
    ASSERT_EQ(recorder.entries.size(), 1u);
    EXPECT_EQ(recorder.entries[0].file, "nel_core/std/cAbstractException");
    EXPECT_EQ(recorder.entries[0].text.substr(0, 4), "\r\n\r\n");
    EXPECT_GT(recorder.entries[0].text.size(), 8u);
}

TEST_F(cAbstractExceptionTest, rangeErrorsAndAssertionsLeaveATrace)
{
    cEntryRecorder recorder;
    ntest::raisedBy<nstd::cOutOfRangeException>(
        [] { cSTDExceptions::throwOutOfRange("tX", "at", cSTDExceptions::ortIndex, 1, 0, 0); });
    ntest::raisedBy<cBugException>([] { cSTDExceptions::throwAssertionFailed("a", "b", 1); });
    ntest::raisedBy<nstd::cOutOfBoundsException>([] { cSTDExceptions::throwOutOfBounds("tX", "at"); });

    ASSERT_EQ(recorder.entries.size(), 2u);
    EXPECT_EQ(recorder.entries[0].line, 64u);
    EXPECT_EQ(recorder.entries[1].line, 26u);
    for (auto const& entry : recorder.entries) {
        EXPECT_EQ(entry.file, "nel_core/std/cSTDExceptions");
        EXPECT_EQ(entry.text.substr(0, 4), "\r\n\r\n");
        EXPECT_GT(entry.text.size(), 8u);
    }
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
