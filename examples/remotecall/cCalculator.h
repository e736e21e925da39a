#pragma once

#include "nel_core/rmi/cConnectable.h"
#include "nel_core/ucs/cString.h"

/// The object that is offered: it publishes its slots as "add", "upper" and "recall".
class cCalculator : public nrmi::cConnectable {
public:
    cCalculator();
    ~cCalculator() override;

    /// The sum; it has room for that of any two numbers.
    long long sltAdd(int left, int right);
    /// The text with its ASCII letters in upper case. `changed` becomes the number of letters that were not.
    nucs::cString sltUpper(nucs::cString const& text, unsigned int& changed);
    /// Fails always, with a cause that has a cause.
    int sltRecall(int cell);
};
