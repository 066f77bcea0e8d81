#pragma once

#include "Handle.h"
#include "OpenFiles.h"

#include <string>

namespace win32
{
/// An open file: the descriptor, and what CreateFileW promised to its caller and to others.
class File : public Object
{
public:
    /// Takes the descriptor over. `path` is removed on destruction when `deleteOnClose`.
    File(int descriptor, const Opening& opening, std::string path, bool deleteOnClose);
    ~File() override;

    /// Registers the opening; false when it is in conflict with another one of this process.
    bool share();

    int descriptor() const { return _descriptor; }
    const Opening& opening() const { return _opening; }

private:
    int _descriptor;
    Opening _opening;
    std::string _path;
    bool _deleteOnClose;
    bool _isShared = false;
};
} // namespace win32
