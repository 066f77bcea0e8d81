#pragma once

/// Whoever sits at the command line: a person at a terminal, or a script. Is asked when no document has keys
/// waiting.

#include <functional>
#include <optional>
#include <string>

namespace ed
{
struct TypedKeys {
    std::wstring keys;
    bool echo =
        false; ///< the keys are to be shown behind their prompts; at a terminal they stand there already
};

/// Gives the next keys, a whole line with its Enter at best; nothing when there are no more.
using Typist = std::function<std::optional<TypedKeys>()>;

/// An empty function: nobody is there. Returns the one before.
Typist setTypist(Typist typist);
std::optional<TypedKeys> askTypist();
} // namespace ed
