#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "DxfFiler.h"
#include "DxfKept.h"
#include "dbsymbase.h"

#include <bitset>

namespace
{
/// Stands for the part of a record before the sections, where groups are kept too.
const DxfClass frameSection(nullptr, nullptr, {});

/// Reads one record.
class RecordReader
{
public:
    RecordReader(AcDbObject& object, DxfSource& source)
        : mObject(object), mSource(source), mSection(object.dxfClass())
    {
    }

    DxfFrame read()
    {
        DxfInFiler filer(mSource, mObject.database(), [this] { readKnown(); });
        mObject.dxfInFields(&filer);
        if (filer.filerStatus() != Acad::eOk) mSource.report(DxfGroup(), "a value that its class cannot take");
        if (const std::string* mark = filer.markGivenBack()) {
            keepMark(*mark);
        } else if (filer.isInOwnSection()) {
            skipSection();
        }
        readAll();
        return mFrame;
    }

    void readAll()
    {
        while (const DxfGroup* group = mSource.peek()) take(*group);
    }

private:
    /// Up to the first section that is of none of the host's classes.
    void readKnown()
    {
        while (const DxfGroup* group = mSource.peek()) {
            if (group->code == 100 && !sectionOf(*group)) return;
            take(*group);
        }
    }

    /// Groups that a module's class has left of its section, for nobody to read.
    void skipSection()
    {
        while (const DxfGroup* group = mSource.peek()) {
            if (group->code == 100 || group->code == 101 || group->code >= 1000) return;
            mSource.take();
        }
    }

    void keepMark(const std::string& mark)
    {
        mSection = nullptr;
        DxfGroup group;
        group.code = 100;
        group.text = mark;
        keepGroup(mObject, nullptr, group);
    }

    const DxfClass* sectionOf(const DxfGroup& mark) const
    {
        const DxfClass* own = mObject.dxfClass();
        return own ? own->sectionOf(mark.text) : nullptr;
    }

    void take(const DxfGroup& group)
    {
        if (group.code >= 1000) return takeXData(group);
        if (group.code == 101) mIsEmbedded = true;
        if (mIsEmbedded) return keep(nullptr, group);
        if (group.code == 100) return enterSection(group);
        if (!mSectionsKnown && takeFrame(group)) return;
        if (const DxfField* field = fieldFor(group.code)) {
            if (isFirst(*field)) return field->read(mObject, *field, mSource);
        } else if (group.code == 5 && group.kind == DxfKind::handle && !mFrame.handle) {
            // Some programs put the handle behind the first marker.
            takeHandle(group);
            return mSource.take();
        }
        keep(mSection, group);
    }

    /// A second group of a field with one value is kept beside it.
    bool isFirst(const DxfField& field)
    {
        if (field.repeats) return true;
        const auto place = static_cast<std::size_t>(field.code) % mTaken.size();
        const bool isFirst = !mTaken[place];
        mTaken[place] = true;
        return isFirst;
    }

    void takeHandle(const DxfGroup& group) { mFrame.handle = static_cast<std::uint64_t>(group.integer); }

    void enterSection(const DxfGroup& group)
    {
        mSectionsKnown = true;
        mTaken.reset();
        mSection = sectionOf(group);
        if (mSection) {
            mSource.take();
        } else {
            keep(nullptr, group);
        }
    }

    void keep(const DxfClass* section, const DxfGroup& group)
    {
        keepGroup(mObject, section, group);
        mSource.take();
    }

    bool takeFrame(const DxfGroup& group)
    {
        switch (group.code) {
        case 5:
        case 105:
            if (group.kind != DxfKind::handle || mFrame.handle) return false;
            takeHandle(group);
            break;
        case 330:
            if (mHasOwner) return false;
            mHasOwner = true;
            mFrame.owner = mSource.stubOf(static_cast<std::uint64_t>(group.integer));
            break;
        case 102: takeBraces(group); return true;
        default: return false;
        }
        mSource.take();
        return true;
    }

    /// A list in braces: the reactors, the extension dictionary, or one of another application, which is kept.
    void takeBraces(const DxfGroup& group)
    {
        if (group.text == "{ACAD_REACTORS") return takeReactors();
        if (group.text == "{ACAD_XDICTIONARY") return takeExtensionDictionary();
        keep(&frameSection, group);
        while (const DxfGroup* inner = mSource.peek()) {
            if (inner->code == 100) return;
            const bool isEnd = inner->code == 102;
            keep(&frameSection, *inner);
            if (isEnd) return;
        }
    }

    /// Calls `take` for each group of the list that is skipped; a list that is not closed ends with the frame.
    template <class Take>
    void forEachInBraces(Take take)
    {
        for (mSource.take(); const DxfGroup* group = mSource.peek(); mSource.take()) {
            if (group->code == 102) return mSource.take();
            if (group->code == 100) return;
            take(*group);
        }
    }

    void takeReactors()
    {
        std::vector<AcDbObjectId>& reactors = DbObjectAccess::needExtras(mObject).persistentReactors;
        forEachInBraces([&](const DxfGroup& group) {
            if (AcDbStub* stub = mSource.stubOf(static_cast<std::uint64_t>(group.integer))) reactors.push_back(stub);
        });
    }

    void takeExtensionDictionary()
    {
        forEachInBraces([&](const DxfGroup& group) {
            DbObjectAccess::needExtras(mObject).extensionDictionary =
                mSource.stubOf(static_cast<std::uint64_t>(group.integer));
        });
    }

    void takeXData(const DxfGroup& group)
    {
        std::vector<AppXData>& all = DbObjectAccess::needExtras(mObject).xdata;
        if (group.code == 1001) {
            AcDbStub* application = mSource.recordOf(1001, group.text);
            mHasApplication = application != nullptr;
            if (application) all.push_back({application, {}});
        } else if (mHasApplication) {
            all.back().groups.append(group);
        }
        if (!mHasApplication) mSource.report(group, "extended data without an application");
        mSource.take();
    }

    /// The field that takes a group: of the section, or, in files without sections, of any class from the innermost
    /// out.
    const DxfField* fieldFor(int code) const
    {
        if (mSectionsKnown) return mSection ? mSection->fieldInSection(code) : nullptr;
        for (const DxfClass* at = mSection; at; at = at->base()) {
            if (const DxfField* field = at->fieldOf(code)) return field;
        }
        return nullptr;
    }

    AcDbObject& mObject;
    DxfSource& mSource;
    const DxfClass* mSection;
    bool mSectionsKnown = false;
    bool mHasApplication = false;
    bool mIsEmbedded = false; ///< inside an object that newer programs embed at the end of a record: kept as it is
    bool mHasOwner = false;
    std::bitset<512> mTaken; ///< codes of the fields of this section that have been read
    DxfFrame mFrame;
};

void writeReactors(const DbObjectExtras& extras, DxfSink& sink)
{
    if (extras.persistentReactors.empty()) return;
    sink.text(102, "{ACAD_REACTORS");
    for (const AcDbObjectId reactor : extras.persistentReactors) sink.handle(330, reactor);
    sink.text(102, "}");
}

void writeExtensionDictionary(const DbObjectExtras& extras, DxfSink& sink)
{
    if (extras.extensionDictionary.isNull()) return;
    sink.text(102, "{ACAD_XDICTIONARY");
    sink.handle(360, extras.extensionDictionary);
    sink.text(102, "}");
}

void writeXData(const DbObjectExtras& extras, DxfSink& sink)
{
    for (const AppXData& data : extras.xdata) {
        if (!residentObject(data.regapp)) continue; // the application has been purged
        sink.record(1001, data.regapp);
        writeGroups(data.groups, sink);
    }
}

void writeBody(const AcDbObject& object, AcDbObjectId namedOwner, DxfSink& sink)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(object);
    sink.rawHandle(object.dxfRecordName() == "DIMSTYLE" ? 105 : 5, object.handle());
    if (extras) {
        writeExtensionDictionary(*extras, sink);
        writeReactors(*extras, sink);
        writeKeptGroups(object, &frameSection, sink);
    }
    sink.handle(330, namedOwner);
}
} // namespace

DxfFrame dxfRead(AcDbObject& object, DxfSource& source) { return RecordReader(object, source).read(); }
void dxfReadSections(AcDbObject& object, DxfSource& source) { RecordReader(object, source).readAll(); }

void dxfWrite(const AcDbObject& object, DxfSink& sink)
{
    DxfOutFiler filer(sink, object.database());
    object.dxfOutFields(&filer);
    writeKeptGroups(object, nullptr, sink);
}

void dxfWriteFrame(const AcDbObject& object, DxfSink& sink)
{
    sink.text(0, object.dxfRecordName());
    dxfWriteBody(object, sink);
}

void dxfWriteBody(const AcDbObject& object, DxfSink& sink) { writeBody(object, object.ownerId(), sink); }

void dxfWriteRecord(const AcDbObject& object, DxfSink& sink) { dxfWriteRecord(object, object.ownerId(), sink); }

void dxfWriteAttached(const AcDbObject& object, DxfSink& sink)
{
    dxfWriteFrame(object, sink);
    writeKeptGroups(object, nullptr, sink);
    if (const DbObjectExtras* extras = DbObjectAccess::extras(object)) writeXData(*extras, sink);
}

void dxfWriteRecord(const AcDbObject& object, AcDbObjectId namedOwner, DxfSink& sink)
{
    sink.text(0, object.dxfRecordName());
    writeBody(object, namedOwner, sink);
    dxfWrite(object, sink);
    if (const DbObjectExtras* extras = DbObjectAccess::extras(object)) writeXData(*extras, sink);
}
