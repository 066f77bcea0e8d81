#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

/// A stack that allocates only when it holds more than `inlineCount` values.
template <class T, std::size_t inlineCount>
class InlineStack
{
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_default_constructible_v<T>);

public:
    InlineStack() = default;
    InlineStack(const InlineStack&) = delete;
    InlineStack& operator=(const InlineStack&) = delete;

    bool empty() const { return m_size == 0; }
    /// The last value; the stack is not empty.
    T& top() { return m_values[m_size - 1]; }
    const T& top() const { return m_values[m_size - 1]; }
    /// Takes the last value off; the stack is not empty.
    T pop() { return m_values[--m_size]; }
    void push(T value)
    {
        if (m_size == m_capacity) grow();
        m_values[m_size++] = value;
    }

private:
    void grow()
    {
        // The new values are written before they are read, so they are not set here.
        std::unique_ptr<T[]> larger(new T[2 * m_capacity]);
        std::copy_n(m_values, m_size, larger.get());
        m_heap = std::move(larger);
        m_values = m_heap.get();
        m_capacity *= 2;
    }

    T m_inline[inlineCount];
    T* m_values = m_inline;
    std::size_t m_size = 0;
    std::size_t m_capacity = inlineCount;
    std::unique_ptr<T[]> m_heap;
};
