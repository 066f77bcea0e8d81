#include "afxobject.h"

#include <cstring>
#include <mutex>
#include <new>
#include <string>

namespace
{
/// The classes known by name, linked through m_pNextClass. Modules enter and leave while others look up.
struct Registry {
    std::mutex mutex;
    CRuntimeClass* first = nullptr;

    CRuntimeClass* find(LPCSTR name) const
    {
        CRuntimeClass* found = first;
        while (found && std::strcmp(found->m_lpszClassName, name) != 0)
            found = found->m_pNextClass;
        return found;
    }
};

// Made by the first class that registers, so it outlives the last one that leaves.
Registry& registry()
{
    static Registry instance;
    return instance;
}

/// Class names are C++ identifiers; a name with anything else in it is no class's name.
std::string asciiName(LPCWSTR name)
{
    std::string ascii;
    for (; *name && *name < 0x80; ++name)
        ascii += static_cast<char>(*name);
    return *name ? std::string() : ascii;
}
} // namespace

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCSTR className)
{
    if (!className) return nullptr;
    const std::lock_guard<std::mutex> lock(registry().mutex);
    return registry().find(className);
}

CRuntimeClass* PASCAL CRuntimeClass::FromName(LPCWSTR className)
{
    return className ? FromName(asciiName(className).c_str()) : nullptr;
}

CObject* CRuntimeClass::CreateObject()
{
    if (!m_pfnCreateObject) return nullptr;
    try {
        return m_pfnCreateObject();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCSTR className)
{
    CRuntimeClass* found = FromName(className);
    return found ? found->CreateObject() : nullptr;
}

CObject* PASCAL CRuntimeClass::CreateObject(LPCWSTR className)
{
    CRuntimeClass* found = FromName(className);
    return found ? found->CreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const
{
    const CRuntimeClass* ancestor = this;
    while (ancestor && ancestor != baseClass)
        ancestor = ancestor->m_pBaseClass;
    return ancestor != nullptr;
}

BOOL AFXAPI AfxClassInit(CRuntimeClass* newClass)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    if (registry().find(newClass->m_lpszClassName)) {
        TRACE(L"The class %hs is registered already; the second is refused.\n", newClass->m_lpszClassName);
        return FALSE;
    }
    newClass->m_pNextClass = registry().first;
    registry().first = newClass;
    return TRUE;
}

void AFXAPI AfxClassTerm(CRuntimeClass* oldClass)
{
    const std::lock_guard<std::mutex> lock(registry().mutex);
    CRuntimeClass** link = &registry().first;
    while (*link && *link != oldClass)
        link = &(*link)->m_pNextClass;
    if (*link) *link = oldClass->m_pNextClass;
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* newClass) : m_class(AfxClassInit(newClass) ? newClass : nullptr)
{
}

AFX_CLASSINIT::~AFX_CLASSINIT()
{
    if (m_class) AfxClassTerm(m_class);
}
