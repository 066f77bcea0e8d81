#include "File.h"

#include <unistd.h>

namespace win32
{
File::File(int descriptor, const Opening& opening, std::string path, bool deleteOnClose)
    : _descriptor(descriptor), _opening(opening), _path(std::move(path)), _deleteOnClose(deleteOnClose)
{
}

File::~File()
{
    if (_isShared) {
        removeOpening(&_opening);
        if (_deleteOnClose) unlink(_path.c_str());
    }
    close(_descriptor);
}

bool File::share()
{
    return _isShared = addOpening(&_opening);
}
} // namespace win32
