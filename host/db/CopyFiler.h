#pragma once

#include "dbfiler.h"

#include <string>

/// A filer in memory: what one object writes another of its class reads.
class CopyFiler : public AcDbDwgFiler
{
public:
    explicit CopyFiler(AcDbDatabase* database, AcDb::FilerType type = AcDb::kCopyFiler)
        : mDatabase(database), mType(type)
    {
    }

    Acad::ErrorStatus filerStatus() const override { return mStatus; }
    AcDb::FilerType filerType() const override { return mType; }
    void setFilerStatus(Acad::ErrorStatus status) override { mStatus = status; }
    AcDbDatabase* database() const override { return mDatabase; }
    Acad::ErrorStatus readBytes(void* bytes, Adesk::UIntPtr count) override;
    Acad::ErrorStatus writeBytes(const void* bytes, Adesk::UIntPtr count) override;
    Acad::ErrorStatus seek(Adesk::Int64 offset, int method) override;
    Adesk::Int64 tell() const override { return static_cast<Adesk::Int64>(mAt); }

    /// All that was written.
    std::string take() { return std::move(mBytes); }
    /// To be read from its beginning.
    void give(std::string bytes)
    {
        mBytes = std::move(bytes);
        mAt = 0;
    }

private:
    AcDbDatabase* mDatabase;
    AcDb::FilerType mType;
    Acad::ErrorStatus mStatus = Acad::eOk;
    std::string mBytes;
    std::size_t mAt = 0;
};
