#pragma once

#include "GroupReader.h"

namespace dxf
{
/// What a binary drawing file starts with.
constexpr std::string_view binarySentinel{"AutoCAD Binary DXF\r\n\x1A\0", 22};

/// The reader of binary files. A group code takes two bytes, or in the older form one, with 255 before
/// the two bytes of a larger code; numbers are little-endian, a text ends with a NUL, a chunk starts
/// with its length in one byte.
///
/// Where no group code stands the bytes up to the next record, (0, a name in capitals), are left out.
class BinaryReader final : public GroupReader
{
public:
    /// The form of the codes is seen from the first group.
    explicit BinaryReader(std::shared_ptr<const Input> input);
    /// Groups without a sentinel, as a BinaryWriter without one writes them. Ends without an end mark.
    BinaryReader(std::shared_ptr<const Input> input, bool hasWideCodes);

    bool isBinary() const override { return true; }
    bool hasWideCodes() const { return _hasWideCodes; }

protected:
    bool read(Group& group) override;

private:
    bool readGroup(Group& group);
    int takeCode();
    bool readValue(Group& group);
    bool readText(Group& group);
    bool readChunk(Group& group);
    template <class Number>
    bool take(Number& value);
    template <class Number>
    bool readInteger(Group& group);
    bool readHandle(Group& group);
    bool skipToRecord();
    bool isRecordAt(const char* at) const;
    std::size_t offset() const;

    const char* _at;
    const char* _end;
    bool _hasWideCodes;
    bool _isFragment;
    bool _isFinished = false;
};
} // namespace dxf
