#include "CopyGroups.h"

#include "dbblock.h"
#include "dbproxy.h"
#include "dbsortentstbl.h"
#include "Stub.h"

#include <algorithm>
#include <cstring>

namespace
{
// A reference to a record is this mark and the bytes of the stub's address. No name begins with a control character.
constexpr char mark = '\x01';
constexpr std::size_t markSize = 1 + sizeof(AcDbStub*);

std::string marked(AcDbStub* stub)
{
    std::string text(markSize, mark);
    std::memcpy(text.data() + 1, &stub, sizeof stub);
    return text;
}

bool isMarked(std::string_view text) { return text.size() == markSize && text[0] == mark; }

AcDbStub* unmarked(std::string_view text)
{
    AcDbStub* stub = nullptr;
    std::memcpy(&stub, text.data() + 1, sizeof stub);
    return stub;
}

/// Handles of other objects; 5, 105 and 320 to 329 are numbers to copying.
bool isReference(int code)
{
    return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 || code == 1005;
}

/// A group of a record of unknown class that names a record of a table.
struct NamingGroup {
    const char* section;
    int code;
};
constexpr NamingGroup namingGroups[] = {
    {"AcDbBlockReference", 2}, // the block that shows a table
    {"AcDbFcf", 3},            // the dimension style of a feature control frame
    {"AcDbTable", 7},
    {"AcDbTableStyle", 7},
    {"AcDbMlineStyle", 6},
};

bool isNaming(const std::string& section, int code)
{
    return std::any_of(std::begin(namingGroups), std::end(namingGroups),
                       [&](const NamingGroup& group) { return group.code == code && group.section == section; });
}

bool isProxy(const AcDbObject& object)
{
    return object.isKindOf(AcDbProxyEntity::desc()) || object.isKindOf(AcDbProxyObject::desc());
}
} // namespace

namespace references
{
bool isHardPointer(int code)
{
    return (code >= 340 && code <= 349) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}
bool isHardOwner(int code) { return code >= 360 && code <= 369; }
bool isSoftOwner(int code) { return code >= 350 && code <= 359; }
} // namespace references

ReferenceSink::ReferenceSink(const AcDbObject& original, AcDbDatabase& from) : mFrom(from), mIsKept(isProxy(original))
{
}

void ReferenceSink::handle(int code, AcDbStub* stub)
{
    if (stub && isReference(code)) references.push_back({code, stub});
    PackedSink::handle(code, stub);
}

void ReferenceSink::record(int code, AcDbStub* stub)
{
    constexpr int hardPointer = 340;
    if (!stub || !stub->object) return;
    references.push_back({hardPointer, stub});
    PackedSink::text(code, marked(stub));
}

void ReferenceSink::rawHandle(int code, std::uint64_t value)
{
    AcDbStub* stub = value && isReference(code) ? DatabaseAccess::of(mFrom).stubs.find(value) : nullptr;
    if (stub) references.push_back({code, stub});
    PackedSink::rawHandle(code, value);
}

void ReferenceSink::text(int code, std::string_view utf8)
{
    if (code == 100) mSection = utf8;
    AcDbStub* named = namesRecord(code) ? static_cast<AcDbStub*>(recordNamed(mFrom, code, utf8)) : nullptr;
    return named ? record(code, named) : PackedSink::text(code, utf8);
}

bool ReferenceSink::namesRecord(int code) const { return code == 1003 || (mIsKept && isNaming(mSection, code)); }

CopySource::CopySource(const PackedGroups& groups, const AcDbObject& original, AcDbDatabase& from, AcDbDatabase& to,
                       const CopyTranslation& translation)
    : PackedSource(groups, &to), mFrom(from), mTranslation(translation), mIsKept(isProxy(original)),
      mIsBlock(original.isKindOf(AcDbBlockTableRecord::desc())),
      mIsNewOrder(!translation.keepsHandles() && original.isKindOf(AcDbSortentsTable::desc()))
{
    CopySource::take(); // the name of the record
}

void CopySource::take()
{
    do {
        PackedSource::take();
    } while (skipsOwnLists());
    exchange();
}

/// Blocks list their references anew, and the draw order is told to the copy when its entities are there.
bool CopySource::skipsOwnLists()
{
    const DxfGroup* group = PackedSource::peek();
    if (!group) return false;
    if (mIsNewOrder) return group->is(331) || (group->is(5) && group->kind == DxfKind::handle);
    if (!mIsBlock || !group->is(102) || group->text != "{BLKREFS") return false;
    do {
        PackedSource::take();
        group = PackedSource::peek();
    } while (group && !group->is(102));
    return true;
}

void CopySource::exchange()
{
    const DxfGroup* group = PackedSource::peek();
    if (!group) return;
    mGroup = *group;
    if (mGroup.is(100)) mSection = mGroup.text;
    if (mGroup.is(102)) mInReactors = mGroup.text == "{ACAD_REACTORS";
    if (mGroup.kind == DxfKind::handle && isReference(mGroup.code)) exchangeHandle();
    if (mGroup.kind == DxfKind::text && isMarked(mGroup.text)) exchangeName();
}

void CopySource::exchangeHandle()
{
    AcDbStub* original = DatabaseAccess::of(mFrom).stubs.find(static_cast<std::uint64_t>(mGroup.integer));
    if (!original || !original->object) {
        // A copy with the same handles may refer to nothing by the same one.
        if (!mTranslation.keepsHandles()) mGroup.integer = 0;
        return;
    }
    const AcDbStub* found = mInReactors ? mTranslation.translateReactor(original) : mTranslation.translate(original);
    mGroup.integer = found ? static_cast<std::int64_t>(found->handle) : 0;
}

/// Marks stay for the fields that ask `recordOf`; groups that are kept as they are need the name itself.
void CopySource::exchangeName()
{
    if (!mGroup.is(1003) && !(mIsKept && isNaming(mSection, mGroup.code))) return;
    mName = utf8Of(mTranslation.nameOf(mTranslation.translate(unmarked(mGroup.text))));
    mGroup.text = mName;
}

AcDbStub* CopySource::recordOf(int code, std::string_view name)
{
    AcDbStub* original =
        isMarked(name) ? unmarked(name) : static_cast<AcDbStub*>(recordNamed(mFrom, code, name));
    return original ? mTranslation.translate(original) : nullptr;
}
