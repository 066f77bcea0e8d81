#include "CommandLine.h"
#include "Documents.h"
#include "DrawingStamps.h"
#include "EditorEvents.h"
#include "SupportFiles.h"

namespace
{
/// The path of a drawing as it was asked for, or as the support path finds it.
std::wstring pathOf(const ACHAR* name)
{
    const std::wstring found = ed::findSupportFile(name);
    return found.empty() ? std::wstring(name) : found;
}

bool isReadOnly(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY);
}

/// Reads a file into a new document: under its name, or as a drawing without one when it is a template.
Acad::ErrorStatus readInto(const ACHAR* fileName, bool isTemplate)
{
    std::wstring path = pathOf(fileName);
    auto database = std::make_unique<AcDbDatabase>(false, false);
    ed::tellEditor([&](AcEditorReactor& reactor) { reactor.beginDwgOpen(&path[0]); });
    const Acad::ErrorStatus status = database->readDwgFile(path.c_str());
    if (status != Acad::eOk) return status;
    if (isTemplate) stamps::create(*database);
    AcDbDatabase* opened = database.get();
    documents::adopt(std::move(database), isTemplate ? std::wstring() : path,
                     !isTemplate && isReadOnly(path));
    ed::tellEditor([&](AcEditorReactor& reactor) { reactor.endDwgOpen(&path[0], opened); });
    return Acad::eOk;
}

Acad::ErrorStatus adoptNew()
{
    documents::adopt(std::make_unique<AcDbDatabase>(), L"");
    return Acad::eOk;
}
} // namespace

Acad::ErrorStatus AcApDocManager::appContextNewDocument(const ACHAR* templateName)
{
    if (documents::executing()) return Acad::eInvalidContext;
    return templateName && *templateName ? readInto(templateName, true) : adoptNew();
}

Acad::ErrorStatus AcApDocManager::appContextOpenDocument(const ACHAR* fileName)
{
    if (documents::executing()) return Acad::eInvalidContext;
    return fileName && *fileName ? readInto(fileName, false) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcApDocManager::newDocument()
{
    return appContextNewDocument(nullptr);
}

Acad::ErrorStatus AcApDocManager::openDocument()
{
    if (documents::executing()) return Acad::eInvalidContext;
    ed::print(L"Enter name of drawing to open: ");
    const ed::Answer answer = ed::currentInput().next(ed::Reading::word);
    return answer.kind == ed::Answer::Kind::text ? appContextOpenDocument(answer.text.c_str())
                                                 : Acad::eUserBreak;
}

Acad::ErrorStatus documents::write(AcApDocument* document, const std::wstring& fileName,
                                   const std::function<Acad::ErrorStatus()>& writer)
{
    AcDbDatabase* database = document->database();
    tellModules(document, AcRx::kSaveMsg);
    ed::tellEditor([&](AcEditorReactor& reactor) { reactor.beginSave(database, fileName.c_str()); });
    const Acad::ErrorStatus status = writer();
    ed::tellEditor([&](AcEditorReactor& reactor) {
        if (status == Acad::eOk)
            reactor.saveComplete(database, fileName.c_str());
        else
            reactor.abortSave(database);
    });
    return status;
}

Acad::ErrorStatus documents::save(AcApDocument* document, const std::wstring& fileName)
{
    DocumentState* state = stateOf(document);
    if (!state) return Acad::eNoDocument;
    const std::wstring path = fileName.empty() ? state->fileName : fileName;
    if (path.empty()) return Acad::eNoFileName;
    return write(document, path, [&] {
        stamps::save(*state->database);
        const Acad::ErrorStatus status = state->database->saveAs(path.c_str(), true);
        if (status != Acad::eOk) return status;
        state->dbmod = 0;
        nameDocument(document, path);
        return status;
    });
}
