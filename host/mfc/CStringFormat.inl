#pragma once

// Formatted text in a string.

#include "cstringt.h"

#include <new>
#include <stdexcept>

namespace
{
/// Runs a maker of text; what it throws for want of memory becomes the exception of strings.
template <class Make>
auto orOutOfMemory(Make make)
{
    try {
        return make();
    } catch (const std::bad_alloc&) {
        AtlThrow(E_OUTOFMEMORY);
    } catch (const std::length_error&) {
        AtlThrow(E_OUTOFMEMORY);
    }
}
} // namespace

template <class BaseType>
void CStringT<BaseType>::formatTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count)
{
    const auto text = orOutOfMemory([&] { return crt::format(format, args, count); });
    SetString(text.data(), checkedLength(text.size()));
}

template <class BaseType>
void CStringT<BaseType>::appendFormatTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count)
{
    const auto text = orOutOfMemory([&] { return crt::format(format, args, count); });
    Append(text.data(), checkedLength(text.size()));
}

template <class BaseType>
void CStringT<BaseType>::formatMessageTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count)
{
    const auto text = orOutOfMemory([&] { return crt::formatMessage(format, args, count); });
    SetString(text.data(), checkedLength(text.size()));
}

template <class BaseType>
void CStringT<BaseType>::FormatV(PCXSTR format, va_list args)
{
    const auto text = orOutOfMemory([&] { return crt::formatV(format, args); });
    SetString(text.data(), checkedLength(text.size()));
}

template <class BaseType>
void CStringT<BaseType>::AppendFormatV(PCXSTR format, va_list args)
{
    const auto text = orOutOfMemory([&] { return crt::formatV(format, args); });
    Append(text.data(), checkedLength(text.size()));
}
