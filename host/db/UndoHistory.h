#pragma once

/// The steps that U takes back and REDO does again.

#include "UndoJournal.h"

#include <atlstr.h>

#include <functional>
#include <vector>

/// A step, or a mark between steps.
struct UndoEntry {
    enum class Kind { step, groupBegin, groupEnd, mark };
    Kind kind = Kind::step;
    CString name; ///< of the command
    std::vector<UndoSegment> segments;
};

/// Steps in the order in which they were done, and those that were undone, until something new is done. While a
/// transaction is active, no step begins or ends, and nothing is undone.
class UndoHistory
{
public:
    explicit UndoHistory(AcDbDatabase& database) : mJournal(database) {}

    UndoJournal& journal() { return mJournal; }

    /// What the name of an entry that is gone over is told to.
    using Told = std::function<void(const UndoEntry&)>;

    // Steps.

    /// A command begins: what was changed outside of commands before becomes a step of its own.
    void beginStep(const CString& name);
    /// The command has ended. A step that changed nothing counts all the same.
    void endStep();
    /// What has been changed outside of commands becomes a step; what follows has the name.
    void separate(const CString& name);

    // Undo. The present step ends first.

    /// Takes back up to `count` steps, groups counting as one, and marks too. Returns how many.
    int undo(int count, const Told& told);
    /// Takes back what was done since the last mark, and the mark; without marks everything.
    void undoToMark(const Told& told);
    /// Does again what the last `count` calls of undo took back; returns how many there were.
    int redo(int count, const Told& told);

    void addMark();
    /// Begins a group; one that is open ends.
    void beginGroup();
    /// False when none is open.
    bool endGroup();
    bool isGroupOpen() const { return mOpenGroups > 0; }
    int marks() const { return mMarks; }

    // Control.

    bool combinesViews() const { return mCombinesViews; }
    void setCombinesViews(bool combines) { mCombinesViews = combines; }
    bool keepsOnlyOne() const { return mKeepsOnlyOne; }
    void setKeepsOnlyOne(bool one);

    /// Forgets all steps.
    void clear();
    /// Whether a step keeps an object for which a test is true.
    bool keepsCopy(const std::function<bool(const AcDbObject&)>& test) const;

private:
    using Action = std::vector<UndoEntry>;

    void push(UndoEntry entry);
    void pushStep();
    bool joinLastView(UndoEntry& entry);
    void dropOlder();
    bool undoOnce(Action& action, const Told& told);
    void takeBack(Action& action, const Told& told);
    void count(const UndoEntry& entry, int sign);

    UndoJournal mJournal;
    CString mName, mNameOutside; ///< of the present step, and of what is changed outside of commands
    std::vector<UndoEntry> mDone;
    std::vector<Action> mUndone;
    int mOpenGroups = 0, mMarks = 0;
    bool mCombinesViews = true;
    bool mKeepsOnlyOne = false;
};
