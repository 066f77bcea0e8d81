#pragma once

#include "Fault.h"
#include "Group.h"
#include "Input.h"
#include "TextEncoding.h"

#include <memory>
#include <vector>

namespace dxf
{
/// Reads the groups of a drawing file one after the other.
///
/// A fault of the file never ends the reading: it is noted in faults(), and the next group that can be
/// read is the next group. The last group is the end mark (0, EOF); nothing behind it is read.
/// Comments (999) are left out unless they are asked for. The names in groups 0, 9, 100 and 102 stand
/// without the blanks around them; other texts keep theirs.
class GroupReader
{
public:
    explicit GroupReader(std::shared_ptr<const Input> input);
    GroupReader(const GroupReader&) = delete;
    GroupReader& operator=(const GroupReader&) = delete;
    virtual ~GroupReader();

    /// Steps to the next group; false at the end, and then each time.
    bool next()
    {
        if (!_hasAhead) return read(_group);
        _group = _ahead;
        _hasAhead = false;
        return true;
    }

    /// The group that next() stepped to. Its text lives as long as input().
    const Group& group() const { return _group; }

    /// The group that next() will step to; null at the end.
    const Group* peek()
    {
        if (!_hasAhead) _hasAhead = read(_ahead);
        return _hasAhead ? &_ahead : nullptr;
    }

    /// Appends the groups up to the next record, or the end, without stepping to them; group() is none of them then.
    void takeRest(std::vector<Group>& to);

    /// Makes the next call of next() step to group() once more. Not between a peek and the next().
    void pushBack();

    /// The text of group() or of another group of this file, decoded. Empty for malformed chunks and the
    /// numbers of binary files.
    std::wstring text() const { return textOf(_group); }
    std::wstring textOf(const Group& group) const { return _encoding.decode(group.text()); }

    const std::shared_ptr<const Input>& input() const { return _input; }
    FileVersion version() const { return _version; }
    const TextEncoding& encoding() const { return _encoding; }
    virtual bool isBinary() const = 0;
    void setComments(bool areWanted) { _hasComments = areWanted; }

    FaultList& faults() { return _faults; }
    const FaultList& faults() const { return _faults; }

    /// Sets what the header says; who opens a file calls it before the first group is read.
    void setHeader(FileVersion version, const TextEncoding& encoding);

protected:
    virtual bool read(Group& group) = 0;
    bool hasComments() const { return _hasComments; }

    /// Notes a fault of a group that was read.
    void note(FaultKind kind, const Group& group) { _faults.add(kind, group.position(), group.code()); }
    /// The same for a group that should be a handle. In the dimension styles of R12 group 5 is the name of
    /// a block, which is no fault.
    void noteBadHandle(const Group& group);
    /// To be told of each group 0.
    void enterRecord(const Group& group) { _isDimStyle = group.text() == "DIMSTYLE"; }

private:
    bool takeInto(std::vector<Group>& to);

    std::shared_ptr<const Input> _input;
    Group _group, _ahead;
    bool _hasAhead = false;
    bool _hasComments = false;
    bool _isDimStyle = false;
    FileVersion _version = FileVersion::r12;
    TextEncoding _encoding;
    FaultList _faults;
};
} // namespace dxf
