#include "Headless.h"

#include "AnsiCodePage.h"
#include "GuidSource.h"
#include "Keyboard.h"
#include "MessageQueue.h"
#include "ModuleTable.h"
#include "RegistryStore.h"
#include "ScreenSize.h"
#include "ShownMessageBoxes.h"

namespace headless
{
void setAnsiCodePage(UINT codePage)
{
    win32::setAnsiCodePage(codePage);
}

void setKeyDown(int key, bool down)
{
    win32::setKeyDown(key, down);
}

void releaseAllKeys()
{
    win32::releaseAllKeys();
}

void setScreenSize(int width, int height)
{
    win32::setScreenSize({width, height});
}

std::vector<ShownMessageBox> takeMessageBoxes()
{
    std::vector<ShownMessageBox> all;
    for (win32::ShownMessageBox& box : win32::takeMessageBoxes())
        all.push_back({box.owner, std::move(box.text), std::move(box.caption), box.type, box.answer});
    return all;
}

void answerNextMessageBox(int id)
{
    win32::answerNextMessageBox(id);
}

std::size_t dropMessageBoxAnswers()
{
    return win32::dropMessageBoxAnswers();
}

std::vector<MSG> takePostedMessages(HWND window)
{
    return win32::takePostedMessages(window);
}

void failNextGuid()
{
    win32::setNextGuid(win32::NextGuid::failure);
}

void giveNullGuidNext()
{
    win32::setNextGuid(win32::NextGuid::null);
}

void attachLoadedModules()
{
    win32::attachLoadedModules();
}

void reloadRegistry()
{
    win32::reloadRegistry();
}
} // namespace headless
