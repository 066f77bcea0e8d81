#include "GroupTexts.h"
#include "Mutations.h"

#include <cstdlib>

using namespace dxf;
using namespace dxftest;

namespace
{
/// Reads and writes whatever is left of the drawing and checks that what was written is read as it was.
void checkMutant(const std::string& file)
{
    const OpenedDrawing opened = openDrawing(Input::ofBytes(file));
    if (!opened.reader) return;
    dxf::MemorySink sink;
    dxf::AsciiWriter writer(sink, opened.reader->encoding());
    std::size_t groups = 0;
    while (opened.reader->next()) {
        writer.group(opened.reader->group(), opened.reader->encoding());
        opened.reader->text();
        // A group takes a byte for its code and one for its value at least.
        ASSERT_LE(++groups * 2, file.size());
    }
    writer.finish();
    // Each byte can become two digits; a number gets a code line and an extra ".0".
    ASSERT_LE(sink.bytes().size(), 8 * file.size() + 64 * groups);
    AsciiReader again(Input::ofBytes(sink.bytes()));
    std::size_t groupsAgain = 0;
    while (again.next())
        ++groupsAgain;
    ASSERT_EQ(groupsAgain, groups);
}

/// The number of mutants: QM_MUTATIONS, or 2000.
int mutantCount()
{
    const char* const text = std::getenv("QM_MUTATIONS");
    return text ? std::atoi(text) : 2000;
}
} // namespace

TEST(Mutations, DamagedFilesAreReadWithoutHarm)
{
    const std::string ascii = smallDrawing();
    const auto open = [&] { return openDrawing(Input::ofBytes(ascii)).reader; };
    const std::string files[] = {ascii, toBinary(*open(), true), toBinary(*open(), false)};
    const int count = mutantCount();
    Random random(1);
    for (int i = 0; i < count; ++i) {
        std::string file = files[i % 3];
        mutate(file, random);
        if (file.empty()) continue;
        SCOPED_TRACE(i);
        ASSERT_NO_FATAL_FAILURE(checkMutant(file));
    }
}
