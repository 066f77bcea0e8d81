#pragma once

/// What a test may do to the headless desktop and a module may not: choose the ANSI code page, hold keys
/// down, read the message boxes that were shown.

#include <windows.h>

#include <string>
#include <vector>

namespace headless
{
/// Chooses the code page of narrow text (CP_ACP) for this process: 936, 950, 1252 or 65001.
void setAnsiCodePage(UINT codePage);

/// Holds a virtual key (VK_...) down or lets it go, for GetAsyncKeyState and GetKeyState.
void setKeyDown(int key, bool down);

/// Lets all keys go and forgets that they were pressed.
void releaseAllKeys();

/// Chooses the size of the screen in pixels, 1920 by 1080 at start. Sides that are not positive: no change.
void setScreenSize(int width, int height);

/// A message box as MessageBoxW was asked for it, and the ID... constant it returned.
struct ShownMessageBox {
    HWND owner;
    std::wstring text;
    std::wstring caption;
    UINT type;
    int answer;
};

/// The message boxes since the last call, oldest first; the last 1000 are kept.
std::vector<ShownMessageBox> takeMessageBoxes();

/// Chooses the answer of the next box that has none yet. A box without that button answers with its default
/// button all the same, and says so on standard output.
void answerNextMessageBox(int id);

/// Forgets the answers that no box has asked for. Returns how many there were.
std::size_t dropMessageBoxAnswers();

/// Takes the posted messages of a window out of its queue, oldest first; null: those of all windows and
/// threads.
std::vector<MSG> takePostedMessages(HWND window);

/// Makes the next CoCreateGuid fail with E_FAIL, or succeed with GUID_NULL.
void failNextGuid();
void giveNullGuidNext();

/// Calls DllMain of the modules that the program is linked with, those they depend on first. A host does this
/// before anything else; the first LoadLibraryW does it otherwise. Each module is told once.
void attachLoadedModules();

/// Closes all registry keys and forgets the registry; the next use reads the file that the environment
/// variable QM_REGISTRY names then, or begins with an empty one.
void reloadRegistry();
} // namespace headless
