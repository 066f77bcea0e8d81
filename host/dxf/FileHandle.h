#pragma once

#include <windows.h>

namespace dxf
{
/// An open file, closed at the end of the scope.
class FileHandle
{
public:
    explicit FileHandle(HANDLE handle = INVALID_HANDLE_VALUE) : _handle(handle) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() { close(); }

    bool isOpen() const { return _handle != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return _handle; }
    /// Takes over another file.
    void reset(HANDLE handle)
    {
        close();
        _handle = handle;
    }
    /// False when the system reports that the file could not be closed well. True when none is open.
    bool close()
    {
        const HANDLE handle = _handle;
        _handle = INVALID_HANDLE_VALUE;
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle);
    }

private:
    HANDLE _handle;
};
} // namespace dxf
