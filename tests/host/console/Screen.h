#pragma once

/// What stands on the screen of a terminal after a program wrote to it.

#include <string>
#include <vector>

namespace arxhost
{
/// Takes what a program writes for a VT100; understands what a line editor needs.
class Screen
{
public:
    void take(const std::string& bytes);
    /// The lines without blanks at their ends, up to the one with the cursor.
    std::string text() const;
    /// The line with the cursor, up to the cursor.
    std::string line() const;

private:
    void put(char32_t character);
    void control(char byte);
    void escape(char final);
    std::u32string& current();

    std::vector<std::u32string> mLines = {U""};
    std::size_t mRow = 0, mColumn = 0;
    std::string mSequence; ///< an escape sequence or a character of several bytes that is not whole yet
};
} // namespace arxhost
