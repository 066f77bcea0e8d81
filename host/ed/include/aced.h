#pragma once

/// The editor: commands, and reactors to what the user does.

#include "accmd.h"
#include "acedads.h"
#include "dbmain.h"
#include "rxdict.h"
#include "rxevent.h"

/// Is told of what happens in the editor, and to drawings as a whole (rxevent.h). Names of commands are global names in
/// upper case.
class AcEditorReactor : public AcRxEventReactor
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
    /// A drawing is being written under a name; one of the next two follows.
    virtual void beginSave(AcDbDatabase*, const ACHAR* /*fileName*/) {}
    virtual void saveComplete(AcDbDatabase*, const ACHAR* /*fileName*/) {}
    virtual void abortSave(AcDbDatabase*) {}
    /// QUIT was typed. May call veto().
    virtual void beginQuit() {}
    /// It was vetoed, or the user keeps his changes.
    virtual void quitAborted() {}
    /// The program ends: documents are closed and modules unloaded next.
    virtual void quitWillStart() {}

    /// Refuses the end of the program that beginQuit announces. eOk.
    Acad::ErrorStatus veto();
    /// Whether it did; asked once.
    bool takeVeto();

private:
    bool mVetoed = false;
};

/// The editor object under ACED_EDITOR_OBJ.
class AcEditor : public AcRxEvent
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
