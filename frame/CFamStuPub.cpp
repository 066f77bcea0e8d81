#include "CFamStuPub.h"

bool CFamStuPub::DllInit(HINSTANCE module)
{
    void* const address = module ? reinterpret_cast<void*>(GetProcAddress(module, "Init")) : nullptr;
    const auto init = reinterpret_cast<bool (*)()>(address);
    if (init && init()) return true;
    AfxMessageBox(L"数据库初始化错误");
    return false;
}
