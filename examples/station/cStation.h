#pragma once

#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ucs/cString.h"

/// The application: loads its modules, lets them work, takes a sensor away, and unloads everything.
class cStation {
public:
    /// Loads the modules from the directory `modules`; `file` is what the first sensor reads. Raises what
    /// loading raises.
    cStation(nucs::cString const& modules, nucs::cString const& file);
    cStation(cStation const&) = delete;
    cStation& operator=(cStation const&) = delete;
    ~cStation();

    /// Runs the main loop until the values of both sensors have been checked, and shows what happens. Raises
    /// what no handler has taken.
    void run();
    /// Removes the components, the codec, and the shared objects of all of them.
    void unload();

private:
    ncs::cAbstractComponent& load(char const* module, char const* name, nsa::cReferenceFrame& frame);
    void loadSensor(char const* name, nucs::cString file);
    nucs::cString pathOf(char const* module) const;
    void awaitValues(unsigned int count);
    unsigned int checkedValues() const;
    void showComponents() const;

    nucs::cString msModules;
    ncs::cModuleMgr mManager;
};
