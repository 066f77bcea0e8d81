#pragma once

#include "GroupWriter.h"
#include "OutputBuffer.h"

namespace dxf
{
/// Writes a binary file, in the form that BinaryReader.h tells. The end mark is the caller's:
/// name(0, "EOF"), then finish().
class BinaryWriter final : public GroupWriter
{
public:
    enum class Start {
        sentinel, ///< a file
        none,     ///< groups alone, for a BinaryReader of such
    };
    /// `hasWideCodes`: as of R13 a code takes two bytes, hasWideCodes(version).
    BinaryWriter(ByteSink& sink, const TextEncoding& encoding, bool hasWideCodes,
                 Start start = Start::sentinel);
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

    OutputBuffer _out;
    bool _hasWideCodes;
};
} // namespace dxf
