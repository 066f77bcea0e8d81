#pragma once

/// Files that tests write, and what another program says of them. Stands in front of all headers that bring
/// <windows.h>, behind which the paths of <filesystem> would be Windows' own.

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace dxftest
{
/// A folder of its own for each test, gone afterwards.
class OutputFolder
{
public:
    OutputFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "drawings-XXXXXX").string();
        _path = mkdtemp(name.data());
    }
    ~OutputFolder() { std::filesystem::remove_all(_path); }
    std::filesystem::path file(const char* name) const { return _path / name; }

private:
    std::filesystem::path _path;
};

/// The number of errors that ezdxf's audit finds; -1 when it is not there.
inline int auditErrors(const std::filesystem::path& drawing)
{
    const std::string command =
        "/usr/bin/python3 -c \"import sys\ntry: import ezdxf\nexcept ImportError: sys.exit(125)\n"
        "sys.exit(min(len(ezdxf.readfile(sys.argv[1]).audit().errors), 124))\" '" +
        drawing.string() + "' 2>/dev/null";
    const int status = std::system(command.c_str());
    return WEXITSTATUS(status) == 125 ? -1 : WEXITSTATUS(status);
}

/// Fails the test for a drawing with faults; without ezdxf the test says that it did not ask.
inline void expectSound(const std::filesystem::path& drawing)
{
    const int errors = auditErrors(drawing);
    if (errors < 0)
        testing::Test::RecordProperty("audit", "skipped: ezdxf is not installed");
    else
        EXPECT_EQ(errors, 0) << drawing;
}
} // namespace dxftest
