#pragma once

#include "crtformat.h"

namespace crt
{
/// Where a format takes its arguments from, in order.
class FormatSource
{
public:
    /// What the directive wants: it matters only where the arguments do not know their own types.
    enum class Wanted { int32, int64, real, pointer, narrowText, wideText };

    virtual ~FormatSource() = default;
    /// The next argument; one of kind `none` when there are no more.
    virtual FormatArg next(Wanted wanted) = 0;
};

/// Arguments that carry their types.
class TypedSource : public FormatSource
{
public:
    TypedSource(const FormatArg* args, std::size_t count) : m_next(args), m_end(args + count) {}
    FormatArg next(Wanted) override { return m_next == m_end ? FormatArg() : *m_next++; }

private:
    const FormatArg* m_next;
    const FormatArg* m_end;
};

/// Arguments passed through `...`. The list of the caller is left as it was.
class VariadicSource : public FormatSource
{
public:
    explicit VariadicSource(va_list args) { va_copy(m_args, args); }
    ~VariadicSource() override { va_end(m_args); }
    VariadicSource(const VariadicSource&) = delete;
    VariadicSource& operator=(const VariadicSource&) = delete;
    FormatArg next(Wanted wanted) override
    {
        switch (wanted) {
        case Wanted::int32:
            return integerArg(va_arg(m_args, int), FormatArg::Kind::integer);
        case Wanted::int64:
            return integerArg(va_arg(m_args, long long), FormatArg::Kind::integer);
        case Wanted::real:
            return realArg(va_arg(m_args, double));
        case Wanted::narrowText:
            return addressArg(va_arg(m_args, const char*), FormatArg::Kind::narrowText);
        case Wanted::wideText:
            return addressArg(va_arg(m_args, const wchar_t*), FormatArg::Kind::wideText);
        default:
            return addressArg(va_arg(m_args, void*), FormatArg::Kind::pointer);
        }
    }

private:
    va_list m_args;
};
} // namespace crt
