#pragma once

/// CArchive: a buffered, binary, little-endian form of numbers, texts and objects in a file.

#include "afxfile.h"

#include <memory>

/// Stores to, or loads from, a file in one pass. Reading from an archive that stores and writing to one
/// that loads throw CArchiveException (writeOnly, readOnly); data that end too early are endOfFile. File
/// errors are the file's.
class CArchive
{
public:
    enum Mode { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

    /// @param file        stays the caller's, open until the archive is closed
    /// @param mode        store or load; bNoFlushOnDelete: the destructor drops what Close would write
    /// @param bufferSize  in bytes, at least 128
    /// @param buffer      memory for the buffer, or null for the archive's own
    CArchive(CFile* file, UINT mode, int bufferSize = 4096, void* buffer = nullptr);
    /// Closes the archive. An error on the way is lost: call Close to hear of it.
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }
    BOOL IsByteSwapping() const { return FALSE; }
    BOOL IsBufferEmpty() const { return m_current == m_limit; }
    CFile* GetFile() const { return m_pFile; }

    /// Reads up to `count` bytes and returns how many: fewer only at the end of the file.
    UINT Read(void* buffer, UINT count);
    /// Reads exactly `count` bytes or throws endOfFile.
    void EnsureRead(void* buffer, UINT count);
    void Write(const void* buffer, UINT count);
    /// Storing: writes the buffer to the file. Loading: drops the buffer and moves the file's position to
    /// the first byte that was not read from the archive.
    void Flush();
    /// Flushes and lets go of the file.
    void Close();
    /// Lets go of the file without writing or throwing.
    void Abort();

    /// Many items of one size, which may be more bytes than a UINT counts.
    void WriteItems(const void* items, INT_PTR count, size_t itemSize);
    void ReadItems(void* items, INT_PTR count, size_t itemSize);

    /// Texts of UTF-16 units, without a length. WriteString writes no terminator.
    void WriteString(LPCTSTR text);
    /// Reads up to a line feed, a carriage return and line feed, the end of the data, or `maximum`
    /// UTF-16 units; the end of line is not part of the text, which needs room for maximum + 1. Null at
    /// the end of the data.
    LPTSTR ReadString(LPTSTR text, UINT maximum);
    /// The same for a line of any length; FALSE at the end of the data.
    BOOL ReadString(CString& text);

    /// Counts: 2 bytes, more for those of 0xFFFF and above.
    void WriteCount(DWORD_PTR count);
    DWORD_PTR ReadCount();

    CArchive& operator<<(BYTE value);
    CArchive& operator<<(WORD value);
    CArchive& operator<<(LONG value);
    CArchive& operator<<(DWORD value);
    CArchive& operator<<(float value);
    CArchive& operator<<(double value);
    CArchive& operator<<(LONGLONG value);
    CArchive& operator<<(ULONGLONG value);
    CArchive& operator<<(short value);
    CArchive& operator<<(char value);
    CArchive& operator<<(signed char value);
    /// One UTF-16 unit, 2 bytes; a character that is more than one throws CInvalidArgException.
    CArchive& operator<<(wchar_t value);
    CArchive& operator<<(bool value);
    CArchive& operator>>(BYTE& value);
    CArchive& operator>>(WORD& value);
    CArchive& operator>>(LONG& value);
    CArchive& operator>>(DWORD& value);
    CArchive& operator>>(float& value);
    CArchive& operator>>(double& value);
    CArchive& operator>>(LONGLONG& value);
    CArchive& operator>>(ULONGLONG& value);
    CArchive& operator>>(short& value);
    CArchive& operator>>(char& value);
    CArchive& operator>>(signed char& value);
    CArchive& operator>>(wchar_t& value);
    CArchive& operator>>(bool& value);
    // The width of `long` differs between platforms and that of an archive must not: say LONG or LONGLONG.
    CArchive& operator<<(long) = delete;
    CArchive& operator<<(unsigned long) = delete;
    CArchive& operator>>(long&) = delete;
    CArchive& operator>>(unsigned long&) = delete;

    /// Stores an object with its class, or a reference when it is in the archive already. Null is stored
    /// as such. CNotSupportedException for an object of a class without IMPLEMENT_SERIAL.
    void WriteObject(const CObject* object);
    /// Loads what WriteObject stored. A new object is the caller's; a reference gives the object that was
    /// loaded before. When loading an object fails it is deleted before the exception goes on.
    /// @param requested  the class that the object must be or derive from (badClass), or null for any
    CObject* ReadObject(const CRuntimeClass* requested);
    void WriteClass(const CRuntimeClass* runtimeClass);
    /// Loads a class reference.
    /// @param schema     receives the schema number in the data; when null, GetObjectSchema gives it
    /// @param objectTag  receives the index when the data refer to an object (the result is then null);
    ///                   without it such a reference is badIndex
    CRuntimeClass* ReadClass(const CRuntimeClass* requested = nullptr, UINT* schema = nullptr,
                             DWORD* objectTag = nullptr);
    /// Stores or loads a class whose objects are stored without their tags (a base or a member).
    void SerializeClass(const CRuntimeClass* runtimeClass);
    /// Gives an object that is not stored with WriteObject (a document, a root) an index of its own, so
    /// that others can refer to it. Both directions must do so at the same place.
    void MapObject(const CObject* object);
    /// Hints at the number of objects. The maps grow as they need: nothing changes.
    void SetStoreParams(UINT hashSize = 2053, UINT blockSize = 128);
    void SetLoadParams(UINT growBy = 1024);

    /// The schema number of the object that is being loaded; -1 from the second call in one Serialize on.
    UINT GetObjectSchema();
    void SetObjectSchema(UINT schema) { m_nObjectSchema = schema; }

    CString m_strFileName; ///< for error messages

protected:
    UINT m_nObjectSchema = static_cast<UINT>(-1);

private:
    struct ObjectMap;

    void checkStoring() const;
    void checkLoading() const;
    template <class TYPE>
    CArchive& putNumber(TYPE value);
    template <class TYPE>
    CArchive& getNumber(TYPE& value);
    template <class TYPE>
    CArchive& putFloating(TYPE value);
    template <class TYPE>
    CArchive& getFloating(TYPE& value);
    void writeBuffer();
    UINT fillBuffer();
    bool getUnit(std::uint16_t& unit);
    bool readLine(CString& text, size_t maximum);

    ObjectMap& objectMap();
    DWORD readTag(WORD& shortTag);
    CRuntimeClass* readNewClass(UINT& schema);
    CObject* readNewObject(CRuntimeClass* runtimeClass, UINT schema);
    void writeTag(DWORD index, bool isClass);

    UINT m_nMode;
    CFile* m_pFile;
    int m_bufferSize;
    std::unique_ptr<BYTE[]> m_ownBuffer;
    BYTE* m_start;
    BYTE* m_current; ///< the next byte to read or write
    BYTE* m_limit;   ///< end of what was read, or of the room to write
    std::unique_ptr<ObjectMap> m_objects;
};

/// An object pointer of any class; see ReadObject and WriteObject.
CArchive& AFXAPI operator<<(CArchive& archive, const CObject* object);
CArchive& AFXAPI operator>>(CArchive& archive, CObject*& object);
CArchive& AFXAPI operator>>(CArchive& archive, const CObject*& object);

/// Texts with their lengths. A wide text is stored as UTF-16 units behind the mark FF FE FF, a narrow one
/// as its bytes. Loading takes either form into either class, through the ANSI code page where they differ.
CArchive& AFXAPI operator<<(CArchive& archive, const CString& text);
CArchive& AFXAPI operator>>(CArchive& archive, CString& text);
CArchive& AFXAPI operator<<(CArchive& archive, const CStringA& text);
CArchive& AFXAPI operator>>(CArchive& archive, CStringA& text);

/// Structures of coordinates: their LONG members in order.
CArchive& AFXAPI operator<<(CArchive& archive, const SIZE& size);
CArchive& AFXAPI operator>>(CArchive& archive, SIZE& size);
CArchive& AFXAPI operator<<(CArchive& archive, const POINT& point);
CArchive& AFXAPI operator>>(CArchive& archive, POINT& point);
CArchive& AFXAPI operator<<(CArchive& archive, const RECT& rect);
CArchive& AFXAPI operator>>(CArchive& archive, RECT& rect);
