#pragma once

/// A member that stays with its object: copies of the object begin without it, and assignment leaves it as it is.

template <class T>
class NotCopied : public T
{
public:
    NotCopied() = default;
    NotCopied(const NotCopied&) : T() {}
    NotCopied& operator=(const NotCopied&) { return *this; }
    NotCopied& operator=(const T& value)
    {
        T::operator=(value);
        return *this;
    }
};
