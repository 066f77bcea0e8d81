#include <afxwin.h>

#include "QmCADLib.h"

#include <cstdio>

extern "C" __declspec(dllexport) int PrintSorted()
{
    CStringArray names;
    names.Add(L"B1");
    names.Add(L"A10");
    names.Add(L"A9");
    CFamStuStr::SortStrArray(names);
    for (INT_PTR i = 0; i < names.GetSize(); ++i) std::printf("%s%S", i ? " " : "", names[i].GetString());
    std::printf("\n");
    return static_cast<int>(names.GetSize());
}
