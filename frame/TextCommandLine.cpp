#include "TextCommandLine.h"

#include "acedads.h"

LRESULT sendToCommandLine(wchar_t character)
{
    const CWnd* commandLine = acedGetAcadTextCmdLine();
    return commandLine ? ::SendMessageW(commandLine->m_hWnd, WM_CHAR, character, 0) : 0;
}
