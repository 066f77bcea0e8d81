/// A module with a command and a LISP function. It writes the messages it gets into the symbol "messages".

#include "acdocman.h"
#include "arxEntryPoint.h"

namespace
{
std::wstring messages;

void note(const wchar_t* message)
{
    messages += messages.empty() ? L"" : L" ";
    messages += message;
    SetEnvironmentVariableW(L"QM_TEST_MESSAGES", messages.c_str());
}

void watch(const MSG*)
{
    note(L"message");
}

class SampleApp : public AcRxArxApp
{
public:
    void RegisterServerComponents() override {}

    AcRx::AppRetCode On_kInitAppMsg(void* pkt) override
    {
        note(L"init");
        acedRegisterWatchWinMsg(watch); // and never removed
        return AcRxArxApp::On_kInitAppMsg(pkt);
    }
    AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override
    {
        note(L"unload");
        return AcRxArxApp::On_kUnloadAppMsg(pkt);
    }
    AcRx::AppRetCode On_kLoadDwgMsg(void* pkt) override
    {
        note((std::wstring(L"load:") + curDoc()->docTitle()).c_str());
        return AcRxArxApp::On_kLoadDwgMsg(pkt);
    }
    AcRx::AppRetCode On_kUnloadDwgMsg(void* pkt) override
    {
        note((std::wstring(L"close:") + curDoc()->docTitle()).c_str());
        return AcRxArxApp::On_kUnloadDwgMsg(pkt);
    }
    AcRx::AppRetCode On_kSaveMsg(void*) override
    {
        note((std::wstring(L"save:") + curDoc()->docTitle()).c_str());
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kPreQuitMsg(void*) override
    {
        note(L"prequit");
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kQuitMsg(void*) override
    {
        note(L"quit");
        return AcRx::kRetOK;
    }

    static void SampleHello() { acutPrintf(L"hello from %s\n", L"the module"); }

    /// (sum numbers ...)
    static int ads_sum()
    {
        resbuf* arguments = acedGetArgs();
        double total = 0.0;
        for (const resbuf* at = arguments; at; at = at->rbnext)
            total += at->restype == RTREAL ? at->resval.rreal : static_cast<double>(at->resval.rlong);
        if (arguments) acutRelRb(arguments);
        return acedRetReal(total);
    }
    static int ads_sayit()
    {
        acutPrintf(L"said\n");
        return acedRetVoid();
    }
};
} // namespace

IMPLEMENT_ARX_ENTRYPOINT(SampleApp)
ACED_ARXCOMMAND_ENTRY_AUTO(SampleApp, Sample, Hello, Hello, ACRX_CMD_TRANSPARENT, nullptr)
ACED_ADSSYMBOL_ENTRY_AUTO(SampleApp, sum, false)
ACED_ADSCOMMAND_ENTRY_AUTO(SampleApp, sayit, true)
