#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace ntest {

/// A test with a system object and a directory for files of its own.
class cTranslationFiles : public cSystemFixture {
protected:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        char name[] = "/tmp/nel_translations_XXXXXX";
        ASSERT_NE(::mkdtemp(name), nullptr);
        mDirectory = name;
    }
    void TearDown() override
    {
        std::filesystem::remove_all(mDirectory);
        cSystemFixture::TearDown();
    }

    nucs::cString path(std::string const& name) const { return (mDirectory / name).c_str(); }
    /// Writes a file and gives its path.
    nucs::cString write(std::string const& name, std::string const& text) const
    {
        std::ofstream(mDirectory / name, std::ios::binary) << text;
        return path(name);
    }
    /// The messages of an exception and of what led to it, each followed by a line feed, with the directory
    /// as "DIR".
    std::string chainOf(nstd::cAbstractException const& error) const
    {
        std::string chain;
        for (auto const* member = &error; member; member = member->history())
            chain += messageOf(*member) + "\n";
        std::string const directory = mDirectory;
        for (auto at = chain.find(directory); at != std::string::npos; at = chain.find(directory))
            chain.replace(at, directory.size(), "DIR");
        return chain;
    }
    template<typename Callable>
    std::string chainRaised(Callable&& callable) const
    {
        auto const error = raisedBy<nstd::cRuntimeException>(callable);
        return error ? chainOf(*error) : "";
    }

    std::filesystem::path mDirectory;
};

} // namespace ntest
