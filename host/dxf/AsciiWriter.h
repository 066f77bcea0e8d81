#pragma once

#include "GroupWriter.h"
#include "OutputBuffer.h"

namespace dxf
{
/// Writes an ASCII file. Codes stand in three columns, lines end with a carriage return and a line feed.
/// The end mark is the caller's: name(0, "EOF"), then finish().
class AsciiWriter final : public GroupWriter
{
public:
    AsciiWriter(ByteSink& sink, const TextEncoding& encoding);
    bool finish() override { return _out.flush(); }

protected:
    void putText(int code, std::string_view encoded) override;
    void putReal(int code, double value) override;
    void putInteger(int code, std::int64_t value) override;
    void putHandle(int code, std::uint64_t value) override;
    void putChunk(int code, std::string_view bytes) override;
    bool putMalformed(const Group& group) override;

private:
    char* startGroup(int code);
    void endGroup(char* end);
    void putLine(int code, std::string_view line);

    OutputBuffer _out;
};
} // namespace dxf
