#include "nel_core/pi/cSystem.h"

#include <gtest/gtest.h>

#include "nel_core/io/cFs.h"
#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/nce/cGenericExtension.h"
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

TEST_F(cSystemTest, theApplicationIsStoredOnlyInALivingSystem)
{
    cAbstractNELApp app;
    cSystem::setApp(&app);
    npi::system();
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
    cSystem::setApp(&app);
    EXPECT_EQ(cSystem::app(), &app);
    cSystem::cleanup();
    cSystem::cleanup();
    cSystem::exec(); // builds a new one
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
}

char const* const kNoAdding = "The operation \"cCoreExtensionMgr::add()\" is not supported!";
using tExtension = nstd::tAutoPtr<nce::cAbstractCoreExtension>;

void addExtension()
{
    npi::system().coreExtensions.add(
        tExtension(new nce::cGenericExtension("", nce::cGenericExtension::etEnDec)));
}

// Uses the system when it goes, and tries what is refused then.
class cPartingExtension : public nce::cGenericExtension {
public:
    explicit cPartingExtension(bool teardown) : cGenericExtension("", etEnDec), mbTeardown(teardown)
    {
        npi::schedule(mWork);
    }
    ~cPartingExtension() override
    {
        npi::unschedule(mWork);
        EXPECT_TRUE(npi::system().fs.exists("/"));
        npi::cDebugEntry("tests/parting", 7) << (mbTeardown ? "down" : "cleared");
        EXPECT_EQ(refusalOf(mbTeardown ? &addExtension : &cSystem::cleanup),
                  mbTeardown ? kNoAdding : "The operation \"cSystem::cleanup()\" is not supported!");
        (mbTeardown ? &cSystem::cleanup : &addExtension)();
    }

private:
    npi::cWork mWork;
    bool mbTeardown;
};

TEST_F(cSystemTest, extensionsGoWhileEverythingElseIsThere)
{
    auto& extensions = npi::system().coreExtensions;
    testing::internal::CaptureStderr();
    extensions.add(tExtension(new cPartingExtension(false)));
    extensions.clear();
    extensions.add(tExtension(new cPartingExtension(true)));
    cSystem::cleanup();
    std::string const diagnostics = testing::internal::GetCapturedStderr();
    auto const cleared = diagnostics.find("parting:7: cleared\r\n");
    EXPECT_NE(diagnostics.find("parting:7: down\r\n", cleared), std::string::npos) << diagnostics;
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
        EXPECT_EQ(&npi::system(), system);
        exec = refusalOf(&cSystem::exec);
        EXPECT_EQ(refusalOf(&addExtension), kNoAdding);
        EXPECT_NE(cSystem::app(), nullptr);
        cSystem::cleanup();
        npi::cDebugEntry("tests/teardown", 9) << "number " << 42;
        npi::schedule(lateWork);
        lateWork.start(0, npi::cWork::SingleTask);
        return piVoid();
    }

    cSystem* system = &npi::system();
    npi::cWork lateWork;
    std::string cleanup, exec;
};

TEST_F(cSystemTest, handlersCannotTakeTheSystemDownAndThoseOfTheTeardownFindItAlive)
{
    cAbstractNELApp app;
    cObserver observer;
    cSystem::setApp(&app);
    auto work = npi::schedule(nstd::tAutoPtr<npi::cWork>(new npi::cWork));
    work->sigDestroyed().connect(nrmi::slot(&observer, &cObserver::sltDestroyed));
    work = nstd::tSharedObject<npi::cWork>();
    npi::schedule(nrmi::slot(&observer, &cObserver::sltWork), 0, "test");
    cSystem::exec();
    EXPECT_EQ(observer.cleanup, "The operation \"cSystem::cleanup()\" is not supported!");

    testing::internal::CaptureStderr();
    cSystem::cleanup();
    std::string const diagnostics = testing::internal::GetCapturedStderr();
    EXPECT_EQ(observer.exec, "The operation \"cSystem::exec()\" is not supported!");
    EXPECT_NE(diagnostics.find("teardown:9: number 42\r\n"), std::string::npos) << diagnostics;
    EXPECT_EQ(refusalOf([] { (void)cSystem::app(); }), kNoApp);
}

} // namespace
