#include "CNoSpacebarInputControls.h"

#include "CFamStuSysVar.h"
#include "TextCommandLine.h"

namespace
{
int shortcutIsActive = 0;
CString acceptedLetters; // in upper case

void setDynMode(int mode)
{
    const CFamStuSysVar kept(L"DYNMODE", mode, FALSE);
}
} // namespace

CNoSpacebarInputControls::CNoSpacebarInputControls()
{
    CFamStuSysVar::Get(L"DYNMODE", m_dynMode);
    setDynMode(0);
}

CNoSpacebarInputControls::CNoSpacebarInputControls(CString letters) : CNoSpacebarInputControls()
{
    setInputCtrls(letters);
}

CNoSpacebarInputControls::~CNoSpacebarInputControls()
{
    setDynMode(m_dynMode);
    shortcutIsActive = 0;
    acceptedLetters.Empty();
}

void CNoSpacebarInputControls::setInputCtrls(CString letters)
{
    acceptedLetters = letters.MakeUpper();
    shortcutIsActive = 1;
}

void CNoSpacebarInputControls::noSpacebarInputControls(CString text)
{
    if (text.IsEmpty()) return;
    text.MakeUpper();
    if (acceptedLetters.Find(text, 0) >= 0) sendToCommandLine(VK_RETURN);
}

bool CNoSpacebarInputControls::isActive()
{
    return shortcutIsActive != 0;
}
