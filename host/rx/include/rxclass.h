#pragma once

/// Descriptors of run-time typed classes, and the class tree they form.

#include "rxobject.h"

#include <string>
#include <vector>

class AcRxClass;
using AcRxObjectMaker = AcRxObject* (*)();

/// Makes the descriptor of an abstract class, below `parent` (null: below AcRxObject). Returns null when a class of
/// that name is already registered, which is a programming error of the caller.
AcRxClass* newAcRxClass(const wchar_t* className, AcRxClass* parent);

/// Makes the descriptor of a class whose objects can be made: `maker` returns a new object, `dxfName` is the name
/// of its records in drawing files, `appName` the application and its description for proxies.
AcRxClass* newAcRxClass(const wchar_t* className, AcRxClass* parent, int proxyFlags, AcRxObjectMaker maker,
                        const wchar_t* dxfName, const wchar_t* appName = L"ObjectDBX Classes");

/// Removes a class and its descriptor. Objects of the class may not be used any more.
void deleteAcRxClass(AcRxClass* aClass);

/// Completes the class tree after classes were registered. Descriptors know their parent from the start here, so
/// there is nothing left to link; modules call it as they do in the product.
void acrxBuildClassHierarchy();

/// The descriptor registered under a class name, without regard to case; null when there is none.
AcRxClass* acrxClassOfName(const wchar_t* className);
/// The descriptor of the class whose records carry `dxfName` in drawing files; null when there is none.
AcRxClass* acrxClassOfDxfName(const wchar_t* dxfName);

/// What a proxy of a class may do with its objects while the class is absent (AcDbProxyObject flags).
namespace AcRxProxyFlags
{
enum : int { kNoProxyBits = 0, kEraseAllowed = 1, kAllAllowedBits = 1023, kDisablesProxyWarning = 1024 };
}

class AcRxClass : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcRxClass* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    const wchar_t* name() const { return mName.c_str(); }
    /// The record name in drawing files; null for classes without one.
    const wchar_t* dxfName() const { return mDxfName.empty() ? nullptr : mDxfName.c_str(); }
    /// The same in the bytes of files; empty for classes without one.
    const std::string& dxfRecordName() const { return mDxfRecordName; }
    const wchar_t* appName() const { return mAppName.c_str(); }
    int proxyFlags() const { return mProxyFlags; }
    AcRxClass* myParent() const { return mParent; }
    /// True for the classes of the host, which file their objects by tables; false for those of modules.
    bool isBuiltIn() const { return mIsBuiltIn; }

    /// A new object of the class, owned by the caller; null for abstract classes.
    AcRxObject* create() const { return mMaker ? mMaker() : nullptr; }

    /// True when this class is `ancestor` or lies below it.
    bool isDerivedFrom(const AcRxClass* ancestor) const
    {
        for (const AcRxClass* at = this; at; at = at->mParent) {
            if (at == ancestor) return true;
        }
        return false;
    }

    /// Hangs a protocol extension on the class; the extension stays the caller's. Returns what was there before.
    AcRxObject* addX(const AcRxClass* protocol, AcRxObject* extension);
    AcRxObject* delX(const AcRxClass* protocol);
    /// The extension of this class itself; bases are not asked.
    AcRxObject* getX(const AcRxClass* protocol) const;
    /// The extension of this class or of the nearest base that has one.
    AcRxObject* queryX(const AcRxClass* protocol) const;

private:
    friend AcRxClass* newAcRxClass(const wchar_t*, AcRxClass*, int, AcRxObjectMaker, const wchar_t*,
                                   const wchar_t*);
    friend AcRxClass* newAcRxClass(const wchar_t*, AcRxClass*);
    friend void deleteAcRxClass(AcRxClass*);
    friend struct RxClassAccess;
    friend struct ClassRegistration;
    AcRxClass() = default;
    ~AcRxClass() override = default;

    struct Extension {
        const AcRxClass* protocol;
        AcRxObject* object;
    };

    std::wstring mName, mDxfName, mAppName;
    std::string mDxfRecordName;
    AcRxClass* mParent = nullptr;
    AcRxObjectMaker mMaker = nullptr;
    int mProxyFlags = 0;
    bool mIsBuiltIn = false;
    std::vector<Extension> mExtensions;
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const
{
    const AcRxClass* own = isA();
    return aClass && own && own->isDerivedFrom(aClass);
}
