#pragma once

/// The filers of drawing files and lists: what a module's class reads and writes is groups of the record that the host
/// is at.

#include "DxfGroup.h"
#include "dbfiler.h"

#include <functional>
#include <string>

/// What both have in common: the status and the text of a fault.
class RecordFiler : public AcDbDxfFiler
{
public:
    RecordFiler(AcDbDatabase* database, int version) : mDatabase(database), mVersion(version) {}
    Acad::ErrorStatus filerStatus() const override { return mStatus; }
    void resetFilerStatus() override { mStatus = Acad::eOk; }
    Acad::ErrorStatus setError(Acad::ErrorStatus status, const ACHAR* format = nullptr, ...) override;
    const ACHAR* errorMessage() const override { return mMessage; }
    AcDbDatabase* database() const override { return mDatabase; }
    Acad::ErrorStatus dwgVersion(AcDb::AcDbDwgVersion& version,
                                 AcDb::MaintenanceReleaseVersion& maintenance) const override;

private:
    AcDbDatabase* mDatabase;
    int mVersion; ///< as in $ACADVER
    Acad::ErrorStatus mStatus = Acad::eOk;
    CString mMessage;
};

class DxfOutFiler final : public RecordFiler
{
public:
    DxfOutFiler(DxfSink& sink, AcDbDatabase* database) : RecordFiler(database, sink.version()), mSink(sink) {}
    DxfSink& sink() { return mSink; }

    Acad::ErrorStatus writeResBuf(const resbuf& item) override;
    Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) override;
    Acad::ErrorStatus writeInteger(int code, Adesk::Int64 value) override;
    Acad::ErrorStatus writeReal(int code, double value) override;
    Acad::ErrorStatus writeObjectId(AcDb::DxfCode code, const AcDbObjectId& id) override;
    Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode code, const AcDbHandle& handle) override;
    Acad::ErrorStatus writeBChunk(AcDb::DxfCode code, const ads_binary& chunk) override;

    // Nothing can be read here: eNotApplicable.
    Acad::ErrorStatus readResBuf(resbuf*) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus pushBackItem() override { return Acad::eNotApplicable; }
    bool atEOF() override { return true; }
    bool atEndOfObject() override { return true; }
    bool atExtendedData() override { return false; }
    bool atSubclassData(const ACHAR*) override { return false; }

private:
    DxfSink& mSink;
};

class DxfInFiler final : public RecordFiler
{
public:
    /// `readBase` reads the sections that the host knows, up to the first that it does not know.
    DxfInFiler(DxfSource& source, AcDbDatabase* database, std::function<void()> readBase)
        : RecordFiler(database, 1032), mSource(source), mReadBase(std::move(readBase))
    {
    }
    void readBase() { mReadBase(); }
    /// Whether the class has taken a section, whose other groups are of no use to anybody then.
    bool isInOwnSection() const { return mIsInOwnSection; }
    /// The name of a section whose mark was given back; null otherwise.
    const std::string* markGivenBack() const { return mIsPushedBack && mItem.restype == 100 ? &mBytes : nullptr; }

    Acad::ErrorStatus readResBuf(resbuf* item) override;
    Acad::ErrorStatus pushBackItem() override;
    bool atEOF() override { return atEndOfObject(); }
    bool atEndOfObject() override { return !mIsPushedBack && !mSource.peek(); }
    bool atExtendedData() override { return !mIsPushedBack && mSource.peek() && mSource.peek()->code >= 1000; }
    bool atSubclassData(const ACHAR* subClassName) override;

    // Nothing can be written here: eNotApplicable.
    Acad::ErrorStatus writeResBuf(const resbuf&) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeString(AcDb::DxfCode, const ACHAR*) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeInteger(int, Adesk::Int64) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeReal(int, double) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeObjectId(AcDb::DxfCode, const AcDbObjectId&) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeAcDbHandle(AcDb::DxfCode, const AcDbHandle&) override { return Acad::eNotApplicable; }
    Acad::ErrorStatus writeBChunk(AcDb::DxfCode, const ads_binary&) override { return Acad::eNotApplicable; }

private:
    void load(const DxfGroup& group);
    void loadPoint(const DxfGroup& group);

    DxfSource& mSource;
    std::function<void()> mReadBase;
    resbuf mItem{};      ///< what was read last; its text is mText, its bytes mBytes
    CString mText;
    std::string mBytes;
    bool mHasItem = false;
    bool mIsPushedBack = false;
    bool mIsInOwnSection = false;
};
