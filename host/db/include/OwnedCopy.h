#pragma once

/// A value that most objects of a class do without: one pointer when absent, copied with its owner.

#include <memory>

template <class T>
class OwnedCopy
{
public:
    OwnedCopy() = default;
    OwnedCopy(const OwnedCopy& other) : mValue(other.mValue ? std::make_unique<T>(*other.mValue) : nullptr) {}
    OwnedCopy& operator=(const OwnedCopy& other)
    {
        mValue = other.mValue ? std::make_unique<T>(*other.mValue) : nullptr;
        return *this;
    }

    explicit operator bool() const { return mValue != nullptr; }
    T* operator->() const { return mValue.get(); }
    T& operator*() const { return *mValue; }
    /// Made on first use.
    T& need()
    {
        if (!mValue) mValue = std::make_unique<T>();
        return *mValue;
    }
    void reset() { mValue.reset(); }

private:
    std::unique_ptr<T> mValue;
};
