#pragma once

#include "ByteSink.h"
#include "FileHandle.h"
#include "FileStatus.h"

namespace dxf
{
/// A file that is there whole or not at all. What is appended goes to a temporary file beside the target;
/// commit() brings it to the disk and renames it over the target. Until then, and whenever anything fails,
/// the target is what it was. The temporary file is deleted when saving fails or is given up; only a
/// process that is killed leaves it behind ("name.<process>-<count>.tmp").
class AtomicFile final : public ByteSink
{
public:
    /// Starts saving to `path`, as CreateFileW takes it. A target that is read-only or a folder is refused.
    explicit AtomicFile(std::wstring path);
    ~AtomicFile() override;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    bool append(std::string_view bytes) override;

    /// Puts the new file in the target's place. With another status than done the target is unchanged.
    FileStatus commit();

    /// The first failure so far, or done.
    FileStatus status() const { return _status; }

private:
    void open();
    bool fail(DWORD error);
    void discard();

    std::wstring _path;
    std::wstring _temporary; ///< empty when there is no temporary file
    FileHandle _file;
    FileStatus _status = FileStatus::done;
};
} // namespace dxf
