#pragma once

/// A dictionary of run-time objects under names, and the registry of the program's own dictionaries.

#include "rxclass.h"

#include <cstdint>
#include <memory>

class AcRxDictionaryIterator;
struct RxDictionaryEntries;

/// Names are kept as first given; without `ignoreCase` they are told apart by case.
class AcRxDictionary : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcRxDictionary* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    explicit AcRxDictionary(bool deletesObjects = false, bool ignoreCase = false);
    ~AcRxDictionary() override;

    /// The object under a name or a number; null when there is none. It stays the dictionary's.
    virtual AcRxObject* at(const wchar_t* key) const;
    virtual AcRxObject* at(std::uint32_t id) const;
    /// Puts an object under a name; `id` is the entry's number, the same as before when the name was there. Returns
    /// the object that was there; null when there was none or when the dictionary deletes its objects. A null name is
    /// refused: `id` is 0.
    virtual AcRxObject* atPut(const wchar_t* key, AcRxObject* object, std::uint32_t& id);
    /// Takes an entry out and returns its object, which is the caller's now if the dictionary deletes its objects.
    virtual AcRxObject* remove(const wchar_t* key);
    virtual bool has(const wchar_t* key) const;
    virtual std::uint32_t numEntries() const;
    virtual bool deletesObjects() const { return mDeletesObjects; }
    virtual bool isCaseSensitive() const;
    /// Goes over the entries in the order of their names. The caller deletes it.
    virtual AcRxDictionaryIterator* newIterator() const;

private:
    bool mDeletesObjects;
    std::unique_ptr<RxDictionaryEntries> mEntries;
};

/// An iterator over the entries that were there when it was made; their objects must live.
class AcRxDictionaryIterator
{
public:
    virtual ~AcRxDictionaryIterator() = default;
    virtual bool done() const = 0;
    virtual bool next() = 0;
    /// Null when it is done.
    virtual const wchar_t* key() const = 0;
    virtual AcRxObject* object() const = 0;
};

#define ACRX_CLASS_DICTIONARY L"ClassDictionary"
#define ACRX_SERVICE_DICTIONARY L"ServiceDictionary"
#define ACRX_DYNAMIC_LINKER L"DynamicLinker"

/// The registry that holds the class dictionary, the services, the linker and the command stack; never null.
AcRxDictionary* acrxSysRegistry();

#define acrxClassDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_CLASS_DICTIONARY))
#define acrxServiceDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_SERVICE_DICTIONARY))
