#pragma once

/// A drawing as the lines of its file, to be compared.

#include "dbdatabase.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace drawingtext
{
/// Where files cost no waiting for a disk: saving flushes them.
inline std::string temporaryFile()
{
    const char* const folder = std::ifstream("/dev/shm/.").good() ? "/dev/shm" : "/tmp";
    return std::string(folder) + "/drawing" + std::to_string(GetCurrentProcessId()) + ".dxf";
}

/// Without the next handle: handles are never given out again.
inline std::vector<std::string> linesOf(AcDbDatabase& database)
{
    const std::string path = temporaryFile();
    EXPECT_EQ(database.saveAs(std::wstring(path.begin(), path.end()).c_str()), Acad::eOk);
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        if (line != "$HANDSEED") continue;
        std::getline(file, line);
        std::getline(file, line);
    }
    std::remove(path.c_str());
    return lines;
}

/// Nothing when they are the same, else the first lines that differ, with some before them.
inline std::string difference(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    const auto at = std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size())),
                                  b.begin());
    if (at.first == a.end() && at.second == b.end()) return {};
    std::string text;
    const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(at.first - a.begin() - 30, 0));
    for (std::size_t i = from; i < from + 40; ++i)
        text += (i < a.size() ? a[i] : "") + " | " + (i < b.size() ? b[i] : "") + "\n";
    return text;
}
} // namespace drawingtext
