#pragma once

/// The editor: commands, and reactors to what the user does.

#include "accmd.h"
#include "acedads.h"
#include "dbmain.h"
#include "rxdict.h"

/// Is told of what happens in the editor. Names of commands are global names in upper case.
class AcEditorReactor : public AcRxObject
{
public:
    virtual void commandWillStart(const ACHAR* /*command*/) {}
    virtual void commandEnded(const ACHAR* /*command*/) {}
    virtual void commandCancelled(const ACHAR* /*command*/) {}
    virtual void commandFailed(const ACHAR* /*command*/) {}
    /// A word at the command prompt that is no command.
    virtual void unknownCommand(const ACHAR* /*command*/, AcDbVoidPtrArray* /*actions*/) {}

    virtual void lispWillStart(const ACHAR* /*firstLine*/) {}
    virtual void lispEnded() {}
    virtual void lispCancelled() {}

    virtual void sysVarWillChange(const ACHAR* /*name*/) {}
    virtual void sysVarChanged(const ACHAR* /*name*/, bool /*success*/) {}

    virtual void beginDwgOpen(ACHAR* /*fileName*/) {}
    virtual void endDwgOpen(ACHAR* /*fileName*/, AcDbDatabase*) {}
    virtual void beginClose(AcDbDatabase*) {}
    virtual void beginSave(AcDbDatabase*, const ACHAR* /*fileName*/) {}
    virtual void saveComplete(AcDbDatabase*, const ACHAR* /*fileName*/) {}
    virtual void beginQuit() {}
    virtual void quitWillStart() {}
};

/// The editor object under ACED_EDITOR_OBJ.
class AcEditor : public AcRxObject
{
public:
    static AcRxClass* desc();
    static AcEditor* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    void addReactor(AcEditorReactor* reactor);
    void removeReactor(AcEditorReactor* reactor);
};

#define ACED_EDITOR_OBJ L"AcEditor"
#define acedEditor AcEditor::cast(acrxSysRegistry()->at(ACED_EDITOR_OBJ))
