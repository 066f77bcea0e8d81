#pragma once

#include <afxwin.h>

/// The application's configuration: the installation directory, the records in "record.ini" and the log
/// "log.txt" there. One object serves the process, for the main thread. Results are 1 for success and 0 for
/// failure.
class AFX_EXT_CLASS ConfigManager
{
public:
    /// The object, made on first use; Initiate has not been called then.
    static ConfigManager& Instance();

    ConfigManager(const ConfigManager&) = delete;
    ConfigManager& operator=(const ConfigManager&) = delete;
    ~ConfigManager();

    /// Finds the installation directory (the parent of this module's folder) and with it the two files. 0
    /// when the path of the module cannot be had: the directory is "C:\" then, and records and log stay what
    /// they were.
    int Initiate();

    /// The value of a key of "record.ini", at most 511 characters of it. 0, and `value` as it was, when
    /// nothing was read: no such key or an empty value.
    int GetRecord(CString& value, const CString& section, const CString& key);

    /// Adds a line "[yyyy-mm-dd hh:mm:ss] text" in local time to the log, in the ANSI code page and closed by
    /// CR LF. What goes beyond 4999 bytes is cut off, the line end too. Without a log file that can be
    /// written the line is lost.
    void WriteLog(const CString& text);

private:
    ConfigManager();
    int __GetInstallDir();

    CString m_installDir; ///< with its backslash
    CString m_logPath;
    CString m_recordPath;
};
