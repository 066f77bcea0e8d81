#pragma once

/// CMap: values found by key.

#include "afxelement.h"

#include <utility>
#include <vector>

/// A hash table. Keys are compared by CompareElements and hashed by HashKey. Going through the map gives
/// the pairs in the order in which their keys were first set; a POSITION stays valid until its pair is
/// removed.
///
/// @tparam KEY, VALUE          what is stored
/// @tparam ARG_KEY, ARG_VALUE  how it is handed over
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject
{
public:
    struct CPair {
        const KEY key;
        VALUE value;
    };

    /// The block size, a hint about memory in MFC, has no effect.
    explicit CMap(INT_PTR = 10) {}
    ~CMap() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_nCount; }
    INT_PTR GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    /// FALSE, and `value` unchanged, when there is no such key.
    BOOL Lookup(ARG_KEY key, VALUE& value) const
    {
        const Assoc* found = find(key, HashKey<ARG_KEY>(key));
        if (found) value = found->value;
        return found != nullptr;
    }
    /// The pair, or null.
    const CPair* PLookup(ARG_KEY key) const { return find(key, HashKey<ARG_KEY>(key)); }
    CPair* PLookup(ARG_KEY key) { return find(key, HashKey<ARG_KEY>(key)); }
    /// The value of the key; a new key gets a value-initialised one.
    VALUE& operator[](ARG_KEY key)
    {
        const UINT hash = HashKey<ARG_KEY>(key);
        Assoc* found = find(key, hash);
        return found ? found->value : add(key, hash)->value;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

    /// FALSE when there is no such key.
    BOOL RemoveKey(ARG_KEY key)
    {
        if (m_buckets.empty()) return FALSE;
        Assoc** link = &bucket(HashKey<ARG_KEY>(key));
        while (*link && !CompareElements(&(*link)->key, &key))
            link = &(*link)->nextInBucket;
        if (!*link) return FALSE;
        Assoc* old = *link;
        *link = old->nextInBucket;
        (old->previous ? old->previous->next : m_first) = old->next;
        (old->next ? old->next->previous : m_last) = old->previous;
        --m_nCount;
        delete old;
        return TRUE;
    }
    void RemoveAll()
    {
        while (m_first)
            delete std::exchange(m_first, m_first->next);
        m_last = nullptr;
        m_nCount = 0;
        m_buckets.clear();
    }

    /// Where GetNextAssoc starts; null when the map is empty. The pair just given may be removed before
    /// the next step.
    POSITION GetStartPosition() const { return reinterpret_cast<POSITION>(m_first); }
    void GetNextAssoc(POSITION& nextPosition, KEY& key, VALUE& value) const
    {
        const Assoc* at = reinterpret_cast<Assoc*>(nextPosition);
        ENSURE(at != nullptr);
        nextPosition = reinterpret_cast<POSITION>(at->next);
        key = at->key;
        value = at->value;
    }
    const CPair* PGetFirstAssoc() const { return m_first; }
    CPair* PGetFirstAssoc() { return m_first; }
    const CPair* PGetNextAssoc(const CPair* pair) const { return after(pair); }
    CPair* PGetNextAssoc(const CPair* pair) { return after(pair); }

    UINT GetHashTableSize() const { return static_cast<UINT>(m_buckets.empty() ? m_size : m_buckets.size()); }
    /// Sets the size that the table starts with; only an empty map takes it. The table grows by itself.
    void InitHashTable(UINT hashSize, BOOL = TRUE)
    {
        ENSURE(hashSize > 0);
        if (m_nCount == 0) {
            m_buckets.clear();
            m_size = hashSize;
        }
    }

    /// Stores the pairs, or sets the stored ones in this map.
    void Serialize(CArchive& archive) override
    {
        if (archive.IsStoring()) {
            archive.WriteCount(m_nCount);
            for (Assoc* at = m_first; at; at = at->next) {
                SerializeElements<KEY>(archive, const_cast<KEY*>(&at->key), 1);
                SerializeElements<VALUE>(archive, &at->value, 1);
            }
            return;
        }
        for (DWORD_PTR left = archive.ReadCount(); left > 0; --left) {
            KEY key{};
            VALUE value{};
            SerializeElements<KEY>(archive, &key, 1);
            SerializeElements<VALUE>(archive, &value, 1);
            SetAt(key, value);
        }
    }

private:
    static constexpr UINT pairsPerBucket = 2;

    struct Assoc : CPair {
        explicit Assoc(ARG_KEY newKey) : CPair{KEY(newKey), VALUE()} {}
        UINT hash = 0;
        Assoc* nextInBucket = nullptr;
        Assoc* previous = nullptr;
        Assoc* next = nullptr;
    };

    Assoc*& bucket(UINT hash) { return m_buckets[hash % m_buckets.size()]; }

    Assoc* find(ARG_KEY key, UINT hash) const
    {
        if (m_buckets.empty()) return nullptr;
        Assoc* at = m_buckets[hash % m_buckets.size()];
        while (at && !(at->hash == hash && CompareElements(&at->key, &key)))
            at = at->nextInBucket;
        return at;
    }

    static Assoc* after(const CPair* pair)
    {
        ENSURE(pair != nullptr);
        return static_cast<const Assoc*>(pair)->next;
    }

    Assoc* add(ARG_KEY key, UINT hash)
    {
        makeRoom();
        Assoc* added = new Assoc(key);
        added->hash = hash;
        added->nextInBucket = bucket(hash);
        bucket(hash) = added;
        added->previous = m_last;
        (m_last ? m_last->next : m_first) = added;
        m_last = added;
        ++m_nCount;
        return added;
    }

    void makeRoom()
    {
        if (m_buckets.empty()) m_buckets.assign(m_size, nullptr);
        if (static_cast<size_t>(m_nCount) < m_buckets.size() * pairsPerBucket) return;
        m_buckets.assign(m_buckets.size() * 2 + 1, nullptr);
        for (Assoc* at = m_first; at; at = at->next) {
            at->nextInBucket = bucket(at->hash);
            bucket(at->hash) = at;
        }
    }

    std::vector<Assoc*> m_buckets;
    UINT m_size = 17; ///< of a table that is made anew
    Assoc* m_first = nullptr;
    Assoc* m_last = nullptr;
    INT_PTR m_nCount = 0;
};
