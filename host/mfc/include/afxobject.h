#pragma once

/// Run-time classes: what an object is, what it derives from, and its creation from a class name.
///
/// A class takes part by one pair of macros: DECLARE_x(class) in its declaration and
/// IMPLEMENT_x(class, base) in one source file.
///   DYNAMIC    it can be asked for its kind (IsKindOf, DYNAMIC_DOWNCAST)
///   DYNCREATE  also: it can be created from its CRuntimeClass; needs a default constructor
///   SERIAL     also: it can be created from its name, by an archive; takes a schema number

#include "afxassert.h"

class CArchive;
class CDumpContext;
class CObject;
struct AFX_CLASSINIT;

/// Added to the schema number of IMPLEMENT_SERIAL: objects of other schema numbers can be read too.
/// Serialize finds the number that was read with CArchive::GetObjectSchema.
constexpr UINT VERSIONABLE_SCHEMA = 0x80000000u;

/// The schema number of a class that is not serialisable.
constexpr UINT AFX_NO_SCHEMA = 0xffffu;

struct CRuntimeClass {
    LPCSTR m_lpszClassName;
    int m_nObjectSize; ///< sizeof the class, in bytes
    UINT m_wSchema;    ///< schema number of its stored form, AFX_NO_SCHEMA when it has none
    CObject*(PASCAL* m_pfnCreateObject)(); ///< null for a class that cannot be created by name
    CRuntimeClass* m_pBaseClass;           ///< null for CObject
    CRuntimeClass* m_pNextClass;           ///< in the list of the classes that are known by name

    /// A new object, owned by the caller; null when the class cannot be created or memory is out.
    CObject* CreateObject();
    static CObject* PASCAL CreateObject(LPCSTR className);
    static CObject* PASCAL CreateObject(LPCWSTR className);
    /// Whether this class is the other one or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* baseClass) const;
    /// The class of that name among those with IMPLEMENT_SERIAL in the loaded modules; null for none.
    static CRuntimeClass* PASCAL FromName(LPCSTR className);
    static CRuntimeClass* PASCAL FromName(LPCWSTR className);

    /// Writes schema number and name, as archives hold them.
    void Store(CArchive& archive) const;
    /// Reads what Store wrote: the class and, in *schema, the number that was read. Null when no class of
    /// that name is known or the name is longer than any class name may be (63 bytes).
    static CRuntimeClass* PASCAL Load(CArchive& archive, UINT* schema);
};

/// Makes a class known by its name for as long as the module that holds this object is loaded.
struct AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* newClass);
    ~AFX_CLASSINIT();
    AFX_CLASSINIT(const AFX_CLASSINIT&) = delete;
    AFX_CLASSINIT& operator=(const AFX_CLASSINIT&) = delete;

private:
    CRuntimeClass* m_class; ///< null when the name was refused
};

/// Enters a class under its name. A second class of the same name is refused (FALSE): the first keeps the
/// name, and the refusal is written to the debugger's output.
BOOL AFXAPI AfxClassInit(CRuntimeClass* newClass);
/// Takes a class out again; nothing happens when it is not entered.
void AFXAPI AfxClassTerm(CRuntimeClass* oldClass);

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

/// Base of every class with run-time information. Objects are not copied unless a derived class says how.
class CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;

    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;
    /// Whether the class was implemented with IMPLEMENT_SERIAL.
    BOOL IsSerializable() const;

    /// Stores the object in, or loads it from, the archive. The base has nothing to store.
    virtual void Serialize(CArchive& archive);
    /// Asserts that the members are consistent.
    virtual void AssertValid() const;
    /// Writes the class name and the address.
    virtual void Dump(CDumpContext& context) const;

    static CRuntimeClass classCObject;
    static CRuntimeClass* PASCAL GetThisClass() { return &classCObject; }

protected:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
};

/// Where Dump writes: the debugger's output.
class CDumpContext
{
public:
    CDumpContext& operator<<(LPCWSTR text);
    CDumpContext& operator<<(LPCSTR text);
    CDumpContext& operator<<(int value);
    CDumpContext& operator<<(UINT value);
    CDumpContext& operator<<(double value);
    CDumpContext& operator<<(const void* address);
    CDumpContext& operator<<(const CObject* object);
    int GetDepth() const { return m_depth; }
    void SetDepth(int depth) { m_depth = depth; }

private:
    int m_depth = 0;
};
extern CDumpContext afxDump;

CObject* AFX_CDECL AfxDynamicDownCast(CRuntimeClass* runtimeClass, CObject* object);
CObject* AFX_CDECL AfxStaticDownCast(CRuntimeClass* runtimeClass, CObject* object);

/// The object as a pointer to that class; null when it is null or of another kind.
#define DYNAMIC_DOWNCAST(class_name, object)                                                                 \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), (object))))
/// The same for an object that is known to be of the kind: asserted, not checked.
#define STATIC_DOWNCAST(class_name, object)                                                                  \
    (static_cast<class_name*>(AfxStaticDownCast(RUNTIME_CLASS(class_name), (object))))

#define DECLARE_DYNAMIC(class_name)                                                                          \
public:                                                                                                      \
    static CRuntimeClass class##class_name;                                                                  \
    static CRuntimeClass* PASCAL GetThisClass()                                                              \
    {                                                                                                        \
        return &class##class_name;                                                                           \
    }                                                                                                        \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                                        \
    DECLARE_DYNAMIC(class_name)                                                                              \
    static CObject* PASCAL CreateObject();

#define DECLARE_SERIAL(class_name)                                                                           \
    DECLARE_DYNCREATE(class_name)                                                                            \
    friend CArchive& AFXAPI operator>>(CArchive& archive, class_name*& object);

#define QM_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, create)                               \
    CRuntimeClass class_name::class##class_name = {                                                          \
        #class_name, sizeof(class_name), schema, create, RUNTIME_CLASS(base_class_name), nullptr};           \
    [[maybe_unused]] CRuntimeClass* class_name::GetRuntimeClass() const                                      \
    {                                                                                                        \
        return RUNTIME_CLASS(class_name);                                                                    \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                       \
    QM_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, AFX_NO_SCHEMA, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                     \
    CObject* PASCAL class_name::CreateObject()                                                               \
    {                                                                                                        \
        return new class_name;                                                                               \
    }                                                                                                        \
    QM_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, AFX_NO_SCHEMA, class_name::CreateObject)

/// The operator >> reads a pointer to a new object; use it with <afx.h>, which declares the archive.
#define IMPLEMENT_SERIAL(class_name, base_class_name, schema)                                                \
    CObject* PASCAL class_name::CreateObject()                                                               \
    {                                                                                                        \
        return new class_name;                                                                               \
    }                                                                                                        \
    QM_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, class_name::CreateObject)                 \
    static const AFX_CLASSINIT classInit##class_name(RUNTIME_CLASS(class_name));                             \
    [[maybe_unused]] CArchive& AFXAPI operator>>(CArchive& archive, class_name*& object)                     \
    {                                                                                                        \
        object = static_cast<class_name*>(archive.ReadObject(RUNTIME_CLASS(class_name)));                    \
        return archive;                                                                                      \
    }
