#include "CMessage.h"

#include "acdocman.h"
#include "CDocView.h"
#include "CFamStuGlobe.h"

int CArxUtils::CMessage::SendMsgToAutoCAD(CGTStringW text)
{
    CDocView::ActivateAcad();
    ClearCommandLine();
    if (AcApDocument* document = curDoc())
        acDocManager->sendStringToExecute(document, text, true, false, false);
    return 1;
}

int CArxUtils::CMessage::ClearCommandLine()
{
    return CFamStuGlobe::ClearCommandLine();
}
