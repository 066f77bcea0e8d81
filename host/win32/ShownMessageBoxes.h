#pragma once

#include "windef.h"

#include <string>
#include <vector>

namespace win32
{
/// A message box as it was shown, and how it was answered (an ID constant).
struct ShownMessageBox {
    HWND owner;
    std::wstring text;
    std::wstring caption;
    UINT type;
    int answer;
};

/// The boxes shown since the last call, oldest first.
std::vector<ShownMessageBox> takeMessageBoxes();

/// Answers the next box that has no answer waiting yet. A box without that button prints so and takes its
/// default button.
void answerNextMessageBox(int id);

/// Forgets answers that no box has asked for; returns how many there were.
std::size_t dropMessageBoxAnswers();
} // namespace win32
