#include "Documents.h"

namespace
{
Acad::ErrorStatus adoptNew()
{
    documents::adopt(std::make_unique<AcDbDatabase>(), L"");
    return Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcApDocManager::appContextNewDocument(const ACHAR* templateName)
{
    if (documents::executing()) return Acad::eInvalidContext;
    return templateName && *templateName ? Acad::eNotImplementedYet : adoptNew();
}

Acad::ErrorStatus AcApDocManager::appContextOpenDocument(const ACHAR* fileName)
{
    if (documents::executing()) return Acad::eInvalidContext;
    return fileName ? Acad::eNotImplementedYet : Acad::eInvalidInput;
}

Acad::ErrorStatus AcApDocManager::newDocument() { return appContextNewDocument(nullptr); }
Acad::ErrorStatus AcApDocManager::openDocument() { return Acad::eNotImplementedYet; }
