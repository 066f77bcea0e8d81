/// BOUNDARY: outlines around picked points, added to the current space.

#include "acdocman.h"
#include "acedinput.h"
#include "Ask.h"
#include "Boundary.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "CurrentUcs.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "Selection.h"
#include "Status.h"

namespace
{
struct Settings {
    std::optional<std::vector<AcDbObjectId>> candidates; ///< none: everything
    bool islands = true;
    bool asRegions = false;
};

void askCandidates(Settings& settings)
{
    const auto answer =
        commands::askKeyword(L"\nSpecify candidate set for boundary [New/Everything] <Everything>: ",
                             L"New Everything", L"Everything");
    if (answer == L"Everything") settings.candidates.reset();
    if (answer == L"New") settings.candidates = commands::selectObjects();
}

void askIslands(Settings& settings)
{
    const auto answer =
        commands::askKeyword(L"\nDo you want island detection? [Yes/No] <Y>: ", L"Yes No", L"Yes");
    if (answer) settings.islands = answer == L"Yes";
}

void askType(Settings& settings)
{
    const auto answer = commands::askKeyword(
        L"\nEnter type of boundary object [Region/Polyline] <Polyline>: ", L"Region Polyline", L"Polyline");
    if (answer) settings.asRegions = answer == L"Region";
}

void askOptions(Settings& settings)
{
    while (true) {
        const auto option =
            commands::askKeyword(L"\nEnter an option [Boundary set/Island detection/Object type]: ",
                                 L"Boundary Island Object", L"");
        if (option == L"Boundary")
            askCandidates(settings);
        else if (option == L"Island")
            askIslands(settings);
        else if (option == L"Object")
            askType(settings);
        else
            return;
    }
}

/// How many outlines were added.
int addOutlines(const AcGePoint3d& seed, const Settings& settings)
{
    const AcDbObjectId space = acDocManager->curDocument()->database()->currentSpaceId();
    auto outlines =
        boundary::around(settings.candidates ? *settings.candidates : boundary::candidatesIn(space),
                         {seed, ed::ucsToWorld(), settings.islands, settings.asRegions});
    AcDbObjectPointer<AcDbBlockTableRecord> block(space, AcDb::kForWrite);
    if (!commands::succeeds(block.openStatus())) return 0;
    int added = 0;
    for (auto& outline : outlines) {
        if (!commands::succeeds(block->appendAcDbEntity(outline.get()))) break;
        outline.release()->close();
        ++added;
    }
    return added;
}

void boundaryCommand()
{
    Settings settings;
    int total = 0;
    while (true) {
        ads_point seed;
        acedInitGet(0, L"Advanced");
        const int result = acedGetPoint(nullptr, L"\nSpecify internal point or [Advanced options]: ", seed);
        if (result != RTKWORD && result != RTNORM) break;
        if (result == RTKWORD) {
            askOptions(settings);
            continue;
        }
        const int added = addOutlines(asPnt3d(seed), settings);
        if (added == 0) ed::print(L"\nValid hatch boundary not found.");
        total += added;
    }
    const wchar_t* const kind = settings.asRegions ? L" region" : L" polyline";
    ed::print(L"\nBOUNDARY created " + std::to_wstring(total) + kind + (total == 1 ? L"\n" : L"s\n"));
}

[[maybe_unused]] const bool added = commands::add({
    {L"BOUNDARY", L"BO", ACRX_CMD_MODAL, boundaryCommand,
     L"Traces outlines around points, as polylines or regions"},
});
} // namespace
