#include "Completion.h"

#include "CommandStackAccess.h"
#include "ConsoleText.h"
#include "VariableTable.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace console
{
namespace
{
namespace fs = std::filesystem;
using Words = std::set<std::wstring>;

bool beginsWith(const std::wstring& text, const std::wstring& begin)
{
    return _wcsnicmp(text.c_str(), begin.c_str(), begin.size()) == 0;
}

/// The place behind the last blank that is not in quotes.
std::size_t beginOfWord(const std::wstring& line)
{
    std::size_t begin = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == L'"') quoted = !quoted;
        if (line[i] == L' ' && !quoted) begin = i + 1;
    }
    return begin;
}

void addCommands(Words& words)
{
    const std::unique_ptr<AcEdCommandIterator> walk(ed::commandStack().iterator());
    for (; !walk->done(); walk->next()) {
        const CString local = walk->command()->localName(), global = walk->command()->globalName();
        words.insert(local.GetString());
        if (global.CompareNoCase(local) != 0) words.insert((L"_" + global).GetString());
    }
}

void addVariables(Words& words)
{
    for (std::wstring& name : ed::variableNames())
        words.insert(std::move(name));
}

/// Keywords without what stands in front of them in the list, as in "[Undo/eXit]" or "<Undo>".
void addKeywords(Words& words, const std::wstring& prompt)
{
    const std::size_t open = prompt.rfind(L'['), close = prompt.find(L']', open);
    if (open == std::wstring::npos || close == std::wstring::npos) return;
    for (std::size_t from = open + 1; from <= close;) {
        const std::size_t to = std::min(prompt.find(L'/', from), close);
        words.insert(prompt.substr(from, to - from));
        from = to + 1;
    }
}

void addFiles(Words& words, const std::wstring& typed)
{
    const std::size_t slash = typed.find_last_of(L'/');
    const std::wstring folder = slash == std::wstring::npos ? L"" : typed.substr(0, slash + 1);
    std::error_code error;
    const fs::path path(folder.empty() ? std::string(".") : utf8(folder.c_str()));
    for (const fs::directory_entry& entry : fs::directory_iterator(path, error)) {
        const std::wstring name = wide(entry.path().filename().string()).GetString();
        if (name[0] != L'.') words.insert(folder + name + (entry.is_directory(error) ? L"/" : L""));
    }
}

bool mentions(const std::wstring& prompt, std::initializer_list<const wchar_t*> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](const wchar_t* word) { return prompt.find(word) != std::wstring::npos; });
}

Words candidates(const std::wstring& prompt, const std::wstring& before, const std::wstring& typed)
{
    Words words;
    const bool atCommandPrompt = prompt == L"Command: ";
    if (atCommandPrompt && before.empty()) {
        addCommands(words);
        addVariables(words);
    } else if (mentions(prompt, {L"variable"}) || (atCommandPrompt && beginsWith(before, L"SETVAR "))) {
        addVariables(words);
    } else if (atCommandPrompt || mentions(prompt, {L"file", L"drawing"})) {
        addFiles(words, typed);
    } else {
        addKeywords(words, prompt);
    }
    return words;
}

std::wstring commonBegin(const std::vector<std::wstring>& words)
{
    std::wstring common = words.empty() ? L"" : words.front();
    for (const std::wstring& word : words) {
        while (!beginsWith(word, common))
            common.pop_back();
    }
    return common;
}
} // namespace

Completion complete(const std::wstring& prompt, const std::wstring& line)
{
    Completion result;
    result.begin = beginOfWord(line);
    if (result.begin < line.size() && line[result.begin] == L'"') ++result.begin;
    const std::wstring typed = line.substr(result.begin);
    for (const std::wstring& word : candidates(prompt, line.substr(0, result.begin), typed)) {
        if (beginsWith(word, typed)) result.words.push_back(word);
    }
    result.common = commonBegin(result.words);
    return result;
}
} // namespace console
