#pragma once

/// CList: a doubly linked list. A POSITION stays valid until its element is removed.

#include "afxelement.h"

#include <utility>

/// @tparam TYPE      of the elements
/// @tparam ARG_TYPE  how an element is handed over
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject
{
public:
    /// The block size, a hint about memory in MFC, has no effect.
    explicit CList(INT_PTR = 10) {}
    ~CList() override { RemoveAll(); }

    INT_PTR GetCount() const { return m_nCount; }
    INT_PTR GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    /// The first and the last element; an empty list throws.
    TYPE& GetHead() { return node(position(m_head)).data; }
    const TYPE& GetHead() const { return node(position(m_head)).data; }
    TYPE& GetTail() { return node(position(m_tail)).data; }
    const TYPE& GetTail() const { return node(position(m_tail)).data; }
    TYPE RemoveHead() { return removed(m_head); }
    TYPE RemoveTail() { return removed(m_tail); }
    POSITION AddHead(ARG_TYPE newElement) { return link(newNode(newElement), nullptr, m_head); }
    POSITION AddTail(ARG_TYPE newElement) { return link(newNode(newElement), m_tail, nullptr); }
    /// Adds copies of another list's elements in their order. Adding a list to itself throws.
    void AddHead(CList* newList)
    {
        ENSURE(newList != nullptr && newList != this);
        for (Node* at = newList->m_tail; at; at = at->previous)
            link(newNode(at->data), nullptr, m_head);
    }
    void AddTail(CList* newList)
    {
        ENSURE(newList != nullptr && newList != this);
        for (Node* at = newList->m_head; at; at = at->next)
            AddTail(at->data);
    }
    void RemoveAll()
    {
        while (m_head)
            unlink(m_head);
    }

    /// Places: null when there is none. GetNext and GetPrev give the element at the place and move on.
    POSITION GetHeadPosition() const { return position(m_head); }
    POSITION GetTailPosition() const { return position(m_tail); }
    TYPE& GetNext(POSITION& place) { return step(place, &Node::next); }
    const TYPE& GetNext(POSITION& place) const { return step(place, &Node::next); }
    TYPE& GetPrev(POSITION& place) { return step(place, &Node::previous); }
    const TYPE& GetPrev(POSITION& place) const { return step(place, &Node::previous); }

    TYPE& GetAt(POSITION place) { return node(place).data; }
    const TYPE& GetAt(POSITION place) const { return node(place).data; }
    void SetAt(POSITION place, ARG_TYPE newElement) { node(place).data = newElement; }
    void RemoveAt(POSITION place) { unlink(&node(place)); }
    /// A null place inserts at the head (before) or the tail (after).
    POSITION InsertBefore(POSITION place, ARG_TYPE newElement)
    {
        if (!place) return AddHead(newElement);
        Node& next = node(place);
        return link(newNode(newElement), next.previous, &next);
    }
    POSITION InsertAfter(POSITION place, ARG_TYPE newElement)
    {
        if (!place) return AddTail(newElement);
        Node& previous = node(place);
        return link(newNode(newElement), &previous, previous.next);
    }

    /// The first place behind `startAfter` with an equal element (CompareElements); null for none.
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const
    {
        Node* at = startAfter ? node(startAfter).next : m_head;
        while (at && !CompareElements(&at->data, &searchValue))
            at = at->next;
        return position(at);
    }
    /// The place of the index-th element; null when there is none.
    POSITION FindIndex(INT_PTR index) const
    {
        if (index < 0 || index >= m_nCount) return nullptr;
        Node* at = m_head;
        while (index-- > 0)
            at = at->next;
        return position(at);
    }

    /// Stores the elements, or adds the stored ones at the tail.
    void Serialize(CArchive& archive) override
    {
        if (archive.IsStoring()) {
            archive.WriteCount(m_nCount);
            for (Node* at = m_head; at; at = at->next)
                SerializeElements<TYPE>(archive, &at->data, 1);
            return;
        }
        for (DWORD_PTR left = archive.ReadCount(); left > 0; --left) {
            TYPE element{};
            SerializeElements<TYPE>(archive, &element, 1);
            AddTail(element);
        }
    }

protected:
    struct Node {
        TYPE data;
        Node* previous;
        Node* next;
    };

private:
    static POSITION position(Node* at) { return reinterpret_cast<POSITION>(at); }
    static Node& node(POSITION place)
    {
        ENSURE(place != nullptr);
        return *reinterpret_cast<Node*>(place);
    }
    static Node* newNode(ARG_TYPE element)
    {
        Node* added = new Node{TYPE(), nullptr, nullptr};
        try {
            added->data = element;
        } catch (...) {
            delete added;
            throw;
        }
        return added;
    }
    static TYPE& step(POSITION& place, Node* Node::*direction)
    {
        Node& at = node(place);
        place = position(at.*direction);
        return at.data;
    }
    POSITION link(Node* added, Node* previous, Node* next)
    {
        added->previous = previous;
        added->next = next;
        (previous ? previous->next : m_head) = added;
        (next ? next->previous : m_tail) = added;
        ++m_nCount;
        return position(added);
    }
    void unlink(Node* old)
    {
        (old->previous ? old->previous->next : m_head) = old->next;
        (old->next ? old->next->previous : m_tail) = old->previous;
        --m_nCount;
        delete old;
    }
    TYPE removed(Node* old)
    {
        TYPE value = std::move(node(position(old)).data);
        unlink(old);
        return value;
    }

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    INT_PTR m_nCount = 0;
};
