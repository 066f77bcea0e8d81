#pragma once

#include "GroupReader.h"

namespace dxf
{
/// The reader of ASCII files: a line with the code, a line with the value. Lines end with a line feed,
/// a carriage return or both, all in the way of the file's first line; the last one may have no end.
/// A byte order mark and what follows a Ctrl-Z in place of a code are not read.
class AsciiReader final : public GroupReader
{
public:
    explicit AsciiReader(std::shared_ptr<const Input> input);
    bool isBinary() const override { return false; }

protected:
    bool read(Group& group) override;

private:
    bool readCode(Group& group);
    int takeCode();
    void readValue(Group& group);
    void readReal(Group& group);
    void readInteger(Group& group);
    void cutFraction(Group& group);
    void readHandle(Group& group);
    void readChunk(Group& group);
    std::string_view finishNumber(Group& group, const char* end);
    void markMalformed(Group& group, FaultKind kind);

    bool takeLineEnd(const char* at);
    std::string_view takeLine();
    void skipBlanks();
    void finish();

    const char* _at;
    const char* _end;
    std::size_t _line = 1; ///< the line at _at
    char _lineEnd = '\n'; ///< the byte that ends each line; a carriage return before a line feed goes with it
    bool _isFinished = false;
};
} // namespace dxf
