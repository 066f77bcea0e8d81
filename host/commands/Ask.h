#pragma once

/// The questions of the commands.

#include "InputSource.h"

#include <optional>
#include <string>

namespace commands
{
/// Asks for a text. Empty for Enter; nothing for Esc, and when nobody answers.
std::optional<std::wstring> ask(const std::wstring& prompt, ed::Reading reading = ed::Reading::token);

/// Asks for the name of a file; blanks are taken when the name stands in quotes.
std::optional<std::wstring> askFile(const std::wstring& prompt);

/// Asks for one of some keywords with a blank between, each of which may be shortened down to its capitals
/// ("LOck"). Another answer is asked for again, and is the end of a script. Returns the whole keyword,
/// `byEnter` for Enter, nothing for Esc.
std::optional<std::wstring> askKeyword(const std::wstring& prompt, const std::wstring& keywords,
                                       const std::wstring& byEnter);
/// Asks whether to; Enter and Esc mean no.
bool askWhether(const std::wstring& prompt);
} // namespace commands
