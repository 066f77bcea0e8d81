#include "OutputBuffer.h"

namespace dxf
{
OutputBuffer::OutputBuffer(ByteSink& sink) : _sink(sink), _bytes(new char[capacity]) {}

void OutputBuffer::append(std::string_view bytes)
{
    if (bytes.size() > capacity - _used) flush();
    if (bytes.size() > capacity) {
        _isGood = _isGood && _sink.append(bytes);
        return;
    }
    bytes.copy(_bytes.get() + _used, bytes.size());
    _used += bytes.size();
}

bool OutputBuffer::flush()
{
    if (_used != 0) _isGood = _isGood && _sink.append({_bytes.get(), _used});
    _used = 0;
    return _isGood;
}
} // namespace dxf
