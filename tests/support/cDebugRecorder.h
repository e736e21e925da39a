#pragma once

#include <string>
#include <vector>

#include "nel_core/pi/cAbstractOut.h"

namespace ntest {

/// Takes the place of standard error behind the system's debug output while it lives, and keeps the lines.
class cDebugRecorder : public npi::cAbstractOut {
public:
    /// Links the system's debug output to this one.
    cDebugRecorder();
    /// Ends the link.
    ~cDebugRecorder() override;

    void printChar(char c) override;

    /// The finished lines without line ends.
    std::vector<std::string> const& lines() const { return maLines; }
    /// The source file of each line, empty outside an entry.
    std::vector<std::string> const& files() const { return maFiles; }
    /// The lines, each followed by a line feed.
    std::string text() const;
    /// How many lines contain `part`.
    unsigned int count(std::string const& part) const;
    void clear();

private:
    std::string msLine;
    std::vector<std::string> maLines;
    std::vector<std::string> maFiles;
};

} // namespace ntest
