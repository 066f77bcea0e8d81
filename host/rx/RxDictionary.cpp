#include "rxdict.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace
{
struct KeyLess {
    bool ignoreCase;
    bool operator()(const std::wstring& a, const std::wstring& b) const
    {
        return (ignoreCase ? _wcsicmp(a.c_str(), b.c_str()) : a.compare(b)) < 0;
    }
};

struct Entry {
    AcRxObject* object;
    std::uint32_t id;
};
} // namespace

struct RxDictionaryEntries {
    explicit RxDictionaryEntries(bool ignoreCase) : byKey(KeyLess{ignoreCase}) {}
    std::map<std::wstring, Entry, KeyLess> byKey;
    std::map<std::uint32_t, AcRxObject*> byId;
    std::uint32_t nextId = 1;
};

namespace
{
class Iterator : public AcRxDictionaryIterator
{
public:
    explicit Iterator(const RxDictionaryEntries& entries)
    {
        for (const auto& [key, entry] : entries.byKey) mEntries.emplace_back(key, entry.object);
    }
    bool done() const override { return mAt >= mEntries.size(); }
    bool next() override
    {
        if (!done()) ++mAt;
        return !done();
    }
    const wchar_t* key() const override { return done() ? nullptr : mEntries[mAt].first.c_str(); }
    AcRxObject* object() const override { return done() ? nullptr : mEntries[mAt].second; }

private:
    std::vector<std::pair<std::wstring, AcRxObject*>> mEntries;
    std::size_t mAt = 0;
};

AcRxClass* dictionaryClass()
{
    static AcRxClass* const made = newAcRxClass(L"AcRxDictionary", AcRxObject::desc());
    return made;
}
} // namespace

AcRxClass* AcRxDictionary::desc() { return dictionaryClass(); }
AcRxClass* AcRxDictionary::isA() const { return dictionaryClass(); }

AcRxDictionary* AcRxDictionary::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcRxDictionary*>(static_cast<const AcRxDictionary*>(object)) : nullptr;
}

AcRxDictionary::AcRxDictionary(bool deletesObjects, bool ignoreCase)
    : mDeletesObjects(deletesObjects), mEntries(std::make_unique<RxDictionaryEntries>(ignoreCase))
{
}

AcRxDictionary::~AcRxDictionary()
{
    if (!mDeletesObjects) return;
    for (const auto& [key, entry] : mEntries->byKey) delete entry.object;
}

AcRxObject* AcRxDictionary::at(const wchar_t* key) const
{
    const auto found = key ? mEntries->byKey.find(key) : mEntries->byKey.end();
    return found == mEntries->byKey.end() ? nullptr : found->second.object;
}

AcRxObject* AcRxDictionary::at(std::uint32_t id) const
{
    const auto found = mEntries->byId.find(id);
    return found == mEntries->byId.end() ? nullptr : found->second;
}

AcRxObject* AcRxDictionary::atPut(const wchar_t* key, AcRxObject* object, std::uint32_t& id)
{
    id = 0;
    if (!key) return nullptr;
    Entry& entry = mEntries->byKey.try_emplace(key, Entry{nullptr, 0}).first->second;
    AcRxObject* before = std::exchange(entry.object, object);
    if (entry.id == 0) entry.id = mEntries->nextId++;
    mEntries->byId[entry.id] = object;
    id = entry.id;
    if (!mDeletesObjects || before == object) return before;
    delete before;
    return nullptr;
}

AcRxObject* AcRxDictionary::remove(const wchar_t* key)
{
    const auto found = key ? mEntries->byKey.find(key) : mEntries->byKey.end();
    if (found == mEntries->byKey.end()) return nullptr;
    AcRxObject* object = found->second.object;
    mEntries->byId.erase(found->second.id);
    mEntries->byKey.erase(found);
    return object;
}

bool AcRxDictionary::has(const wchar_t* key) const { return key && mEntries->byKey.count(key) != 0; }
std::uint32_t AcRxDictionary::numEntries() const { return static_cast<std::uint32_t>(mEntries->byKey.size()); }
bool AcRxDictionary::isCaseSensitive() const { return !mEntries->byKey.key_comp().ignoreCase; }
AcRxDictionaryIterator* AcRxDictionary::newIterator() const { return new Iterator(*mEntries); }

AcRxDictionary* acrxSysRegistry()
{
    static AcRxDictionary& registry = *new AcRxDictionary;
    static const bool filled = [] {
        std::uint32_t id = 0;
        registry.atPut(ACRX_CLASS_DICTIONARY, new AcRxDictionary(false, true), id);
        registry.atPut(ACRX_SERVICE_DICTIONARY, new AcRxDictionary(true), id);
        return true;
    }();
    (void)filled;
    return &registry;
}
