#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/io/cDir.h"
#include "nel_core/io/cFile.h"
#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cMemoryFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cOSErrorException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace ntest {

using tFsPtr = nstd::tAutoPtr<nio::cAbstractFsImpl>;

/// A file system with an empty directory, which is removed behind the test.
class cFsFixture : public cSystemFixture {
protected:
    enum Kind { native, memory };

    void setUp(Kind kind)
    {
        cSystemFixture::SetUp();
        meKind = kind;
        if (kind == memory) {
            fs().bind(tFsPtr(new nio::cMemoryFs(fs(), "/memory/")));
            msRoot = "/memory/";
        } else {
            std::string name = testing::TempDir() + "nel_fs_XXXXXX";
            ASSERT_NE(::mkdtemp(name.data()), nullptr);
            msRoot = name + "/";
        }
    }

    void TearDown() override
    {
        if (meKind == native) {
            fs().removeRecursive(path(""), false);
            EXPECT_FALSE(fs().exists(path(""), false));
        }
        cSystemFixture::TearDown();
    }

    static nio::cFs& fs() { return npi::system().fs; }
    nucs::cString path(std::string const& name) const { return nucs::cString((msRoot + name).c_str()); }

    void write(std::string const& name, std::string const& bytes = "x") const
    {
        auto file = fs().openFile(path(name), nio::omWrite, nio::cmCreate, nio::wmTruncate);
        ASSERT_EQ(file.write(bytes.data(), bytes.size()), bytes.size());
        file.close();
    }

    std::string read(std::string const& name) const
    {
        auto file = fs().fileOpenRead(path(name));
        std::string bytes(static_cast<std::size_t>(file.size()), '\0');
        EXPECT_EQ(file.read(bytes.data(), bytes.size()), bytes.size());
        return bytes;
    }

    /// All that is below the directory: names with "/" for directories and "=bytes" for files, sorted.
    std::string tree(std::string const& name = "") const
    {
        std::vector<std::string> found;
        for (auto const& entry : fs().openDir(path(name), 3)) {
            auto const below = text(entry.fullPath()).substr(msRoot.size());
            auto const type = fs().fileInfo(entry.fullPath()).type(false);
            if (type == nio::cFileInfoFlags::ftDir)
                found.push_back(below + "/ " + tree(below + "/"));
            else
                found.push_back(below + (type == nio::cFileInfoFlags::ftFile ? "=" + read(below) : "@")
                                + " ");
        }
        std::sort(found.begin(), found.end());
        std::string all;
        for (auto const& one : found)
            all += one;
        return all;
    }

    template<typename Call>
    void expectOSError(Call&& call, char const* operation, int code, std::string const& name) const
    {
        auto const error = raisedBy<nstd::cOSErrorException>(call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->operation(), operation);
        EXPECT_EQ(error->osErrorCode(), code);
        EXPECT_EQ(text(error->file()), msRoot + name);
    }

    template<typename Call>
    static void expectOSErrorCode(Call&& call, char const* operation, int code)
    {
        auto const error = raisedBy<nstd::cOSErrorException>(call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->operation(), operation);
        EXPECT_EQ(error->osErrorCode(), code);
    }

    Kind meKind = native;
    std::string msRoot; ///< ends with "/"
};

} // namespace ntest
