#include "nel_core/pi/cSystem.h"

#include <gtest/gtest.h>

#include "nel_core/pi/cAbstractNELApp.h"
#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/slotCall.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/raisedBy.h"

namespace {

using npi::cSystem;

// Starts and ends without a system.
class cSystemTest : public testing::Test {
protected:
    cSystemTest() { cSystem::cleanup(); }
    ~cSystemTest() override { cSystem::cleanup(); }
};

std::string refusalOf(void (*call)())
{
    auto const error = ntest::raisedBy<nstd::cBugException>(call);
    return error ? ntest::messageOf(*error) : std::string();
}

char const* const kNoApp = "No application object set!";
char const* const kNoCleanup = "The operation \"cSystem::cleanup()\" is not supported!";

TEST_F(cSystemTest, thereIsOneSystemWithItsDefaults)
{
    auto& system = npi::system();
    EXPECT_EQ(&npi::system(), &system);
    EXPECT_EQ(system.defaults.numberFormat.base(), 10u);
    EXPECT_TRUE(system.defaults.enDec.name() == "Endec-UTF8");
    EXPECT_EQ(system.caches.hasPathFixupHash(), nullptr);
    EXPECT_EQ(&nstd::cNumberConversionFormat::getGlobalDefaultNumberConversionFormat(),
              &system.defaults.numberFormat);
    cSystem::exec(); // raises when the queue has no event processor
}

TEST_F(cSystemTest, theApplicationIsStoredOnlyInALivingSystem)
{
    cAbstractNELApp app;
    cSystem::setApp(&app);
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
    npi::system();
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
    cSystem::setApp(&app);
    EXPECT_EQ(cSystem::app(), &app);
    cSystem::cleanup();
    cSystem::exec(); // builds a new one
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
}

TEST_F(cSystemTest, cleanupIsFollowedByANewSystem)
{
    npi::system().defaults.numberFormat.setBase(16);
    npi::system().caches.createPathFixupHash()["a"] = "b";
    EXPECT_EQ(npi::system().caches.createPathFixupHash().tryFind("a"), nullptr);
    cSystem::cleanup();
    cSystem::cleanup();
    EXPECT_EQ(npi::system().defaults.numberFormat.base(), 10u);
    EXPECT_EQ(npi::system().caches.hasPathFixupHash(), nullptr);
}

// Notes what it finds in a handler and when it is destroyed.
class cObserver : public nrmi::cConnectable {
public:
    piVoid sltWork()
    {
        cleanup = refusalOf(&cSystem::cleanup);
        return piVoid();
    }
    piVoid sltDestroyed(npi::cWork const&)
    {
        sameSystem = &npi::system() == system;
        exec = refusalOf(&cSystem::exec);
        hadApp = cSystem::app() != nullptr;
        cSystem::cleanup();
        npi::cDebugEntry("tests/teardown", 9) << "number " << 42;
        npi::schedule(lateWork);
        lateWork.start(0, npi::cWork::SingleTask);
        return piVoid();
    }

    cSystem* system = &npi::system();
    npi::cWork lateWork;
    std::string cleanup, exec;
    bool sameSystem = false;
    bool hadApp = false;
};

TEST_F(cSystemTest, aHandlerCannotTakeTheSystemDown)
{
    cObserver observer;
    npi::schedule(nrmi::slot(&observer, &cObserver::sltWork), 0, "test");
    cSystem::exec();
    EXPECT_EQ(observer.cleanup, kNoCleanup);
    EXPECT_EQ(&npi::system(), observer.system);
    cSystem::cleanup();
}

TEST_F(cSystemTest, handlersOfTheTeardownFindEverythingAlive)
{
    cAbstractNELApp app;
    cObserver observer;
    cSystem::setApp(&app);
    auto work = npi::schedule(nstd::tAutoPtr<npi::cWork>(new npi::cWork));
    work->sigDestroyed().connect(nrmi::slot(&observer, &cObserver::sltDestroyed));
    work = nstd::tSharedObject<npi::cWork>();

    testing::internal::CaptureStderr();
    cSystem::cleanup();
    std::string const diagnostics = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(observer.sameSystem);
    EXPECT_TRUE(observer.hadApp);
    EXPECT_EQ(observer.exec, "The operation \"cSystem::exec()\" is not supported!");
    EXPECT_NE(diagnostics.find("teardown:9: number 42\r\n"), std::string::npos) << diagnostics;
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
}

TEST_F(cSystemTest, aDebugEntryBuildsTheSystem)
{
    testing::internal::CaptureStderr();
    npi::cDebugEntry("tests/entry", 3) << "text";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "entry:3: text\r\n");
    cAbstractNELApp app;
    cSystem::setApp(&app);
    EXPECT_EQ(cSystem::app(), &app);
}

} // namespace
