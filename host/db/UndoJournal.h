#pragma once

/// What has been changed in a drawing, so that it can be taken back.

#include "CurrentSettings.h"
#include "HeaderVariables.h"
#include "Stub.h"
#include "UndoEdit.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

class StubTable;

/// A part of the journal. Objects that were made in it need no entry: their stubs lie in a row. What is kept of all
/// others is their state before the first change in this part.
struct UndoSegment {
    std::size_t firstStub = 0, endStub = 0;
    std::vector<std::unique_ptr<UndoEdit>> edits;
    std::vector<AcDbStub*> erasedBefore; ///< of the new ones, those that were erased already when it was undone
};

/// Records changes of one drawing into segments while recording is on. Nothing is recorded while a change is taken
/// back or done again, or while a file is read.
class UndoJournal final : public HeaderWatcher
{
public:
    explicit UndoJournal(AcDbDatabase& database) : mDatabase(database) {}
    UndoJournal(const UndoJournal&) = delete;
    UndoJournal& operator=(const UndoJournal&) = delete;

    /// Whether changes are kept for undo. Transactions hold recording on besides, for as long as they are active.
    void enable(bool on);
    bool isEnabled() const { return mIsEnabled; }
    void hold();
    void release();
    bool isHeld() const { return mHolds != 0; }

    bool isRecording() const { return mIsRecording; }
    /// The number of the segment; no two of the program have the same.
    std::uint32_t epoch() const { return mEpoch; }
    /// Whether an object was made in the present segment.
    bool isNew(const AcDbStub& stub) const { return stub.handle >= mFirstHandle; }
    void add(std::unique_ptr<UndoEdit> edit) { mSegments.back().edits.push_back(std::move(edit)); }
    void willSet(std::string_view name, const PackedGroups& value) override;

    /// Begins a new segment; the number of those before it.
    std::size_t cut();
    /// Takes back the segments from one on, and forgets them.
    void rollBack(std::size_t first);
    /// Whether anything was recorded since the last take().
    bool isEmpty();
    /// The segments so far; recording goes on in a new one.
    std::vector<UndoSegment> take();

    /// Takes segments back, or does again what was taken back, and tells reactors.
    void revert(std::vector<UndoSegment>& segments);
    void repeat(std::vector<UndoSegment>& segments);

private:
    void start();
    void stop();
    void update();
    StubTable& stubs() const;

    AcDbDatabase& mDatabase;
    bool mIsEnabled = false;
    int mHolds = 0;
    bool mIsBusy = false;
    bool mIsRecording = false;
    std::uint32_t mEpoch = 0;
    std::uint64_t mFirstHandle = 0;
    std::vector<UndoSegment> mSegments;
    CurrentSettings mSettings;                      ///< at the start of the segment
    std::unordered_set<std::string> mHeaderNames;   ///< of the variables that have an edit in the segment
};
