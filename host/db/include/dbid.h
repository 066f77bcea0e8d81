#pragma once

/// Handles and object ids.
///
/// A handle is the number that names an object inside one drawing, for as long as the drawing lives, in files
/// too. An id names an object inside this process: it stays the same while the database is in memory, also
/// when the object is erased, and two ids are equal exactly when they name the same object.

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>

class AcDbDatabase;
class AcDbObject;
class AcDbObjectId;
class AcRxClass;
struct AcDbStub;

using ACHAR = wchar_t;

class AcDbHandle
{
public:
    constexpr AcDbHandle() = default;
    constexpr explicit AcDbHandle(std::uint64_t value) : mValue(value) {}
    AcDbHandle(int low, int high)
        : mValue(static_cast<std::uint32_t>(low) | static_cast<std::uint64_t>(static_cast<std::uint32_t>(high)) << 32)
    {
    }
    /// From hexadecimal digits, in either case. Reading stops at the first character that is none; a text without
    /// digits, or with more than 16, is the null handle.
    explicit AcDbHandle(const ACHAR* hexText);

    int low() const { return static_cast<int>(mValue); }
    int high() const { return static_cast<int>(mValue >> 32); }
    bool isNull() const { return mValue == 0; }
    void setNull() { mValue = 0; }
    constexpr std::uint64_t value() const { return mValue; }
    operator std::uint64_t() const { return mValue; }

    /// Writes the hexadecimal text: upper-case digits without leading zeros, and the terminator. False, and an
    /// empty text where there is room for one, when `capacity` (17 is always enough) is too small.
    bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t capacity = 17) const;

    AcDbHandle& increment()
    {
        ++mValue;
        return *this;
    }

    bool operator==(const AcDbHandle& other) const { return mValue == other.mValue; }
    bool operator!=(const AcDbHandle& other) const { return mValue != other.mValue; }
    bool operator<(const AcDbHandle& other) const { return mValue < other.mValue; }
    bool operator>(const AcDbHandle& other) const { return mValue > other.mValue; }
    bool operator<=(const AcDbHandle& other) const { return mValue <= other.mValue; }
    bool operator>=(const AcDbHandle& other) const { return mValue >= other.mValue; }

private:
    std::uint64_t mValue = 0;
};

class AcDbObjectId
{
public:
    static const AcDbObjectId kNull;

    constexpr AcDbObjectId() = default;
    constexpr AcDbObjectId(AcDbStub* stub) : mStub(stub) {}

    constexpr bool isNull() const { return mStub == nullptr; }
    void setNull() { mStub = nullptr; }
    /// True when the id names an object of a database in memory, erased or not.
    bool isValid() const;
    /// The id as the number that the list functions and old interfaces carry it in.
    std::intptr_t asOldId() const { return reinterpret_cast<std::intptr_t>(mStub); }
    AcDbObjectId& setFromOldId(std::intptr_t oldId)
    {
        mStub = reinterpret_cast<AcDbStub*>(oldId);
        return *this;
    }

    /// The database that holds the object; null for the null id.
    AcDbDatabase* database() const;
    AcDbDatabase* originalDatabase() const { return database(); }
    /// The object's handle; the null handle for the null id.
    AcDbHandle handle() const;
    AcDbHandle nonForwardedHandle() const { return handle(); }
    /// The class of the object, which need not be open; null for the null id.
    AcRxClass* objectClass() const;

    bool isErased() const;
    /// True when the object or one of its owners is erased.
    bool isEffectivelyErased() const;
    /// True when the object is in memory, which is always so here once it has been added.
    bool isResident() const;
    bool isObjectLeftOnDisk() const { return false; }

    operator AcDbStub*() const { return mStub; }
    bool operator==(const AcDbObjectId& other) const { return mStub == other.mStub; }
    bool operator!=(const AcDbObjectId& other) const { return mStub != other.mStub; }
    bool operator<(const AcDbObjectId& other) const { return std::less<AcDbStub*>()(mStub, other.mStub); }
    bool operator>(const AcDbObjectId& other) const { return other < *this; }
    bool operator<=(const AcDbObjectId& other) const { return !(other < *this); }
    bool operator>=(const AcDbObjectId& other) const { return !(*this < other); }

private:
    AcDbStub* mStub = nullptr;
};

/// Ids that say how the object is held: whether the holder owns it, and whether the link keeps it alive.
class AcDbHardOwnershipId : public AcDbObjectId
{
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbHardOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};

class AcDbSoftOwnershipId : public AcDbObjectId
{
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbSoftOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};

class AcDbHardPointerId : public AcDbObjectId
{
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbHardPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};

class AcDbSoftPointerId : public AcDbObjectId
{
public:
    using AcDbObjectId::AcDbObjectId;
    AcDbSoftPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};

namespace std
{
template <>
struct hash<AcDbObjectId> {
    size_t operator()(const AcDbObjectId& id) const { return hash<intptr_t>()(id.asOldId()); }
};
} // namespace std
