// DrawingFuzz COUNT SEED DRAWING...: opens damaged copies of drawings, saves what was opened and opens that again. Exit
// status 1 when a copy takes more than 5 seconds of the processor, or a saved drawing cannot be opened; 2 when memory passes 1 GB.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/resource.h>

#include "AsciiWriter.h"
#include "BinaryWriter.h"
#include "DrawingFile.h"
#include "DrawingWriter.h"
#include "Mutations.h"
#include "dbdatabase.h"

#include <ctime>

using namespace dxf;

namespace
{
struct Outcome {
    int opened = 0, refused = 0, repaired = 0;
};

std::string saved(AcDbDatabase& database, bool isBinary)
{
    MemorySink sink;
    if (isBinary) {
        BinaryWriter writer(sink, TextEncoding(), true);
        DrawingWriter(database, writer, FileVersion::r2018).write();
        writer.finish();
    } else {
        AsciiWriter writer(sink, TextEncoding());
        DrawingWriter(database, writer, FileVersion::r2018).write();
        writer.finish();
    }
    return sink.bytes();
}

Acad::ErrorStatus read(AcDbDatabase& database, const std::string& bytes, RepairReport& report)
{
    return readDrawing(database, openDrawing(Input::ofBytes(bytes)), report);
}

/// False when the copy was opened and what was saved of it cannot be.
bool survives(const std::string& bytes, Outcome& outcome)
{
    AcDbDatabase database(false), again(false);
    RepairReport report, second;
    if (read(database, bytes, report) != Acad::eOk) {
        ++outcome.refused;
        return true;
    }
    ++outcome.opened;
    outcome.repaired += !report.isEmpty();
    return read(again, saved(database, false), second) == Acad::eOk;
}

std::vector<std::string> drawingsOf(int count, char** paths)
{
    std::vector<std::string> drawings;
    for (int i = 0; i < count; ++i) {
        std::ifstream file(paths[i], std::ios::binary);
        drawings.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        AcDbDatabase database(false);
        RepairReport report;
        if (read(database, drawings.back(), report) == Acad::eOk) drawings.push_back(saved(database, true));
    }
    return drawings;
}

long peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// True when the damaged copy did no harm; tells of it otherwise.
bool passes(int number, std::string bytes, dxftest::Random& random, Outcome& outcome)
{
    for (auto i = 1 + random() % 3; i > 0; --i) dxftest::mutate(bytes, random);
    const std::clock_t start = std::clock(); // of the processor: others may use it as well
    const bool isGood = survives(bytes, outcome);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    if (isGood && seconds <= 5.0) return true;
    std::printf("copy %d: %s after %.1f s\n", number, isGood ? "too slow" : "what was saved cannot be opened", seconds);
    return false;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) return 1;
    const int count = std::atoi(argv[1]);
    dxftest::Random random(static_cast<unsigned>(std::atoi(argv[2])));
    const std::vector<std::string> drawings = drawingsOf(argc - 3, argv + 3);
    Outcome outcome;
    bool isGood = true;
    for (int i = 0; i < count; ++i) {
        isGood &= passes(i, drawings[static_cast<std::size_t>(i) % drawings.size()], random, outcome);
    }
    std::printf("%d copies: %d opened (%d repaired), %d refused, %ld MB at most\n", count, outcome.opened,
                outcome.repaired, outcome.refused, peakMegabytes());
    if (peakMegabytes() > 1024) return 2;
    return isGood ? 0 : 1;
}
