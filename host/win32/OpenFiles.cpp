#include "OpenFiles.h"

#include "fileapi.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace
{
using namespace win32;

struct LockedRange {
    const Opening* owner;
    ULONGLONG start;
    ULONGLONG length;
};

struct Registry {
    std::mutex mutex;
    std::vector<const Opening*> openings;
    std::vector<LockedRange> ranges;
};

/// Never destroyed: files are closed by destructors of other files too.
Registry& registry()
{
    static Registry* const all = new Registry;
    return *all;
}

bool operator==(const FileIdentity& a, const FileIdentity& b)
{
    return a.device == b.device && a.inode == b.inode;
}

bool takesPart(const Opening& opening)
{
    return opening.reads || opening.writes || opening.deletes;
}

/// True when the share mode of one opening lets the other have its access.
bool allows(const Opening& one, const Opening& other)
{
    return (!other.reads || (one.share & FILE_SHARE_READ)) &&
           (!other.writes || (one.share & FILE_SHARE_WRITE)) &&
           (!other.deletes || (one.share & FILE_SHARE_DELETE));
}

bool conflict(const Opening& a, const Opening& b)
{
    return a.file == b.file && takesPart(a) && takesPart(b) && !(allows(a, b) && allows(b, a));
}

bool overlap(const LockedRange& range, ULONGLONG start, ULONGLONG length)
{
    if (length == 0 || range.length == 0) return false;
    return start >= range.start ? start - range.start < range.length : range.start - start < length;
}
} // namespace

namespace win32
{
bool addOpening(const Opening* opening)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    for (const Opening* other : all.openings)
        if (conflict(*opening, *other)) return false;
    all.openings.push_back(opening);
    return true;
}

void removeOpening(const Opening* opening)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.openings.erase(std::remove(all.openings.begin(), all.openings.end(), opening), all.openings.end());
    all.ranges.erase(std::remove_if(all.ranges.begin(), all.ranges.end(),
                                    [&](const LockedRange& range) { return range.owner == opening; }),
                     all.ranges.end());
}

bool mayDelete(const FileIdentity& file)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    return std::all_of(all.openings.begin(), all.openings.end(), [&](const Opening* opening) {
        return !(opening->file == file) || !takesPart(*opening) || (opening->share & FILE_SHARE_DELETE);
    });
}

bool lockRange(const Opening* opening, ULONGLONG start, ULONGLONG length)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    for (const LockedRange& range : all.ranges)
        if (range.owner->file == opening->file && overlap(range, start, length)) return false;
    all.ranges.push_back({opening, start, length});
    return true;
}

bool unlockRange(const Opening* opening, ULONGLONG start, ULONGLONG length)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    const auto found = std::find_if(all.ranges.begin(), all.ranges.end(), [&](const LockedRange& range) {
        return range.owner == opening && range.start == start && range.length == length;
    });
    if (found == all.ranges.end()) return false;
    all.ranges.erase(found);
    return true;
}

bool isLockedByOther(const Opening* opening, ULONGLONG start, ULONGLONG length)
{
    Registry& all = registry();
    const std::lock_guard<std::mutex> lock(all.mutex);
    return std::any_of(all.ranges.begin(), all.ranges.end(), [&](const LockedRange& range) {
        return range.owner != opening && range.owner->file == opening->file && overlap(range, start, length);
    });
}
} // namespace win32
