#include "afxobject.h"

CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), AFX_NO_SCHEMA, nullptr, nullptr, nullptr};

CDumpContext afxDump;

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

BOOL CObject::IsSerializable() const
{
    return GetRuntimeClass()->m_wSchema != AFX_NO_SCHEMA;
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& context) const
{
    context << "a " << GetRuntimeClass()->m_lpszClassName << " at " << static_cast<const void*>(this) << "\n";
}

CObject* AFX_CDECL AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object)
{
    return object && object->IsKindOf(runtimeClass) ? object : nullptr;
}

CObject* AFX_CDECL AfxStaticDownCast([[maybe_unused]] CRuntimeClass* runtimeClass, CObject* object)
{
    ASSERT(!object || object->IsKindOf(runtimeClass));
    return object;
}

CDumpContext& CDumpContext::operator<<(LPCWSTR text)
{
    AfxTrace(L"%ls", text ? text : L"(null)");
    return *this;
}

CDumpContext& CDumpContext::operator<<(LPCSTR text)
{
    AfxTrace(L"%hs", text ? text : "(null)");
    return *this;
}

CDumpContext& CDumpContext::operator<<(int value)
{
    AfxTrace(L"%d", value);
    return *this;
}

CDumpContext& CDumpContext::operator<<(UINT value)
{
    AfxTrace(L"%u", value);
    return *this;
}

CDumpContext& CDumpContext::operator<<(double value)
{
    AfxTrace(L"%g", value);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* address)
{
    AfxTrace(L"%p", address);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const CObject* object)
{
    if (!object) return *this << L"(null)";
    object->Dump(*this);
    return *this;
}
