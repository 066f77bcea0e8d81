#pragma once

/// Groups kept as they are: extended data, Xrecords, records of unknown classes.

#include "DxfGroup.h"

#include <cstddef>

/// A list of groups in one block of memory: 10 bytes for a number, the bytes and 6 more for a text.
class PackedGroups
{
public:
    bool empty() const { return mBytes.empty(); }
    void clear() { mBytes.clear(); }
    /// The memory that the groups take, in bytes.
    std::size_t size() const { return mBytes.size(); }

    void append(const DxfGroup& group);
    void appendReal(int code, double value);
    void appendInteger(int code, std::int64_t value);
    void appendHandle(int code, std::uint64_t value);
    void appendText(int code, std::string_view utf8);
    void appendBinary(int code, std::string_view bytes);

    /// Walks the groups: the group at `position`, which moves to the next; false at the end.
    bool read(std::size_t& position, DxfGroup& group) const;

    bool operator==(const PackedGroups& other) const { return mBytes == other.mBytes; }

private:
    template <class T>
    void put(T value);

    std::string mBytes;
};

/// Writes every group of a list.
void writeGroups(const PackedGroups& groups, DxfSink& sink);
