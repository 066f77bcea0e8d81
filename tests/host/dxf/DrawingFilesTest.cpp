#include "../DrawingFolder.h"

#include <algorithm>

// Behind <filesystem>, whose paths would be Windows' own behind <windows.h>.
#include "GroupTexts.h"

using namespace dxf;
using namespace dxftest;

namespace
{
namespace fs = std::filesystem;

/// A drawing of the folder "damaged" may have the name of a sound one.
std::string nameInFolder(const testing::TestParamInfo<fs::path>& info)
{
    return info.param.empty() ? "none" : asTestName(info.param.lexically_relative(sharedFolder()).string());
}

class DrawingFiles : public testing::TestWithParam<fs::path>
{
protected:
    void SetUp() override
    {
        if (GetParam().empty()) GTEST_SKIP() << "no drawings in " << sharedFolder();
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

INSTANTIATE_TEST_SUITE_P(Shared, DrawingFiles, testing::ValuesIn(drawingsIn({sharedFolder(), sharedFolder() / "damaged"})),
                         nameInFolder);
