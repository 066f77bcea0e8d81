#pragma once

#include "CGTStringW.h"

/// A key of the registry, open from Open or Create until Close or the end of the object. The functions give
/// 1, or 0 when the key is not open or the registry refuses; GetError then has its error code.
class CGTRegKey
{
public:
    CGTRegKey() = default;
    /// As Create; ask IsOpen.
    CGTRegKey(HKEY root, const CGTStringW& path) { Create(root, path); }
    ~CGTRegKey() { Close(); }
    CGTRegKey(const CGTRegKey&) = delete;
    CGTRegKey& operator=(const CGTRegKey&) = delete;

    /// Opens a key that exists, for reading only or for writing too.
    int Open(HKEY root, const CGTStringW& path, bool readOnly = false);
    /// Opens a key for reading and writing, and makes it and those above it when they are missing.
    int Create(HKEY root, const CGTStringW& path);
    void Close();
    bool IsOpen() const { return m_key != nullptr; }
    LSTATUS GetError() const { return m_error; }

    /// The value, unchanged when there is none of that name and type.
    int ReadString(const CGTStringW& name, CGTStringW& value) const;
    int ReadDword(const CGTStringW& name, DWORD& value) const;
    int WriteString(const CGTStringW& name, const CGTStringW& value);
    int WriteDword(const CGTStringW& name, DWORD value);
    int DeleteValue(const CGTStringW& name);
    /// Deletes a key below this one with all that is in it.
    int DeleteKey(const CGTStringW& name);

    /// The names of the keys below this one, or of its values, replace the contents of `names`.
    int GetKeys(CStringArray& names) const;
    int GetValues(CStringArray& names) const;

private:
    int done(LSTATUS status) const;

    HKEY m_key = nullptr;
    mutable LSTATUS m_error = ERROR_SUCCESS;
};
