/// U, UNDO, REDO and MREDO.

#include "acedinput.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "Documents.h"
#include "Faults.h"
#include "UndoRecording.h"

#include <climits>

namespace
{
UndoHistory& history()
{
    return undo::historyOf(*documents::current()->database);
}

/// Writes the names of what is gone over in one line; of a group only that it is one.
class Names
{
public:
    explicit Names(UndoEntry::Kind startOfGroup) : mStartOfGroup(startOfGroup) {}
    ~Names()
    {
        if (!mLine.empty()) ed::print(mLine + L"\n");
    }
    Names(const Names&) = delete;
    Names& operator=(const Names&) = delete;

    void operator()(const UndoEntry& entry)
    {
        const bool isStep = entry.kind == UndoEntry::Kind::step;
        if (entry.kind == UndoEntry::Kind::mark)
            add(L"Mark encountered");
        else if (isStep && !mIsInGroup)
            add(entry.name.IsEmpty() ? L"Change" : entry.name.GetString());
        else if (entry.kind == mStartOfGroup)
            add(L"GROUP");
        if (!isStep) mIsInGroup = entry.kind == mStartOfGroup;
    }

private:
    void add(const std::wstring& name) { mLine += mLine.empty() ? name : L" " + name; }

    UndoEntry::Kind mStartOfGroup; ///< the end that is met first
    bool mIsInGroup = false;
    std::wstring mLine;
};

/// Whether undo is possible now; says why it is not.
bool mayUndo()
{
    if (history().journal().isHeld()) {
        ed::fail(L"A transaction is active.");
        return false;
    }
    if (!history().journal().isEnabled()) ed::fail(L"Undo is turned off.  Use UNDO to turn it on.");
    return history().journal().isEnabled();
}

void tellModified()
{
    constexpr int objectsChanged = 1; // the bit of DBMOD
    documents::current()->dbmod |= objectsChanged;
}

void undoSteps(int count)
{
    int undone = 0;
    {
        Names names(UndoEntry::Kind::groupEnd);
        undone = history().undo(count, [&](const UndoEntry& entry) { names(entry); });
    }
    if (undone > 0) tellModified();
    if (undone < count) ed::print(L"Everything has been undone\n");
}

void redoSteps(int count)
{
    if (!mayUndo()) return;
    Names names(UndoEntry::Kind::groupBegin);
    if (history().redo(count, [&](const UndoEntry& entry) { names(entry); }))
        tellModified();
    else
        ed::print(L"Nothing to redo\n");
}

void undoToMark()
{
    const bool hasMark = history().marks() > 0;
    if (!hasMark && commands::askKeyword(L"This will undo everything. OK? [Yes/No] <Y>: ", L"Yes No", L"Yes") != L"Yes")
        return;
    {
        Names names(UndoEntry::Kind::groupEnd);
        history().undoToMark([&](const UndoEntry& entry) { names(entry); });
    }
    tellModified();
    if (!hasMark) ed::print(L"Everything has been undone\n");
}

void endGroup()
{
    if (!history().endGroup()) ed::print(L"No group is open.\n");
}

const wchar_t* yesOrNo(bool yes)
{
    return yes ? L"Yes" : L"No";
}

std::wstring settings()
{
    const ed::UndoControl& own = documents::current()->undo;
    const wchar_t* control = !history().journal().isEnabled() ? L"None" : history().keepsOnlyOne() ? L"One" : L"All";
    return std::wstring(L"Current settings: Auto = ") + (own.groupsMacros ? L"On" : L"Off") +
           L", Control = " + control + L", Combine = " + yesOrNo(history().combinesViews()) + L", Layer = " +
           yesOrNo(own.combinesLayers) + L"\n";
}

void askAuto()
{
    bool& on = documents::current()->undo.groupsMacros;
    const std::wstring now = on ? L"ON" : L"OFF";
    const auto answer = commands::askKeyword(L"Enter UNDO Auto mode [ON/OFF] <" + now + L">: ", L"ON OFF", now);
    if (answer) on = *answer == L"ON";
}

bool askYes(const wchar_t* question, bool now)
{
    const std::wstring word = yesOrNo(now);
    const auto answer = commands::askKeyword(question + (L" [Yes/No] <" + word + L">: "), L"Yes No", word);
    return answer ? *answer == L"Yes" : now;
}

void switchUndo(bool on, bool onlyOne)
{
    history().journal().enable(on);
    history().setKeepsOnlyOne(onlyOne);
    if (!on) history().clear();
}

void askControl()
{
    const auto answer = commands::askKeyword(
        L"Enter an UNDO control option [All/None/One/Combine/Layer] <All>: ", L"All None One Combine Layer", L"All");
    if (answer == L"Combine")
        history().setCombinesViews(askYes(L"Combine zoom and pan operations?", history().combinesViews()));
    else if (answer == L"Layer")
        documents::current()->undo.combinesLayers =
            askYes(L"Combine layer property changes?", documents::current()->undo.combinesLayers);
    else if (answer)
        switchUndo(*answer != L"None", *answer == L"One");
}

void obey(const std::wstring& word)
{
    if (word == L"Auto")
        askAuto();
    else if (word == L"Control")
        askControl();
    else if (word == L"BEgin")
        history().beginGroup();
    else if (word == L"End")
        endGroup();
    else if (word == L"Mark")
        history().addMark();
    else if (word == L"Back")
        undoToMark();
}

void askWhatToUndo()
{
    int count = 1;
    wchar_t word[20];
    acedInitGet(RSG_NOZERO | RSG_NONEG, L"Auto Control BEgin End Mark Back");
    const int code = acedGetInt(
        L"Enter the number of operations to undo or [Auto/Control/BEgin/End/Mark/Back] <1>: ", &count);
    if (code == RTKWORD && acedGetInput(word) == RTNORM) obey(word);
    if (code == RTNORM || code == RTNONE) undoSteps(count);
}

void u()
{
    if (mayUndo()) undoSteps(1);
}

void undoByOption()
{
    if (!history().journal().isEnabled()) return askControl();
    if (!mayUndo()) return;
    ed::print(settings());
    askWhatToUndo();
}

void redo()
{
    redoSteps(1);
}

void mredo()
{
    int count = 1;
    wchar_t word[20];
    acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, L"All Last");
    const int code = acedGetInt(L"Enter number of actions or [All/Last]: ", &count);
    if (code == RTKWORD && acedGetInput(word) == RTNORM) redoSteps(word[0] == L'A' ? INT_MAX : 1);
    if (code == RTNORM) redoSteps(count);
}

constexpr Adesk::Int32 flags = ACRX_CMD_MODAL | ACRX_CMD_NO_UNDO_MARKER;

[[maybe_unused]] const bool added = commands::add({
    {L"U", L"", flags, u, L"Takes back the last step"},
    {L"UNDO", L"", flags, undoByOption, L"Takes back steps by number, group or mark"},
    {L"REDO", L"", flags, redo, L"Does again what the last U or UNDO took back"},
    {L"MREDO", L"", flags, mredo, L"Does again what several of U and UNDO took back"},
});
} // namespace
