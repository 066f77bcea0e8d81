#pragma once

#include "GroupWriter.h"

#include <iosfwd>
#include <vector>

namespace dxf
{
/// A group that owns its value.
struct CollectedGroup {
    int code = 0;
    bool isMalformed = false;
    double real = 0;
    std::int64_t integer = 0; ///< also a handle
    std::string text;         ///< of a text: its bytes; of a chunk: the bytes it stands for

    static CollectedGroup ofText(int code, std::string text);
    static CollectedGroup ofReal(int code, double real);
    static CollectedGroup ofInteger(int code, std::int64_t integer);

    /// Reals are compared bit by bit.
    bool operator==(const CollectedGroup& other) const;
    bool operator!=(const CollectedGroup& other) const { return !(*this == other); }
};

/// "(code value)", for messages.
std::ostream& operator<<(std::ostream& to, const CollectedGroup& group);

/// Keeps the groups that are written to it, so that a writer of objects can be looked at without a file.
/// The text of a malformed group is not kept: only its code and the mark.
class GroupCollector final : public GroupWriter
{
public:
    explicit GroupCollector(const TextEncoding& encoding = TextEncoding()) : GroupWriter(encoding) {}
    bool finish() override { return true; }
    const std::vector<CollectedGroup>& groups() const { return _groups; }

protected:
    void putText(int code, std::string_view encoded) override;
    void putReal(int code, double value) override;
    void putInteger(int code, std::int64_t value) override;
    void putHandle(int code, std::uint64_t value) override;
    void putChunk(int code, std::string_view bytes) override;
    bool putMalformed(const Group& group) override;

private:
    std::vector<CollectedGroup> _groups;
};
} // namespace dxf
