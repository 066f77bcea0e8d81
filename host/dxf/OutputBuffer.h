#pragma once

#include "ByteSink.h"

#include <cstring>
#include <memory>

namespace dxf
{
/// Collects small pieces into large ones for a sink.
class OutputBuffer
{
public:
    explicit OutputBuffer(ByteSink& sink);

    /// Room for `count` bytes, at most largestPiece; what was written there counts after advance(end).
    char* room(std::size_t count)
    {
        if (count > capacity - _used) flush();
        return _bytes.get() + _used;
    }
    void advance(const char* end) { _used = static_cast<std::size_t>(end - _bytes.get()); }

    void append(std::string_view bytes);

    /// Hands everything to the sink. False when the sink has refused anything so far.
    bool flush();

    static constexpr std::size_t largestPiece = 1024;

private:
    static constexpr std::size_t capacity = 256 * 1024;

    ByteSink& _sink;
    std::unique_ptr<char[]> _bytes;
    std::size_t _used = 0;
    bool _isGood = true;
};
} // namespace dxf
