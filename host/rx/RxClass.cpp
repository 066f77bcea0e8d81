#include "rxclass.h"

#include "rxdict.h"

#include <algorithm>
#include <map>
#include <memory>

struct RxClassAccess {
    static std::unique_ptr<AcRxClass, void (*)(AcRxClass*)> make()
    {
        return {new AcRxClass, [](AcRxClass* aClass) { delete aClass; }};
    }
    static void setName(AcRxClass& aClass, const wchar_t* name) { aClass.mName = name; }
    static void setParent(AcRxClass& aClass, AcRxClass* parent) { aClass.mParent = parent; }
};

namespace
{
/// Without the checked cast, which asks for a class that is just being made.
AcRxDictionary& classDictionary() { return *static_cast<AcRxDictionary*>(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY)); }

void listClass(AcRxClass& made)
{
    std::uint32_t id = 0;
    classDictionary().atPut(made.name(), &made, id);
}

using OwnedClass = std::unique_ptr<AcRxClass, void (*)(AcRxClass*)>;

struct NoCaseLess {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return _wcsicmp(a.c_str(), b.c_str()) < 0; }
};

/// Every registered class, and those that have records in drawing files.
struct Registry {
    std::map<std::wstring, OwnedClass, NoCaseLess> byName;
    std::map<std::wstring, AcRxClass*> byDxfName;
    AcRxClass* root = nullptr;
    AcRxClass* ofClasses = nullptr;

    Registry()
    {
        root = addRoot(L"AcRxObject", nullptr);
        ofClasses = addRoot(L"AcRxClass", root);
    }

    AcRxClass* addRoot(const wchar_t* name, AcRxClass* parent)
    {
        OwnedClass made = RxClassAccess::make();
        RxClassAccess::setName(*made, name);
        RxClassAccess::setParent(*made, parent);
        listClass(*made);
        return byName.emplace(name, std::move(made)).first->second.get();
    }
};

Registry& registry()
{
    static Registry classes;
    return classes;
}
} // namespace

AcRxObject::~AcRxObject() = default;
AcRxClass* AcRxObject::desc() { return registry().root; }
AcRxClass* AcRxObject::isA() const { return desc(); }
AcRxObject* AcRxObject::queryX(const AcRxClass* protocol) const { return isA()->queryX(protocol); }
AcRxObject* AcRxObject::clone() const { return nullptr; }
Acad::ErrorStatus AcRxObject::copyFrom(const AcRxObject*) { return Acad::eNotApplicable; }
bool AcRxObject::isEqualTo(const AcRxObject* other) const { return this == other; }

AcRx::Ordering AcRxObject::comparedTo(const AcRxObject* other) const
{
    return isEqualTo(other) ? AcRx::kEqual : AcRx::kNotOrderable;
}

AcRxClass* AcRxClass::desc() { return registry().ofClasses; }
AcRxClass* AcRxClass::isA() const { return desc(); }

AcRxClass* AcRxClass::cast(const AcRxObject* object)
{
    return object && object->isKindOf(desc()) ? const_cast<AcRxClass*>(static_cast<const AcRxClass*>(object)) : nullptr;
}

AcRxObject* AcRxClass::addX(const AcRxClass* protocol, AcRxObject* extension)
{
    AcRxObject* before = delX(protocol);
    mExtensions.push_back({protocol, extension});
    return before;
}

AcRxObject* AcRxClass::delX(const AcRxClass* protocol)
{
    const auto at = std::find_if(mExtensions.begin(), mExtensions.end(),
                                 [&](const Extension& e) { return e.protocol == protocol; });
    if (at == mExtensions.end()) return nullptr;
    AcRxObject* before = at->object;
    mExtensions.erase(at);
    return before;
}

AcRxObject* AcRxClass::getX(const AcRxClass* protocol) const
{
    for (const Extension& extension : mExtensions) {
        if (extension.protocol == protocol) return extension.object;
    }
    return nullptr;
}

AcRxObject* AcRxClass::queryX(const AcRxClass* protocol) const
{
    for (const AcRxClass* at = this; at; at = at->mParent) {
        if (AcRxObject* found = at->getX(protocol)) return found;
    }
    return nullptr;
}

AcRxClass* newAcRxClass(const wchar_t* className, AcRxClass* parent, int proxyFlags, AcRxObjectMaker maker,
                        const wchar_t* dxfName, const wchar_t* appName)
{
    Registry& classes = registry();
    if (!className || classes.byName.count(className)) return nullptr;
    OwnedClass made = RxClassAccess::make();
    made->mName = className;
    made->mParent = parent ? parent : classes.root;
    made->mProxyFlags = proxyFlags;
    made->mMaker = maker;
    made->mDxfName = dxfName ? dxfName : L"";
    for (const wchar_t* at = made->mDxfName.c_str(); *at; ++at) made->mDxfRecordName += static_cast<char>(*at);
    made->mAppName = appName ? appName : L"";
    AcRxClass* registered = classes.byName.emplace(className, std::move(made)).first->second.get();
    listClass(*registered);
    if (registered->dxfName()) classes.byDxfName.emplace(registered->dxfName(), registered);
    return registered;
}

AcRxClass* newAcRxClass(const wchar_t* className, AcRxClass* parent)
{
    return newAcRxClass(className, parent, 0, nullptr, nullptr, nullptr);
}

void deleteAcRxClass(AcRxClass* aClass)
{
    if (!aClass) return;
    Registry& classes = registry();
    if (aClass->dxfName()) {
        const auto at = classes.byDxfName.find(aClass->dxfName());
        if (at != classes.byDxfName.end() && at->second == aClass) classes.byDxfName.erase(at);
    }
    classDictionary().remove(aClass->name());
    classes.byName.erase(std::wstring(aClass->name()));
}

void acrxBuildClassHierarchy() {}

AcRxClass* acrxClassOfName(const wchar_t* className)
{
    const auto at = className ? registry().byName.find(className) : registry().byName.end();
    return at == registry().byName.end() ? nullptr : at->second.get();
}

AcRxClass* acrxClassOfDxfName(const wchar_t* dxfName)
{
    const auto at = dxfName ? registry().byDxfName.find(dxfName) : registry().byDxfName.end();
    return at == registry().byDxfName.end() ? nullptr : at->second;
}
