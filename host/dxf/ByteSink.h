#pragma once

#include <string>
#include <string_view>

namespace dxf
{
/// Where the bytes of a writer go.
class ByteSink
{
public:
    virtual ~ByteSink() = default;
    /// False when they could not all be taken; later calls are false too.
    virtual bool append(std::string_view bytes) = 0;
};

/// Bytes kept in memory.
class MemorySink final : public ByteSink
{
public:
    bool append(std::string_view bytes) override
    {
        _bytes.append(bytes);
        return true;
    }
    const std::string& bytes() const { return _bytes; }

private:
    std::string _bytes;
};
} // namespace dxf
