#include "ArchiveObjectMap.h"

#include <cstring>
#include <utility>

// An object is stored as a tag, its class when that is new, and what its Serialize writes. The tag is a
// word: 0 for null, the index of an object that was stored before, FFFF for a new object of a new class, or
// 8000 + index for a new object of a class that was stored before. The word 7FFF says that an index of four
// bytes follows, with the class mark in its highest bit.

namespace
{
constexpr WORD nullTag = 0;
constexpr WORD newClassTag = 0xffff;
constexpr WORD classTag = 0x8000;
constexpr WORD bigObjectTag = 0x7fff;
constexpr DWORD bigClassTag = 0x80000000;
constexpr DWORD largestCount = 0x3ffffffe;

// Objects that hold objects are loaded by recursion. Damaged data must not be able to use up the stack, so
// no more than this many levels are loaded, nor stored.
constexpr int deepestNesting = 4096;
constexpr WORD longestClassName = 63;

void checkNotNested(int depth, const CString& fileName)
{
    if (depth >= deepestNesting) AfxThrowArchiveException(CArchiveException::genericException, fileName);
}

/// Counts one level for as long as it lives.
struct Level {
    explicit Level(int& depth) : m_depth(++depth) {}
    ~Level() { --m_depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

private:
    int& m_depth;
};
} // namespace

DWORD CArchive::ObjectMap::take()
{
    if (count >= largestCount) AfxThrowArchiveException(CArchiveException::badIndex);
    return count++;
}

CArchive::ObjectMap& CArchive::objectMap()
{
    if (!m_objects) m_objects.reset(new ObjectMap);
    return *m_objects;
}

void CRuntimeClass::Store(CArchive& archive) const
{
    const WORD length = static_cast<WORD>(std::strlen(m_lpszClassName));
    archive << static_cast<WORD>(m_wSchema) << length;
    archive.Write(m_lpszClassName, length);
}

CRuntimeClass* PASCAL CRuntimeClass::Load(CArchive& archive, UINT* schema)
{
    WORD number, length;
    archive >> number >> length;
    *schema = number;
    if (length > longestClassName) return nullptr;
    char name[longestClassName + 1];
    archive.EnsureRead(name, length);
    name[length] = 0;
    return FromName(name);
}

void CArchive::writeTag(DWORD index, bool isClass)
{
    if (index < bigObjectTag)
        *this << static_cast<WORD>(isClass ? classTag | index : index);
    else
        *this << bigObjectTag << (isClass ? bigClassTag | index : index);
}

void CArchive::WriteClass(const CRuntimeClass* runtimeClass)
{
    ENSURE(runtimeClass != nullptr);
    checkStoring();
    if (runtimeClass->m_wSchema == AFX_NO_SCHEMA) AfxThrowNotSupportedException();
    ObjectMap& map = objectMap();
    const auto known = map.indices.find(runtimeClass);
    if (known != map.indices.end()) return writeTag(known->second, true);
    *this << newClassTag;
    runtimeClass->Store(*this);
    map.indices[runtimeClass] = map.take();
}

void CArchive::WriteObject(const CObject* object)
{
    checkStoring();
    ObjectMap& map = objectMap();
    if (!object) {
        *this << nullTag;
        return;
    }
    const auto known = map.indices.find(object);
    if (known != map.indices.end()) return writeTag(known->second, false);
    checkNotNested(map.depth, m_strFileName);
    const Level level(map.depth);
    WriteClass(object->GetRuntimeClass());
    map.indices[object] = map.take();
    // Serialize is not const because the same function loads.
    const_cast<CObject*>(object)->Serialize(*this);
}

/// Reads a tag. The index has bigClassTag set when the tag is a class's.
DWORD CArchive::readTag(WORD& shortTag)
{
    *this >> shortTag;
    DWORD tag;
    if (shortTag == bigObjectTag)
        *this >> tag;
    else
        tag = (static_cast<DWORD>(shortTag & classTag) << 16) | (shortTag & ~classTag);
    return tag;
}

CRuntimeClass* CArchive::readNewClass(UINT& schema)
{
    CRuntimeClass* const found = CRuntimeClass::Load(*this, &schema);
    if (!found) AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    const bool isVersionable = (found->m_wSchema & VERSIONABLE_SCHEMA) != 0;
    if ((found->m_wSchema & ~VERSIONABLE_SCHEMA) != schema && !isVersionable)
        AfxThrowArchiveException(CArchiveException::badSchema, m_strFileName);
    objectMap().take();
    objectMap().entries.push_back({nullptr, found, schema});
    return found;
}

CRuntimeClass* CArchive::ReadClass(const CRuntimeClass* requested, UINT* schema, DWORD* objectTag)
{
    checkLoading();
    if (requested && requested->m_wSchema == AFX_NO_SCHEMA) AfxThrowNotSupportedException();
    WORD shortTag;
    const DWORD tag = readTag(shortTag);
    if (!(tag & bigClassTag)) {
        if (!objectTag) AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        *objectTag = tag;
        return nullptr;
    }
    UINT readSchema = 0;
    CRuntimeClass* found = nullptr;
    if (shortTag == newClassTag) {
        found = readNewClass(readSchema);
    } else {
        const std::vector<ObjectMap::Entry>& entries = objectMap().entries;
        const DWORD index = tag & ~bigClassTag;
        if (index >= entries.size() || !entries[index].runtimeClass)
            AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
        found = entries[index].runtimeClass;
        readSchema = entries[index].schema;
    }
    if (requested && !found->IsDerivedFrom(requested))
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    (schema ? *schema : m_nObjectSchema) = readSchema;
    if (objectTag) *objectTag = tag;
    return found;
}

CObject* CArchive::readNewObject(CRuntimeClass* runtimeClass, UINT schema)
{
    ObjectMap& map = objectMap();
    checkNotNested(map.depth, m_strFileName);
    const Level level(map.depth);
    std::unique_ptr<CObject> object(runtimeClass->CreateObject());
    if (!object) AfxThrowMemoryException();
    const DWORD index = map.take();
    map.entries.push_back({object.get(), nullptr, 0});
    const UINT outerSchema = std::exchange(m_nObjectSchema, schema);
    try {
        object->Serialize(*this);
    } catch (...) {
        // It is deleted now, and with it what it owns: a later reference must not find any of them.
        for (size_t i = index; i < map.entries.size(); ++i)
            map.entries[i].object = nullptr;
        m_nObjectSchema = outerSchema;
        throw;
    }
    m_nObjectSchema = outerSchema;
    return object.release();
}

CObject* CArchive::ReadObject(const CRuntimeClass* requested)
{
    UINT schema = 0;
    DWORD tag = 0;
    CRuntimeClass* const runtimeClass = ReadClass(requested, &schema, &tag);
    if (runtimeClass) return readNewObject(runtimeClass, schema);
    if (tag == nullTag) return nullptr;
    const std::vector<ObjectMap::Entry>& entries = objectMap().entries;
    if (tag >= entries.size() || !entries[tag].object)
        AfxThrowArchiveException(CArchiveException::badIndex, m_strFileName);
    CObject* const object = entries[tag].object;
    if (requested && !object->IsKindOf(requested))
        AfxThrowArchiveException(CArchiveException::badClass, m_strFileName);
    return object;
}

void CArchive::SerializeClass(const CRuntimeClass* runtimeClass)
{
    if (IsStoring())
        WriteClass(runtimeClass);
    else
        ReadClass(runtimeClass);
}

void CArchive::MapObject(const CObject* object)
{
    ObjectMap& map = objectMap();
    if (!object) return;
    const DWORD index = map.take();
    if (IsStoring())
        map.indices[object] = index;
    else
        map.entries.push_back({const_cast<CObject*>(object), nullptr, 0});
}

void CArchive::SetStoreParams(UINT, UINT) {}

void CArchive::SetLoadParams(UINT) {}

UINT CArchive::GetObjectSchema()
{
    return std::exchange(m_nObjectSchema, static_cast<UINT>(-1));
}

CArchive& AFXAPI operator<<(CArchive& archive, const CObject* object)
{
    archive.WriteObject(object);
    return archive;
}

CArchive& AFXAPI operator>>(CArchive& archive, CObject*& object)
{
    object = archive.ReadObject(nullptr);
    return archive;
}

CArchive& AFXAPI operator>>(CArchive& archive, const CObject*& object)
{
    object = archive.ReadObject(nullptr);
    return archive;
}
