// fuzz_commands LINES SEED [UNDONE]: types random lines at the command prompt, each as a script of its own.
// Of UNDONE lines one is taken back and done again; 0, the default, is none. Exit status 1 when a line leaves
// an object open, a lock, waiting keys or result buffers, or when taking it back does not give the drawing
// back as it was; that of the crash when one crashes.

#include "CommandLines.h"
#include "CommandRunner.h"
#include "Documents.h"
#include "LiveCounts.h"
#include "ProgramEnd.h"
#include "Script.h"
#include "UndoneLine.h"

#include "CommandLine.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbobjptr.h"
#include "dbpl.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using fuzz::Random;

void type(const std::string& line)
{
    scripts::start(L"line", [line, isTyped = false](std::string& next) mutable {
        next = line;
        return !std::exchange(isTyped, true);
    });
    ed::runPending(true);
    ed::forgetEnd();
    scripts::forget();
}

/// What a line left; null when it left nothing.
const char* leftBehind()
{
    for (const AcApDocument* document : documents::all()) {
        if (live::openObjects(*document->database()) > 0) return "objects are open";
        if (document->lockMode(true) != AcAp::kNotLocked) return "a lock is left";
    }
    return nullptr;
}

void add(AcDbBlockTableRecord& block, std::initializer_list<AcDbEntity*> entities)
{
    for (AcDbEntity* entity : entities) {
        block.appendAcDbEntity(entity);
        entity->close();
    }
}

AcDbObjectId addDoor(AcDbDatabase& drawing)
{
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    block.create();
    block->setName(L"Door");
    AcDbObjectId id;
    AcDbBlockTablePointer(&drawing, AcDb::kForWrite)->add(id, block.object());
    add(*block, {new AcDbLine({0, 0, 0}, {1, 0, 0}), new AcDbArc({0, 0, 0}, 1, 0, 1.5),
                 new AcDbAttributeDefinition({0, 1, 0}, L"wood", L"KIND", L"Kind")});
    return id;
}

AcDbPolyline* newOutline()
{
    auto* outline = new AcDbPolyline;
    for (unsigned i = 0; i < 4; ++i)
        outline->addVertexAt(i, {i % 3 ? 10.0 : 0.0, i / 2 * 8.0}, i == 2 ? 0.5 : 0.0);
    outline->setClosed(true);
    return outline;
}

/// A drawing with something to change in it.
void newDrawing()
{
    acDocManager->appContextNewDocument(nullptr);
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->lockDocument(document);
    AcDbDatabase& drawing = *document->database();
    const AcDbObjectId door = addDoor(drawing);
    add(*AcDbObjectPointer<AcDbBlockTableRecord>(drawing.modelSpaceId(), AcDb::kForWrite),
        {newOutline(), new AcDbBlockReference({3, 0, 0}, door), new AcDbText({1, 1, 0}, L"room")});
    acDocManager->unlockDocument(document);
}

/// Whether copies have filled the drawing.
bool isLarge(const AcApDocument& document)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> space(document.database()->currentSpaceId());
    return space.openStatus() == Acad::eOk && space->entityIds().size() > 1000;
}

/// Lines open drawings and fill them; few of them are enough.
void keepFew()
{
    const AcApDocument* current = acDocManager->curDocument();
    if (acDocManager->documentCount() > 8 || (current && isLarge(*current))) documents::closeAll();
    if (acDocManager->documentCount() == 0) newDrawing();
}

bool tell(int number, const char* fault, const std::string& line)
{
    std::printf("line %d: %s: %s\n", number, fault, line.c_str());
    return false;
}

/// True when a line did no harm; tells of it otherwise.
bool passes(int number, const std::string& line, bool isUndone)
{
    if (!isUndone) {
        type(line);
        const char* left = leftBehind();
        return !left || tell(number, left, line);
    }
    fuzz::UndoneLine undone;
    type(line);
    const char* left = leftBehind();
    if (left) return tell(number, left, line);
    const std::string fault = undone.fault();
    return fault.empty() || tell(number, fault.c_str(), line);
}

/// Saving waits for the disk, when there is one.
fs::path memoryFolder()
{
    return fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
}

int typeAll(int count, unsigned undone, Random& random)
{
    const std::vector<std::string> commands = fuzz::commandNames();
    const char* const last = std::getenv("FUZZ_LAST"); // the file for a line that crashes
    for (int i = 0; i < count; ++i) {
        keepFew();
        const std::string line = fuzz::randomLine(random, commands);
        if (last) std::ofstream(last, std::ios::binary) << line;
        // The mark is gone, or another one, when the line undoes steps itself.
        const bool isUndone = undone && random() % undone == 0 && line.find("UNDO") == std::string::npos;
        if (!passes(i, line, isUndone)) return 1;
    }
    documents::closeAll();
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 4) return 1;
    const fs::path folder = memoryFolder() / ("fuzz-commands-" + std::to_string(getpid()));
    fs::create_directories(folder);
    fs::current_path(folder); // what lines save stays there
    std::size_t shown = 0;
    ed::setCommandLineListener([&](std::wstring_view text) { shown += text.size(); });
    ed::setTypist(scripts::nextLine);
    Random random(static_cast<unsigned>(std::atoi(argv[2])));
    const std::int64_t buffers = live::resbufs();
    const auto undone = static_cast<unsigned>(argc > 3 ? std::atoi(argv[3]) : 0);
    int status = typeAll(std::atoi(argv[1]), undone, random);
    if (live::resbufs() != buffers)
        status = 1, std::printf("%d result buffers are left\n", int(live::resbufs() - buffers));
    std::printf("%s lines, %zu characters shown\n", argv[1], shown);
    fs::current_path("/");
    fs::remove_all(folder);
    return status;
}
