#pragma once

#include "acutads.h"

#include <map>
#include <memory>
#include <string>

namespace ed
{
struct ReleaseResbuf {
    void operator()(resbuf* list) const
    {
        if (list) acutRelRb(list);
    }
};
using OwnedResbuf = std::unique_ptr<resbuf, ReleaseResbuf>;

struct NoCase {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return _wcsicmp(a.c_str(), b.c_str()) < 0; }
};

/// A function that a module defined.
struct LispFunction {
    void* module = nullptr;
    short code = 0;
};

/// The LISP of one document.
struct LispFunctions {
    std::map<std::wstring, LispFunction, NoCase> functions;
    std::map<std::pair<void*, int>, int (*)()> handlers; ///< by module and code
    std::map<std::wstring, OwnedResbuf, NoCase> symbols;
};
} // namespace ed
