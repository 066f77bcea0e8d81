#include "Keyboard.h"

#include "winuser.h"

#include <array>
#include <mutex>

namespace
{
constexpr int keyCount = 255;
constexpr int downBit = 0x8000;

struct Key {
    bool down = false;
    bool pressedSince = false; // the last GetAsyncKeyState
    bool toggled = false;
};

std::mutex keyMutex;
std::array<Key, keyCount> keys;

bool isKey(int key)
{
    return key > 0 && key < keyCount;
}

struct Sides {
    int left;
    int right;
};

// The keys that a key without side stands for.
Sides sidesOf(int key)
{
    switch (key) {
    case VK_SHIFT:
        return {VK_LSHIFT, VK_RSHIFT};
    case VK_CONTROL:
        return {VK_LCONTROL, VK_RCONTROL};
    case VK_MENU:
        return {VK_LMENU, VK_RMENU};
    default:
        return {key, key};
    }
}

Key& at(int key)
{
    return keys[static_cast<std::size_t>(key)];
}

bool isDown(int key)
{
    const Sides sides = sidesOf(key);
    return at(key).down || at(sides.left).down || at(sides.right).down;
}

bool takePressed(int key)
{
    bool pressed = false;
    for (int one : {key, sidesOf(key).left, sidesOf(key).right}) {
        pressed = pressed || at(one).pressedSince;
        at(one).pressedSince = false;
    }
    return pressed;
}

SHORT state(bool down, bool low)
{
    return static_cast<SHORT>((down ? downBit : 0) | (low ? 1 : 0));
}

wchar_t letterCase(wchar_t letter)
{
    const bool upper = (GetKeyState(VK_SHIFT) < 0) != ((GetKeyState(VK_CAPITAL) & 1) != 0);
    return upper ? letter : static_cast<wchar_t>(letter - L'A' + L'a');
}

// The character of a key on every keyboard, or 0.
wchar_t characterOf(WPARAM key)
{
    if (key >= L'A' && key <= L'Z') return letterCase(static_cast<wchar_t>(key));
    if (key >= L'0' && key <= L'9') return GetKeyState(VK_SHIFT) < 0 ? L'\0' : static_cast<wchar_t>(key);
    const bool plain =
        key == VK_SPACE || key == VK_RETURN || key == VK_TAB || key == VK_ESCAPE || key == VK_BACK;
    return plain ? static_cast<wchar_t>(key) : L'\0';
}
} // namespace

namespace win32
{
void setKeyDown(int key, bool down)
{
    if (!isKey(key)) return;
    const std::lock_guard lock(keyMutex);
    if (down && !at(key).down) {
        at(key).pressedSince = true;
        at(key).toggled = !at(key).toggled;
    }
    at(key).down = down;
}

void releaseAllKeys()
{
    const std::lock_guard lock(keyMutex);
    keys.fill({});
}
} // namespace win32

SHORT WINAPI GetAsyncKeyState(int key)
{
    if (!isKey(key)) return 0;
    const std::lock_guard lock(keyMutex);
    const bool pressed = takePressed(key);
    return state(isDown(key), pressed);
}

SHORT WINAPI GetKeyState(int key)
{
    if (!isKey(key)) return 0;
    const std::lock_guard lock(keyMutex);
    return state(isDown(key), at(key).toggled);
}

BOOL WINAPI TranslateMessage(const MSG* message)
{
    if (!message || message->message < WM_KEYDOWN || message->message > WM_SYSKEYUP) return FALSE;
    const wchar_t character = message->message == WM_KEYDOWN ? characterOf(message->wParam) : L'\0';
    if (character) PostMessageW(message->hwnd, WM_CHAR, static_cast<WPARAM>(character), message->lParam);
    return TRUE;
}
