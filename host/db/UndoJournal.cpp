#include "UndoJournal.h"

#include "DatabaseState.h"
#include "HeaderEdit.h"
#include "ObjectNotices.h"

#include <algorithm>

namespace
{
std::uint32_t lastEpoch = 0;

/// Keeps recording off while it lives.
class Busy
{
public:
    explicit Busy(bool& busy) : mBusy(busy), mBefore(busy) { mBusy = true; }
    ~Busy() { mBusy = mBefore; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    bool& mBusy;
    bool mBefore;
};

/// Calls `visit` with each object that was made in a segment.
template <class Visit>
void forEachNew(StubTable& stubs, const UndoSegment& segment, Visit visit)
{
    for (std::size_t i = segment.firstStub; i < segment.endStub; ++i) {
        if (stubs[i].object) visit(stubs[i]);
    }
}

void unappend(StubTable& stubs, UndoSegment& segment)
{
    forEachNew(stubs, segment, [&](AcDbStub& stub) {
        if (stub.erased) segment.erasedBefore.push_back(&stub);
        stub.erased = stub.undone = true;
    });
}

void reappend(StubTable& stubs, UndoSegment& segment)
{
    forEachNew(stubs, segment, [&](AcDbStub& stub) { stub.erased = stub.undone = false; });
    for (AcDbStub* stub : segment.erasedBefore)
        stub->erased = true;
    segment.erasedBefore.clear();
}

void exchangeBack(AcDbDatabase& database, UndoSegment& segment)
{
    std::for_each(segment.edits.rbegin(), segment.edits.rend(),
                  [&](const auto& edit) { edit->exchange(database); });
}

void exchangeAgain(AcDbDatabase& database, UndoSegment& segment)
{
    for (const auto& edit : segment.edits)
        edit->exchange(database);
}

void tellUndone(AcDbDatabase& database, StubTable& stubs, const UndoSegment& segment)
{
    for (const auto& edit : segment.edits)
        edit->tell(database);
    auto gone = segment.erasedBefore.begin(); // in the order of the stubs
    forEachNew(stubs, segment, [&](AcDbStub& stub) {
        if (gone != segment.erasedBefore.end() && *gone == &stub)
            ++gone;
        else
            notices::unappended(*stub.object);
    });
}

void tellRedone(AcDbDatabase& database, StubTable& stubs, const UndoSegment& segment)
{
    for (const auto& edit : segment.edits)
        edit->tell(database);
    forEachNew(stubs, segment, [](AcDbStub& stub) {
        if (!stub.erased) notices::reappended(*stub.object);
    });
}
} // namespace

StubTable& UndoJournal::stubs() const
{
    return DatabaseAccess::of(mDatabase).stubs;
}

void UndoJournal::enable(bool on)
{
    mIsEnabled = on;
    update();
}

void UndoJournal::hold()
{
    ++mHolds;
    update();
}

void UndoJournal::release()
{
    --mHolds;
    update();
    if (!mIsEnabled && mHolds == 0) mSegments.clear();
}

void UndoJournal::update()
{
    const bool wanted = (mIsEnabled || mHolds != 0) && !mIsBusy;
    if (wanted == mIsRecording) return;
    wanted ? start() : stop();
}

void UndoJournal::start()
{
    DatabaseState& state = DatabaseAccess::of(mDatabase);
    mSegments.emplace_back();
    mSegments.back().firstStub = state.stubs.size();
    mFirstHandle = state.stubs.nextHandle();
    mEpoch = ++lastEpoch;
    mSettings = state;
    mHeaderNames.clear();
    state.header.watch(this);
    mIsRecording = true;
}

void UndoJournal::stop()
{
    if (!mIsRecording) return;
    DatabaseState& state = DatabaseAccess::of(mDatabase);
    if (!(mSettings == state)) add(std::make_unique<SettingsEdit>(mSettings));
    mSegments.back().endStub = state.stubs.size();
    if (mSegments.back().endStub == mSegments.back().firstStub && mSegments.back().edits.empty())
        mSegments.pop_back();
    state.header.watch(nullptr);
    mIsRecording = false;
}

void UndoJournal::willSet(std::string_view name, const PackedGroups& value)
{
    if (mHeaderNames.emplace(name).second) add(std::make_unique<HeaderEdit>(name, value));
}

std::size_t UndoJournal::cut()
{
    stop();
    const std::size_t before = mSegments.size();
    update();
    return before;
}

bool UndoJournal::isEmpty()
{
    return cut() == 0;
}

std::vector<UndoSegment> UndoJournal::take()
{
    stop();
    std::vector<UndoSegment> taken;
    std::swap(taken, mSegments);
    update();
    return taken;
}

void UndoJournal::rollBack(std::size_t first)
{
    stop();
    const auto begin = mSegments.begin() + static_cast<std::ptrdiff_t>(std::min(first, mSegments.size()));
    std::vector<UndoSegment> taken(std::make_move_iterator(begin), std::make_move_iterator(mSegments.end()));
    mSegments.erase(begin, mSegments.end());
    revert(taken);
}

void UndoJournal::revert(std::vector<UndoSegment>& segments)
{
    stop();
    {
        const Busy busy(mIsBusy);
        std::for_each(segments.rbegin(), segments.rend(), [&](UndoSegment& segment) {
            unappend(stubs(), segment);
            exchangeBack(mDatabase, segment);
        });
        std::for_each(segments.rbegin(), segments.rend(), [&](const UndoSegment& segment) {
            tellUndone(mDatabase, stubs(), segment);
        });
    }
    update();
}

void UndoJournal::repeat(std::vector<UndoSegment>& segments)
{
    stop();
    {
        const Busy busy(mIsBusy);
        for (UndoSegment& segment : segments) {
            reappend(stubs(), segment);
            exchangeAgain(mDatabase, segment);
        }
        for (const UndoSegment& segment : segments)
            tellRedone(mDatabase, stubs(), segment);
    }
    update();
}
