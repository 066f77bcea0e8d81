#pragma once

#include <string>

namespace ed
{
/// A command that is running.
struct ActiveCommand {
    std::wstring name; ///< its global name, in upper case
    bool transparent = false;
    bool lisp = false; ///< a LISP expression, which is not in CMDNAMES
};
} // namespace ed
