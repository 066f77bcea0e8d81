#pragma once

#include "CGTStringW.h"

/// A private profile (INI) file. It is read and written anew by each call; a path without a folder means the
/// current one. The writing functions give 1, or 0 when the file cannot be written.
class CIniFile
{
public:
    explicit CIniFile(const CGTStringW& path);

    const CGTStringW& GetPath() const { return m_path; }

    /// The value of a key, of any length, or the fallback when there is none.
    CGTStringW ReadString(const CGTStringW& section, const CGTStringW& key,
                          const CGTStringW& fallback = CGTStringW()) const;
    int ReadInt(const CGTStringW& section, const CGTStringW& key, int fallback = 0) const;
    /// The fallback also when the value is not a number.
    double ReadDouble(const CGTStringW& section, const CGTStringW& key, double fallback = 0) const;

    int WriteString(const CGTStringW& section, const CGTStringW& key, const CGTStringW& value);
    int WriteInt(const CGTStringW& section, const CGTStringW& key, int value);
    /// Writes as many digits as give the same value when it is read.
    int WriteDouble(const CGTStringW& section, const CGTStringW& key, double value);

    /// Deleting what is not there succeeds.
    int DeleteKey(const CGTStringW& section, const CGTStringW& key);
    int DeleteSection(const CGTStringW& section);

    /// The names of all sections, or of the keys of one, replace the contents of `names`; their number.
    int GetSections(CStringArray& names) const;
    int GetKeys(const CGTStringW& section, CStringArray& names) const;

private:
    CGTStringW m_path;
};
