#pragma once

#include "Fault.h"
#include "Group.h"
#include "TextEncoding.h"

namespace dxf
{
/// Writes groups. The group code decides the form of a value, whichever call gives it: a real behind an
/// integer code is rounded, an integer behind a real code becomes a real. A value that the code cannot
/// carry at all (a text behind a number's code ...) is not written; faults() notes it, with the number of
/// the group, counted from 1, as the position.
class GroupWriter
{
public:
    explicit GroupWriter(const TextEncoding& encoding) : _encoding(encoding) {}
    GroupWriter(const GroupWriter&) = delete;
    GroupWriter& operator=(const GroupWriter&) = delete;
    virtual ~GroupWriter();

    void text(int code, std::wstring_view value);
    /// A text that is in the writer's encoding already: names of records, sections and classes.
    void name(int code, std::string_view encoded);
    /// A value that is not finite is written as 0.0, and noted: no reader takes another.
    void real(int code, double value);
    /// A value too large for the code's kind is noted; a binary file keeps its low bits.
    void integer(int code, std::int64_t value);
    void handle(int code, std::uint64_t value);
    /// Bytes of any number, as several groups when they are more than 127.
    void chunks(int code, std::string_view bytes);
    /// Three reals behind code, code + 10 and code + 20.
    void point(int code, double x, double y, double z);

    /// A group as it was read; its text is in the encoding `from`. Between files of one encoding it stays
    /// byte for byte the same; a malformed value stays so in an ASCII file, and is 0 in a binary one.
    void group(const Group& group, const TextEncoding& from);

    /// Hands over what is still held back. False when something could not be written.
    virtual bool finish() = 0;

    const TextEncoding& encoding() const { return _encoding; }
    const FaultList& faults() const { return _faults; }

protected:
    /// The value of these fits the code's kind.
    virtual void putText(int code, std::string_view encoded) = 0;
    virtual void putReal(int code, double value) = 0;
    virtual void putInteger(int code, std::int64_t value) = 0;
    virtual void putHandle(int code, std::uint64_t value) = 0;
    /// At most 255 bytes.
    virtual void putChunk(int code, std::string_view bytes) = 0;
    /// The value of a malformed group; false when the form of the file cannot hold it.
    virtual bool putMalformed(const Group& group) = 0;

    void note(FaultKind kind, int code) { _faults.add(kind, _count, code); }

private:
    void putNumber(int code, std::int64_t value);
    void wellFormed(const Group& group, const TextEncoding& from);
    void malformed(const Group& group);
    void recode(const Group& group, const TextEncoding& from);

    TextEncoding _encoding;
    FaultList _faults;
    std::size_t _count = 0;
    std::string _encoded; ///< reused for each text
    std::wstring _decoded;
};

/// Writes what is left of a reader's groups.
template <class Reader>
void copyGroups(Reader& from, GroupWriter& to)
{
    while (from.next())
        to.group(from.group(), from.encoding());
}
} // namespace dxf
