#include "CommandRunner.h"

#include "CommandAliases.h"
#include "CommandLine.h"
#include "CommandStackAccess.h"
#include "Documents.h"
#include "EditorEvents.h"
#include "Faults.h"
#include "LispEvaluator.h"
#include "ProgramEnd.h"
#include "Script.h"
#include "UndoSteps.h"
#include "VariablePrompt.h"
#include "VariableStore.h"

namespace
{
using ed::Answer;
using ed::Outcome;

AcAp::DocLockMode lockFor(Adesk::Int32 flags)
{
    if (flags & (ACRX_CMD_SESSION | ACRX_CMD_NOINTERNALLOCK)) return AcAp::kNone;
    if (flags & ACRX_CMD_DOCEXCLUSIVELOCK) return AcAp::kXWrite;
    return flags & ACRX_CMD_DOCREADLOCK ? AcAp::kRead : AcAp::kAutoWrite;
}

/// The lock that a command has on its document while it runs.
class CommandLock
{
public:
    CommandLock(AcApDocument* document, const AcEdCommand& command)
        : mDocument(document), mMode(lockFor(command.commandFlags()))
    {
        if (mMode != AcAp::kNone) mStatus = acDocManager->lockDocument(document, mMode, command.globalName());
    }
    ~CommandLock()
    {
        if (mMode != AcAp::kNone && mStatus == Acad::eOk && documents::stateOf(mDocument))
            acDocManager->unlockDocument(mDocument);
    }
    CommandLock(const CommandLock&) = delete;
    CommandLock& operator=(const CommandLock&) = delete;
    Acad::ErrorStatus status() const { return mStatus; }

private:
    AcApDocument* mDocument;
    AcAp::DocLockMode mMode;
    Acad::ErrorStatus mStatus = Acad::eOk;
};

/// The entry in the list of active commands. The document may be gone when the command has closed it.
class ActiveEntry
{
public:
    ActiveEntry(AcApDocument* document, ed::ActiveCommand entry) : mDocument(document)
    {
        documents::stateOf(document)->commands.push_back(std::move(entry));
    }
    ~ActiveEntry()
    {
        if (DocumentState* state = documents::stateOf(mDocument)) state->commands.pop_back();
    }
    ActiveEntry(const ActiveEntry&) = delete;
    ActiveEntry& operator=(const ActiveEntry&) = delete;

private:
    AcApDocument* mDocument;
};

void announce(Outcome outcome, const wchar_t* name)
{
    ed::tellEditor([&](AcEditorReactor& reactor) {
        if (outcome == Outcome::cancelled) reactor.commandCancelled(name);
        if (outcome == Outcome::failed) reactor.commandFailed(name);
        if (outcome == Outcome::done) reactor.commandEnded(name);
    });
}

/// Calls the command's function. Exceptions end the command, not the program.
Outcome call(AcApDocument* document, const AcEdCommand& command)
{
    documents::stateOf(document)->input.forgetCancel();
    ed::takeFailure();
    try {
        command.functionAddr()();
    } catch (...) {
        ed::fail(L"; error: an exception ended the command.");
    }
    if (ed::takeFailure()) return Outcome::failed;
    const DocumentState* state = documents::stateOf(document);
    return state && state->input.lastWasCancel() ? Outcome::cancelled : Outcome::done;
}

Outcome runCommand(const std::shared_ptr<AcEdCommand>& command, bool transparent)
{
    AcApDocument* document = acDocManager->curDocument();
    const bool session = (command->commandFlags() & ACRX_CMD_SESSION) != 0;
    const documents::Context context(session ? nullptr : document);
    const CommandLock lock(document, *command);
    if (lock.status() != Acad::eOk) {
        ed::fail(L"The document is locked by another command.");
        return Outcome::failed;
    }
    const ed::CommandStep step(document, *command);
    const ActiveEntry entry(document, {command->globalName(), transparent, false});
    if (!(command->commandFlags() & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW)) && !transparent)
        documents::stateOf(document)->selection.implied.clear();
    ed::tellEditor([&](AcEditorReactor& reactor) { reactor.commandWillStart(command->globalName()); });
    const Outcome outcome = call(document, *command);
    announce(outcome, command->globalName());
    if (outcome == Outcome::cancelled) ed::print(L"*Cancel*\n");
    return outcome;
}

Outcome refuse(const std::wstring& word)
{
    ed::tellEditor([&](AcEditorReactor& reactor) {
        AcDbVoidPtrArray actions;
        reactor.unknownCommand(word.c_str(), &actions);
    });
    ed::fail(L"Unknown command \"" + word + L"\".  Press F1 for help.");
    ed::takeFailure();
    return Outcome::unknown;
}

/// In the middle of another command, after an apostrophe, transparent commands may start only.
bool mayStart(const AcEdCommand& command, bool transparent)
{
    return !transparent || documents::current()->commands.empty() || (command.commandFlags() & ACRX_CMD_TRANSPARENT);
}

/// The command of a word with its prefixes. A hyphen asks for the form without dialog, which is the only one here.
std::shared_ptr<AcEdCommand> findCommand(const std::wstring& word)
{
    if (auto command = CommandStackAccess::find(ed::commandStack(), word)) return command;
    const std::size_t at = word.find_first_not_of(L"_.");
    if (at == std::wstring::npos) return nullptr;
    const bool hyphen = word[at] == L'-';
    const std::wstring name = word.substr(hyphen ? at + 1 : at);
    const std::wstring ofAlias = ed::commandOfAlias(name);
    const std::wstring prefixes = word.substr(0, at);
    if (hyphen && ofAlias.empty()) return CommandStackAccess::find(ed::commandStack(), prefixes + name);
    return ofAlias.empty() ? nullptr : CommandStackAccess::find(ed::commandStack(), prefixes + ofAlias);
}

/// A word that is no command: a LISP function, a system variable, or nothing that is known.
Outcome startOther(const std::wstring& word)
{
    if (const std::optional<Outcome> outcome = ed::callLispCommand(word)) return *outcome;
    documents::current()->input.forgetCancel();
    ed::OtherStep step(ed::upperCase(word));
    if (!ed::promptForVariable(word)) return refuse(word);
    step.count();
    if (documents::current()->input.lastWasCancel()) {
        ed::print(L"*Cancel*\n");
        return Outcome::cancelled;
    }
    return ed::takeFailure() ? Outcome::failed : Outcome::done;
}

Outcome startCommand(const std::wstring& word)
{
    const bool transparent = word[0] == L'\'';
    const auto command = findCommand(transparent ? word.substr(1) : word);
    if (!command) return startOther(word);
    if (!mayStart(*command, transparent)) {
        ed::fail(L"**That command may not be invoked transparently**");
        return Outcome::failed;
    }
    const bool active = !documents::current()->commands.empty();
    if (!active && !(command->commandFlags() & ACRX_CMD_NOHISTORY)) documents::current()->lastCommand = word;
    return runCommand(command, transparent && active);
}

/// Carries out what is typed in the middle of a question: an expression, or a command after an apostrophe.
std::optional<Answer> interpret(const std::wstring& text)
{
    if (text[0] == L'(' || text[0] == L'!') return ed::answerOfLisp(text);
    if (text[0] != L'\'' || text.size() < 2) return std::nullopt;
    startCommand(text);
    documents::current()->input.forgetCancel();
    return Answer::enter();
}

void showPrompt()
{
    constexpr const wchar_t* prompt = L"Command: ";
    if (ed::lastPrompt() == prompt) return;
    if (!ed::lastPrompt().empty()) ed::print(L"\n");
    ed::print(prompt);
}

/// A script does not go on behind a line that went wrong, not even with the rest of that line.
void endScriptAt(Outcome outcome)
{
    const std::wstring reason = ed::takeFault();
    ed::takeFailure();
    if ((outcome != Outcome::failed && outcome != Outcome::unknown) || !scripts::isRunning()) return;
    scripts::stop(reason);
    if (DocumentState* state = documents::current()) state->input.clear();
}

/// The keys have ended in the middle of an expression.
void dropUnfinished(ed::InputSource& input)
{
    constexpr const wchar_t* reason = L"; error: malformed list on input";
    if (input.empty()) return;
    input.clear();
    ed::print(std::wstring(reason) + L"\n");
    scripts::stop(reason);
}

bool runNext(AcApDocument* document, bool askReader)
{
    DocumentState* state = documents::stateOf(document);
    if (!state || ed::endIsRequested()) return false;
    state->input.setInterpreter(interpret);
    if (askReader) showPrompt();
    const std::optional<Answer> answer = state->input.takeComplete(ed::Reading::token, askReader);
    if (answer)
        endScriptAt(ed::carryOut(*answer));
    else if (askReader)
        dropUnfinished(state->input);
    return answer.has_value();
}

int runDocument(AcApDocument* document, bool askReader)
{
    int count = 0;
    while (acDocManager->curDocument() == document && runNext(document, askReader)) ++count;
    return count;
}

/// Makes a document current without bringing it to the front, and the one before again at the end.
int runInBackground(AcApDocument* document)
{
    DocumentState* state = documents::stateOf(document);
    if (!state || !state->runsInBackground) return 0;
    AcApDocument* before = acDocManager->curDocument();
    acDocManager->setCurDocument(document);
    const int count = runDocument(document, false);
    if ((state = documents::stateOf(document))) state->runsInBackground = !state->input.empty();
    if (documents::stateOf(before)) acDocManager->setCurDocument(before);
    return count;
}
} // namespace

namespace ed
{
Outcome carryOut(const Answer& answer)
{
    DocumentState* state = documents::current();
    if (!state) return Outcome::failed;
    state->input.setInterpreter(interpret);
    if (answer.kind == Answer::Kind::cancel) {
        print(L"*Cancel*\n");
        return Outcome::cancelled;
    }
    if (answer.kind == Answer::Kind::enter)
        return state->lastCommand.empty() || !state->commands.empty() ? Outcome::done
                                                                      : startCommand(state->lastCommand);
    if (answer.kind != Answer::Kind::text) return refuse(L"<selection>");
    if (answer.text[0] == L'(' || answer.text[0] == L'!') return runLisp(answer.text);
    return startCommand(answer.text);
}

int runPending(bool askReader)
{
    if (documents::executing()) return 0;
    int count = 0;
    for (int before = -1; before != count;) {
        before = count;
        if (AcApDocument* active = acDocManager->mdiActiveDocument()) {
            acDocManager->setCurDocument(active);
            count += runDocument(active, askReader);
        }
        const std::vector<AcApDocument*> some = documents::all();
        for (AcApDocument* document : some) count += runInBackground(document);
    }
    return count;
}

std::wstring commandNames()
{
    std::wstring names;
    const DocumentState* state = documents::current();
    if (!state) return names;
    for (const ActiveCommand& command : state->commands) {
        if (command.lisp) continue;
        if (!names.empty()) names += L'\'';
        names += command.name;
    }
    return names;
}

int commandActivity()
{
    constexpr int ordinary = 1, transparent = 2, lisp = 32;
    int bits = 0;
    const DocumentState* state = documents::current();
    if (!state) return bits;
    for (const ActiveCommand& command : state->commands)
        bits |= command.lisp ? lisp : command.transparent ? ordinary | transparent : ordinary;
    return bits;
}
} // namespace ed
