#pragma once

#include "windef.h"

#include <sys/types.h>

namespace win32
{
/// A file of this machine, whatever name it was opened by.
struct FileIdentity {
    dev_t device;
    ino_t inode;
};

/// One opening of a file, as CreateFileW was asked for it.
struct Opening {
    FileIdentity file;
    bool reads;
    bool writes;
    bool deletes;
    DWORD share; ///< FILE_SHARE_...: what others may do meanwhile
};

/// The openings of this process: share modes and locked ranges are enforced among them. Other processes
/// are not seen.

/// Registers an opening under its address. False, and not registered, when its access or its share mode
/// is in conflict with one that exists. An opening without access takes no part in sharing.
bool addOpening(const Opening* opening);

/// Forgets the opening and the ranges it locked.
void removeOpening(const Opening* opening);

/// True when every opening of the file lets others delete or rename it.
bool mayDelete(const FileIdentity& file);

/// Locks bytes for one opening. False when a byte is locked already, by this opening too.
bool lockRange(const Opening* opening, ULONGLONG start, ULONGLONG length);

/// Unlocks exactly a range that the opening locked before; false when there is none.
bool unlockRange(const Opening* opening, ULONGLONG start, ULONGLONG length);

/// True when another opening of the same file has locked one of the bytes.
bool isLockedByOther(const Opening* opening, ULONGLONG start, ULONGLONG length);
} // namespace win32
