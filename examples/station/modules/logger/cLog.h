#pragma once

#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cAbstractEnDec.h"

/// The interface of the logger. It publishes the slot "log"; there is nothing that it connects to.
class cLog : public ncs::cAbstractInterface {
public:
    explicit cLog(nstd::tAutoPtr<nucs::cAbstractEnDec> codec);
    ~cLog() override;

    void connectInterface(ncs::cAbstractInterface& provided) override;
    void disconnectInterface() override;

    /// Writes the line in the encoding of the codec to standard output, bytes that are no ASCII as "\xe4",
    /// and returns the number of bytes. Raises what the codec raises.
    unsigned int sltLog(nucs::cString const& line);

private:
    nstd::tAutoPtr<nucs::cAbstractEnDec> mpCodec; ///< its code may be in another module
};
