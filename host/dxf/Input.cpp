#include "Input.h"

#include "FileHandle.h"

#include <algorithm>

namespace dxf
{
namespace
{
/// Reads until `size` bytes are there or the file ends, and returns how many there are; a failure is a
/// number above `size`.
std::size_t readAll(HANDLE file, char* to, std::size_t size)
{
    constexpr std::size_t largestStep = std::size_t(1) << 30;
    std::size_t count = 0;
    while (count < size) {
        DWORD got = 0;
        if (!ReadFile(file, to + count, static_cast<DWORD>(std::min(size - count, largestStep)), &got,
                      nullptr))
            return size + 1;
        if (got == 0) break;
        count += got;
    }
    return count;
}
} // namespace

Input::Input(std::size_t size) : _bytes(new char[size + 1]), _size(size)
{
    _bytes[size] = '\0';
}

std::shared_ptr<const Input> Input::ofFile(const std::wstring& path, FileStatus& status)
{
    const FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file.isOpen() || !GetFileSizeEx(file.get(), &size)) {
        status = statusOfError(GetLastError());
        return nullptr;
    }
    std::shared_ptr<Input> input(new Input(static_cast<std::size_t>(size.QuadPart)));
    const std::size_t count = readAll(file.get(), input->_bytes.get(), input->_size);
    if (count > input->_size) {
        status = statusOfError(GetLastError());
        return nullptr;
    }
    input->_size = count;
    input->_bytes[count] = '\0';
    status = FileStatus::done;
    return input;
}

std::shared_ptr<const Input> Input::ofBytes(std::string_view bytes)
{
    std::shared_ptr<Input> input(new Input(bytes.size()));
    bytes.copy(input->_bytes.get(), bytes.size());
    return input;
}
} // namespace dxf
