#pragma once

/// The drawings of a folder as parameters of tests. Stands in front of all headers that bring <windows.h>,
/// behind which the paths of <filesystem> would be Windows' own.

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// Where many drawings are: QM_DRAWINGS of the environment, else the folder that the build found.
inline std::filesystem::path sharedFolder()
{
    const char* const folder = std::getenv("QM_DRAWINGS");
    return folder && *folder ? folder : QM_DRAWINGS;
}

/// The drawings of folders in the order of their paths; one empty path when there are none, for a test that
/// says so.
inline std::vector<std::filesystem::path> drawingsIn(const std::vector<std::filesystem::path>& folders)
{
    std::vector<std::filesystem::path> found;
    for (const std::filesystem::path& folder : folders) {
        std::error_code error;
        for (const std::filesystem::directory_entry& entry :
             std::filesystem::directory_iterator(folder, error))
            if (entry.path().extension() == ".dxf") found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    if (found.empty()) found.emplace_back();
    return found;
}

inline std::string asTestName(std::string name)
{
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

inline std::string testName(const testing::TestParamInfo<std::filesystem::path>& info)
{
    return info.param.empty() ? "none" : asTestName(info.param.stem().string());
}
