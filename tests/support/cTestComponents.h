#pragma once

#include <functional>
#include <string>

#include "nel_core/ncs/cAbstractComponent.h"

namespace ntest {

/// Where test components and interfaces write down what happens to them; may be null.
using cLog = std::string*;

/// An interface that knows what it is connected to and logs its end.
class cTestInterface : public ncs::cAbstractInterface {
public:
    using cDesc = ncs::cInterfaceDesc;

    static cDesc describe(char const* name, cDesc::InterfaceType type = cDesc::itProvided)
    {
        return cDesc(type, name, "author", 1, "description");
    }
    explicit cTestInterface(char const* name, cDesc::InterfaceType type = cDesc::itProvided,
                            cLog log = nullptr)
        : cTestInterface(describe(name, type), log)
    {
    }
    explicit cTestInterface(cDesc const& desc, cLog log = nullptr) : cAbstractInterface(desc), mpLog(log) { }
    ~cTestInterface() override
    {
        if (onDestroyed)
            onDestroyed();
        if (mpLog)
            *mpLog += "~" + std::string(std::string_view(desc().name())) + " ";
    }

    void connectInterface(ncs::cAbstractInterface& interface) override
    {
        provided = &interface;
        ++connects;
        call(onConnect);
    }
    void disconnectInterface() override
    {
        provided = nullptr;
        ++disconnects;
        call(onDisconnect);
    }

    ncs::cAbstractInterface* provided = nullptr; ///< of the last connectInterface(); null when disconnected
    unsigned int connects = 0, disconnects = 0;
    std::function<void()> onConnect, onDisconnect, onDestroyed;

private:
    // The function may delete this object.
    static void call(std::function<void()> function)
    {
        if (function)
            function();
    }

    cLog mpLog;
};

/// A component that answers as it is told and logs "+name" when it is announced, "!name" for a shutdown that
/// comes, "?name" when it is asked about closing, and "~name" when it dies.
class cTestComponent : public ncs::cAbstractComponent {
public:
    /// The name becomes the context of info() too.
    explicit cTestComponent(ncs::cModuleMgr& manager, char const* name = "component", cLog log = nullptr)
        : cAbstractComponent(manager),
          msName(name),
          mpLog(log)
    {
        info().setContext(name);
    }
    ~cTestComponent() override
    {
        write('~');
        if (onDestroyed)
            onDestroyed();
    }

    unsigned int fixedModuleID() const override { return fixedID; }
    bool isLocal() const override { return local; }
    bool delayAnnouncement() const override { return delay; }
    void notifyComponentRegistered() override
    {
        write('+');
        auto const function = onRegistered; // may delete this component
        if (function)
            function();
    }
    void notifyShortlyRemove() override { write('!'); }
    bool applicationCloseAdvisable(cAbstractNELApp&) override
    {
        write('?');
        return closable;
    }

    unsigned int fixedID = 0;
    bool local = true, delay = false, closable = true;
    std::function<void()> onRegistered, onDestroyed;

private:
    void write(char event) const
    {
        if (mpLog)
            *mpLog += event + msName + " ";
    }

    std::string const msName;
    cLog const mpLog;
};

} // namespace ntest
