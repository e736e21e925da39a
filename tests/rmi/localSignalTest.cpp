#include "nel_core/rmi/localSignal.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/rmi/cUnconnectedSignalException.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

struct cFailure { };

class cStage;

// Notes its name when called, and then does what the test wants of it, once.
class cActor : public nrmi::cConnectable {
public:
    cActor(cStage& stage, char name) : mStage(stage), mcName(name) { }

    piVoid sltCalled();

    cStage& mStage;
    char const mcName;
    std::function<void(cStage&)> mAction;
};

// Actors named by letters, a signal that the first ones are connected to, and a note of who was called.
class cStage {
public:
    explicit cStage(std::string const& connected)
    {
        mpSignal->setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
        for (char const name : connected)
            connect(name);
    }

    cActor& actor(char name)
    {
        auto& found = mActors[name];
        if (!found)
            found = std::make_unique<cActor>(*this, name);
        return *found;
    }
    void connect(char name, nrmi::cAbstractSignal::ConnectionPolicy policy = nrmi::cAbstractSignal::cpAppend)
    {
        mpSignal->connect(nrmi::slot(&actor(name), &cActor::sltCalled), policy);
    }
    void prepend(char name) { connect(name, nrmi::cAbstractSignal::cpPrepend); }
    void disconnect(char name) { mpSignal->disconnect(actor(name)); }
    void disconnectAll()
    {
        for (auto const& entry : mActors)
            mpSignal->disconnect(*entry.second);
    }
    void destroy(char name) { mActors.erase(name); }
    void emit() { (*mpSignal)(); }

    std::string emitted()
    {
        msLog.clear();
        emit();
        return msLog;
    }

    std::unique_ptr<nrmi::localSignal0<piVoid>> mpSignal = std::make_unique<nrmi::localSignal0<piVoid>>();
    std::map<char, std::unique_ptr<cActor>> mActors;
    std::string msLog;
    std::function<void(char)> mOnCall; ///< after every call of an actor
};

piVoid cActor::sltCalled()
{
    cStage& stage = mStage;
    char const name = mcName;
    stage.msLog += name;
    auto const action = std::exchange(mAction, nullptr);
    if (action)
        action(stage); // the actor may be gone now
    if (stage.mOnCall)
        stage.mOnCall(name);
    return piVoid();
}

struct cScene {
    char const* name;
    char actor;
    void (*action)(cStage&);
    char const* during;
    char const* after;
};

void emitAndCatch(cStage& s)
{
    EXPECT_THROW(s.emit(), cFailure);
}

// A, B, C and D are connected; `actor` acts when it is first called.
cScene const kScenes[] = {
    {"two earlier ones go", 'C', [](cStage& s) { s.disconnect('A'), s.disconnect('B'); }, "ABCD", "CD"},
    {"the next one goes", 'A', [](cStage& s) { s.disconnect('B'); }, "ACD", "ACD"},
    {"the running one goes", 'B', [](cStage& s) { s.disconnect('B'); }, "ABCD", "ACD"},
    {"all go and one comes", 'B', [](cStage& s) { s.disconnectAll(), s.connect('E'); }, "ABE", "E"},
    {"all go and one comes in front", 'B', [](cStage& s) { s.disconnectAll(), s.prepend('E'); }, "AB", "E"},
    {"the first one prepends", 'A', [](cStage& s) { s.prepend('E'); }, "ABCD", "EABCD"},
    {"the last one appends", 'D', [](cStage& s) { s.connect('E'); }, "ABCDE", "ABCDE"},
    {"the running object dies", 'B', [](cStage& s) { s.destroy('B'); }, "ABCD", "ACD"},
    {"nested", 'B', [](cStage& s) { s.emit(); }, "ABABCD", "ABCD"},
    {"nested, then one comes", 'B', [](cStage& s) { s.emit(), s.connect('E'); }, "ABABCDE", "ABCDE"},
    {"nested, and fails in the third one", 'B',
     [](cStage& s) { s.actor('C').mAction = [](cStage&) { throw cFailure(); }, emitAndCatch(s); }, "ABABCD",
     "ABCD"},
    {"nested, and fails in an earlier one", 'C',
     [](cStage& s) { s.actor('A').mAction = [](cStage&) { throw cFailure(); }, emitAndCatch(s); }, "ABCAD",
     "ABCD"},
    {"nested, and once more, which fails", 'B',
     [](cStage& s) {
         s.emit();
         s.actor('A').mAction = [](cStage&) { throw cFailure(); };
         emitAndCatch(s);
     },
     "ABABCDACD", "ABCD"},
};

TEST(localSignalTest, aSlotMayChangeTheRunningSignal)
{
    for (auto const& scene : kScenes) {
        SCOPED_TRACE(scene.name);
        cStage stage("ABCD");
        stage.actor(scene.actor).mAction = scene.action;
        EXPECT_EQ(stage.emitted(), scene.during);
        EXPECT_EQ(stage.emitted(), scene.after);
    }
}

// What a naive signal would keep: the calls by position, each with a mark for having been made.
struct cModel {
    struct cCall {
        char name;
        bool mark;
    };

    void begin()
    {
        for (auto& call : maCalls)
            call.mark = false;
        maNext.push_back(0);
    }
    // The next call of the innermost emission, 0 at the end.
    char take()
    {
        auto& at = maNext.back();
        while (at < maCalls.size() && maCalls[at].mark)
            ++at;
        if (at == maCalls.size())
            return 0;
        maCalls[at].mark = true;
        return maCalls[at++].name;
    }
    void prepend(char name)
    {
        maCalls.insert(maCalls.begin(), {name, false});
        for (auto& next : maNext)
            ++next;
    }
    void remove(char name)
    {
        for (auto at = maCalls.size(); at-- > 0;) {
            if (maCalls[at].name != name)
                continue;
            maCalls.erase(maCalls.begin() + static_cast<std::ptrdiff_t>(at));
            for (auto& next : maNext)
                next -= at < next ? 1 : 0;
        }
    }

    std::vector<cCall> maCalls;
    std::vector<std::size_t> maNext; ///< one of each running emission, the innermost last
};

// Lets every slot do something at random, to the signal and to the model.
class cRandomPlay {
public:
    explicit cRandomPlay(unsigned int seed) : mRandom(seed)
    {
        mStage.mOnCall = [this](char name) {
            EXPECT_EQ(mModel.take(), name);
            for (auto count = mRandom() % 3; count != 0 && miBudget != 0; --count, --miBudget)
                act();
        };
        for (char const name : {'A', 'B', 'C', 'D'})
            append(name);
    }

    void emit()
    {
        mModel.begin();
        try {
            mStage.emit();
            EXPECT_EQ(mModel.take(), 0);
        } catch (cFailure const&) {
        }
        mModel.maNext.pop_back();
    }

private:
    void append(char name) { mStage.connect(name), mModel.maCalls.push_back({name, false}); }
    void act()
    {
        auto const name = static_cast<char>('A' + mRandom() % 8);
        switch (mRandom() % 12) {
        case 0:
        case 1: return append(name);
        case 2:
        case 3: return mStage.prepend(name), mModel.prepend(name);
        case 4:
        case 5: return mStage.disconnect(name), mModel.remove(name);
        case 6:
        case 7: return mStage.destroy(name), mModel.remove(name);
        case 8: throw cFailure();
        default: return emit();
        }
    }

    std::mt19937 mRandom;
    unsigned int miBudget = 40;
    cModel mModel;
    cStage mStage{""};
};

TEST(localSignalTest, slotsMayDoAnythingAtRandom)
{
    for (unsigned int seed = 0; seed < 2000 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        cRandomPlay play(seed);
        for (int i = 0; i < 4; ++i)
            play.emit();
    }
}

using localSignalWarningTest = ntest::cSystemFixture;
char const* const kWarning = ">>>>>>>>> delete this situation in signal!";

TEST_F(localSignalWarningTest, aSlotMayDestroyTheSignal)
{
    for (bool const nested : {false, true}) {
        ntest::cDebugRecorder recorder;
        cStage stage("ABCD");
        stage.actor('C').mAction = [](cStage& s) { s.mpSignal.reset(); };
        if (nested)
            stage.actor('B').mAction = [](cStage& s) { s.emit(); };
        EXPECT_EQ(stage.emitted(), nested ? "ABABC" : "ABC");
        stage.destroy('A'); // would reach the signal if an entry of it were left
        EXPECT_EQ(recorder.count(kWarning), 1u);
        EXPECT_GT(recorder.lines().size(), 3u); // the stack trace
    }
}

TEST_F(localSignalWarningTest, aFailingSlotEndsTheEmission)
{
    ntest::cDebugRecorder recorder;
    cStage stage("ABC");
    stage.actor('B').mAction = [](cStage&) { throw cFailure(); };
    EXPECT_THROW(stage.emit(), cFailure);
    EXPECT_EQ(stage.msLog, "AB");
    EXPECT_EQ(stage.emitted(), "ABC");
    stage.mpSignal.reset(); // no emission is running any more
    EXPECT_EQ(recorder.text(), "");
}

TEST(localSignalTest, bothEndsForgetEachOther)
{
    cStage stage("ABA");
    stage.connect('A');
    nrmi::localSignal0<piVoid> other;
    other.connect(nrmi::slot(&stage.actor('A'), &cActor::sltCalled));
    EXPECT_EQ(stage.emitted(), "ABAA");
    stage.destroy('A');
    EXPECT_EQ(stage.emitted(), "B");
    EXPECT_FALSE(other.isConnected());
    stage.disconnect('A'); // not connected any more
    stage.mpSignal.reset();
    stage.destroy('B');
}

TEST(localSignalTest, anUnconnectedEmissionFailsUnlessIgnored)
{
    cStage stage("");
    cActor& actor = stage.actor('A');
    nrmi::localSignal0<piVoid> signal;
    EXPECT_EQ(signal.invocationBehavior(), nrmi::cAbstractSignal::ibThrowUnconnected);
    auto const error = ntest::raisedBy<nrmi::cUnconnectedSignalException>([&] { signal(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Call of an unconnected signal");

    nrmi::localSignal0<piVoid> ignoring;
    ignoring.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    ignoring.connect(nrmi::slot(&actor, &cActor::sltCalled));
    ignoring.swap(signal);
    EXPECT_TRUE(ignoring.isConnected());
    EXPECT_NO_THROW(signal());
    ignoring.disconnect(actor);
    EXPECT_TRUE(ntest::raisedBy<nrmi::cUnconnectedSignalException>([&] { ignoring(); }).has_value());
}

TEST(localSignalTest, slotsCannotBeConnectedByName)
{
    cStage stage("A");
    auto const error = ntest::raisedBy<nstd::cBugException>(
        [&] { stage.mpSignal->connect(stage.actor('B'), "sltCalled", nrmi::cAbstractSignal::srLazy); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Indirect connections not possible with explicit local signals!");
    EXPECT_EQ(stage.emitted(), "A");
}

// Arguments
// ---------------------------------------------------------------------------------------------

class cListener : public nrmi::cConnectable {
public:
    piVoid sltText(std::string text) { return note(text); }
    piVoid sltAnswer(std::string const& text, bool& answer)
    {
        answer = !answer;
        return note(text);
    }
    piVoid sltThree(int a, std::string const& b, char const* c) { return note(std::to_string(a) + b + c); }

    piVoid note(std::string const& text)
    {
        msTexts += text + ";";
        return piVoid();
    }

    std::string msTexts;
};

class cNamed {
public:
    virtual ~cNamed() = default;
    std::string msName = "named";
};

class cNamedListener : public cNamed, public cListener { };

TEST(localSignalTest, everySlotGetsTheArguments)
{
    cListener listener;
    nrmi::localSignal1<piVoid, std::string> one;
    one.connect(nrmi::slot(&listener, &cListener::sltText));
    one.connect(nrmi::cDirectLocalSlotCall1<cListener, piVoid, std::string>(&listener, &cListener::sltText));
    one("moved from by none");
    one.invoke("!");
    EXPECT_EQ(listener.msTexts, "moved from by none;moved from by none;!;!;");

    nrmi::localSignal2<piVoid, std::string const&, bool&> two;
    two.connect(nrmi::slot(&listener, &cListener::sltAnswer));
    bool answer = false;
    two("", answer);
    EXPECT_TRUE(answer);

    nrmi::localSignal3<piVoid, int, std::string const&, char const*> three;
    three.connect(nrmi::slot(&listener, &cListener::sltThree));
    listener.msTexts.clear();
    three.invoke(1, "b", "c");
    EXPECT_EQ(listener.msTexts, "1bc;");
}

TEST(localSignalTest, slotsMayBelongToABaseClass)
{
    cNamedListener listener;
    nrmi::localSignal1<piVoid, std::string> signal;
    signal.connect(nrmi::slot(&listener, &cListener::sltText));
    signal.connect(nrmi::slot(&listener, &cNamedListener::sltText));
    signal("text");
    EXPECT_EQ(listener.msTexts, "text;text;");
    signal.disconnect(listener);
    EXPECT_FALSE(signal.isConnected());
}

// A call of one's own
// ---------------------------------------------------------------------------------------------

class cOwnCall : public nrmi::cAbstractSlotCall0<piVoid> {
public:
    cOwnCall(cActor& actor, nrmi::cAbstractSignal* signal) : tAbstractSlotCall(actor, signal), mActor(actor)
    {
    }

    using tAbstractSlotCall::call;
    piVoid call() const override { return mActor.sltCalled(); }
    void callRef(nsa::cReferenceFrame&) const override
    {
        nrmi::cRMIExceptions::throwIndirectCallSlotCallRef();
    }
    [[nodiscard]] nrmi::cAbstractSlotCall0<piVoid>*
    createConnectedInstance(nrmi::cAbstractSignal& signal) const override
    {
        auto copy = std::make_unique<cOwnCall>(mActor, &signal);
        if (mActor.mcName == 'X')
            throw cFailure();
        return copy.release();
    }

private:
    cActor& mActor;
};

TEST(localSignalTest, aFailedConnectionChangesNothing)
{
    cStage stage("A");
    stage.mpSignal->connect(cOwnCall(stage.actor('B'), nullptr));
    stage.connect('X');
    EXPECT_THROW(stage.mpSignal->connect(cOwnCall(stage.actor('X'), nullptr)), cFailure);
    EXPECT_EQ(stage.emitted(), "ABX");
    stage.destroy('X');
    EXPECT_EQ(stage.emitted(), "AB");
}

TEST(localSignalTest, typesAsText)
{
    cStage stage("");
    cOwnCall const call(stage.actor('A'), nullptr);
    EXPECT_EQ(ntest::text(call.parametersTypeString()), "");
    EXPECT_EQ(ntest::text(call.returnTypeString()), "piVoid");
    EXPECT_EQ(ntest::text(stage.mpSignal->parametersTypeString()), "");
    EXPECT_EQ(ntest::text(stage.mpSignal->returnTypeString()), "");
}

TEST(localSignalTest, aSlotCallNeedsAnObject)
{
    auto const error = ntest::raisedBy<nstd::cBugException>(
        [] { static_cast<void>(nrmi::slot(static_cast<cListener*>(nullptr), &cListener::sltText)); });
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(ntest::messageOf(*error).find("(object != 0)"), std::string::npos);
}

} // namespace
