#include <algorithm>
#include <cstdlib>
#include <filesystem>

// Behind <filesystem>, whose paths would be Windows' own behind <windows.h>.
#include "GroupTexts.h"

using namespace dxf;
using namespace dxftest;

namespace
{
namespace fs = std::filesystem;

fs::path drawingFolder()
{
    const char* const folder = std::getenv("QM_DRAWINGS");
    return folder && *folder ? folder : QM_DRAWINGS;
}

/// The drawings of the folder and of its folder "damaged"; one empty path when there are none.
std::vector<fs::path> drawings()
{
    std::vector<fs::path> found;
    for (const fs::path& folder : {drawingFolder(), drawingFolder() / "damaged"}) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
            if (entry.path().extension() == ".dxf") found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    if (found.empty()) found.emplace_back();
    return found;
}

std::string testName(const testing::TestParamInfo<fs::path>& info)
{
    std::string name = info.param.empty() ? "none" : info.param.lexically_relative(drawingFolder()).string();
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

class DrawingFiles : public testing::TestWithParam<fs::path>
{
protected:
    void SetUp() override
    {
        if (GetParam().empty()) GTEST_SKIP() << "no drawings in " << drawingFolder();
        opened = openDrawing(GetParam().wstring());
        ASSERT_EQ(opened.status, OpenStatus::opened) << reasonOf(opened.status);
    }

    std::unique_ptr<GroupReader> reopened() const { return openDrawing(opened.reader->input()).reader; }
    Groups groups() const { return collect(*reopened()); }

    OpenedDrawing opened;
};

void expectSame(const Groups& groups, const Groups& expected)
{
    ASSERT_EQ(groups.size(), expected.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        ASSERT_EQ(groups[i], expected[i]) << "group " << i;
}

/// Reads every text decoded and encodes it again.
std::size_t countChangedTexts(GroupReader& reader)
{
    std::size_t changed = 0;
    std::wstring text;
    std::string encoded;
    while (reader.next()) {
        if (reader.group().kind() != GroupKind::text) continue;
        text.clear();
        encoded.clear();
        reader.encoding().decode(reader.group().text(), text);
        reader.encoding().encode(text, encoded);
        changed +=
            encoded != reader.group().text() && reader.group().text().find("\\U+") == std::string_view::npos;
    }
    return changed;
}
} // namespace

TEST_P(DrawingFiles, AsciiIsReadBackAsWritten)
{
    const Groups before = groups();
    ASSERT_GT(before.size(), 100u);
    expectSame(groupsOf(toAscii(*reopened())), before);
}

TEST_P(DrawingFiles, BinaryIsReadBackAsWritten)
{
    const Groups before = groups();
    for (const bool isWide : {true, false}) {
        const OpenedDrawing binary = openDrawing(Input::ofBytes(toBinary(*reopened(), isWide)));
        ASSERT_EQ(binary.status, OpenStatus::opened);
        expectSame(groupsOf(toAscii(*binary.reader)), before);
    }
}

TEST_P(DrawingFiles, DecodedTextsAreWrittenUnchanged)
{
    EXPECT_EQ(countChangedTexts(*opened.reader), 0u);
}

INSTANTIATE_TEST_SUITE_P(Shared, DrawingFiles, testing::ValuesIn(drawings()), testName);
