#include "Terminal.h"

#include "Completion.h"
#include "ConsoleText.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <histedit.h>
#include <langinfo.h>

namespace console
{
namespace
{
volatile std::sig_atomic_t interrupted = 0;

void noteInterrupt(int)
{
    interrupted = 1;
}

/// Keys are UTF-8 whatever the environment says of other programs.
void chooseLocale()
{
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) std::setlocale(LC_CTYPE, "C.UTF-8");
}

void put(std::wstring_view text)
{
    const std::string bytes = utf8(CString(text.data(), static_cast<int>(text.size())));
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}
} // namespace

struct Terminal::Editor {
    EditLine* line = nullptr;
    HistoryW* history = nullptr;
    std::string historyFile;
    std::wstring held;      ///< the beginning of a line
    std::wstring prompt;    ///< of the line that is being edited
    bool cancelled = false; ///< by ^C
    bool ended = false;     ///< by ^D

    explicit Editor(const std::string& file);
    ~Editor();
    void bind();
    void bindKey(const wchar_t* name, const wchar_t* help, unsigned char (*function)(EditLine*, wint_t),
                 const wchar_t* key);
    void remember(const wchar_t* text);

    static Editor& of(EditLine* line);
    static wchar_t* promptOf(EditLine* line);
    static unsigned char complete(EditLine* line, wint_t);
    static unsigned char cancel(EditLine* line, wint_t);
    static unsigned char end(EditLine* line, wint_t);
};

Terminal::Editor::Editor(const std::string& file) : historyFile(file)
{
    chooseLocale();
    line = el_init("arxhost", stdin, stdout, stderr);
    history = history_winit();
    HistEventW event;
    history_w(history, &event, H_SETSIZE, 1000);
    history_w(history, &event, H_SETUNIQUE, 1);
    history_w(history, &event, H_LOAD, historyFile.c_str());
    bind();
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    sigaction(SIGINT, &action, nullptr);
}

Terminal::Editor::~Editor()
{
    HistEventW event;
    history_w(history, &event, H_SAVE, historyFile.c_str());
    history_wend(history);
    el_end(line);
}

void Terminal::Editor::bindKey(const wchar_t* name, const wchar_t* help,
                               unsigned char (*function)(EditLine*, wint_t), const wchar_t* key)
{
    el_wset(line, EL_ADDFN, name, help, function);
    el_wset(line, EL_BIND, key, name, nullptr);
}

void Terminal::Editor::bind()
{
    el_wset(line, EL_CLIENTDATA, this);
    el_wset(line, EL_PROMPT, promptOf);
    el_wset(line, EL_EDITOR, L"emacs");
    el_wset(line, EL_HIST, history_w, history);
    bindKey(L"arx-complete", L"Complete the word", complete, L"\t");
    // While a line is edited ^C is a key, and not a signal that ends the program.
    el_wset(line, EL_SETTY, L"-d", L"-isig", nullptr);
    bindKey(L"arx-cancel", L"Cancel", cancel, L"^C");
    bindKey(L"arx-end", L"End", end, L"^D");
}

Terminal::Editor& Terminal::Editor::of(EditLine* line)
{
    void* editor = nullptr;
    el_wget(line, EL_CLIENTDATA, &editor);
    return *static_cast<Editor*>(editor);
}

wchar_t* Terminal::Editor::promptOf(EditLine* line)
{
    return of(line).prompt.data();
}

void Terminal::Editor::remember(const wchar_t* text)
{
    HistEventW event;
    const std::wstring typed = text;
    if (typed.find_first_not_of(L" \n") != std::wstring::npos) history_w(history, &event, H_ENTER, text);
}

unsigned char Terminal::Editor::complete(EditLine* line, wint_t)
{
    const LineInfoW* now = el_wline(line);
    const std::wstring typed(now->buffer, now->cursor);
    const Completion found = console::complete(of(line).prompt, typed);
    if (found.words.empty()) return CC_ERROR;
    const bool only = found.words.size() == 1 && found.words[0].back() != L'/';
    const std::wstring word = typed.substr(found.begin);
    if (found.common.size() > word.size() || only) {
        el_deletestr(line, static_cast<int>(word.size()));
        el_winsertstr(line, (found.common + (only ? L" " : L"")).c_str());
        return CC_REFRESH;
    }
    put(L"\n");
    for (const std::wstring& one : found.words)
        put(one + L"  ");
    put(L"\n");
    return CC_REDISPLAY;
}

unsigned char Terminal::Editor::cancel(EditLine* line, wint_t)
{
    of(line).cancelled = true;
    return CC_NEWLINE;
}

unsigned char Terminal::Editor::end(EditLine* line, wint_t)
{
    const LineInfoW* now = el_wline(line);
    if (now->buffer == now->lastchar) {
        of(line).ended = true;
        return CC_EOF;
    }
    if (now->cursor == now->lastchar) return CC_ERROR;
    el_cursor(line, 1);
    el_deletestr(line, 1);
    return CC_REFRESH;
}

Terminal::Terminal(const std::string& historyFile) : mEditor(std::make_unique<Editor>(historyFile)) {}
Terminal::~Terminal() = default;

void Terminal::write(std::wstring_view text)
{
    const std::size_t end = text.find_last_of(L'\n');
    if (end != std::wstring_view::npos) {
        put(mEditor->held);
        put(text.substr(0, end + 1));
        mEditor->held.clear();
        text.remove_prefix(end + 1);
    }
    mEditor->held += text;
}

void Terminal::flush()
{
    put(mEditor->held);
    mEditor->held.clear();
    std::fflush(stdout);
}

bool Terminal::isInterrupted()
{
    return interrupted != 0;
}

bool Terminal::takeInterrupt()
{
    const bool was = interrupted != 0;
    interrupted = 0;
    return was;
}

std::optional<std::wstring> Terminal::readLine()
{
    Editor& editor = *mEditor;
    if (takeInterrupt()) return L"\x3";
    std::fflush(stdout);
    editor.prompt = std::move(editor.held);
    editor.held.clear();
    editor.cancelled = editor.ended = false;
    int count = 0;
    el_wset(editor.line, EL_PREP_TERM, 1); // before the prompt, or the system shows early keys a second time
    const wchar_t* typed = el_wgets(editor.line, &count);
    if (editor.cancelled || editor.ended || !typed) put(L"\n");
    if (editor.cancelled || (!typed && takeInterrupt())) return L"\x3";
    if (editor.ended || !typed || count <= 0) return std::nullopt;
    editor.remember(typed);
    return std::wstring(typed);
}
} // namespace console
