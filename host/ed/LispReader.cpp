#include "LispReader.h"

#include <cwchar>
#include <cwctype>
#include <limits>

namespace
{
using ed::LispForm;

/// Deeper lists are refused, so that a malformed text cannot use up the stack.
constexpr int deepest = 200;

LispForm symbol(std::wstring name)
{
    LispForm form;
    form.kind = LispForm::Kind::symbol;
    form.text = std::move(name);
    return form;
}

/// A word is a number if all of it is one.
LispForm atom(const std::wstring& word)
{
    LispForm form = symbol(word);
    wchar_t* end = nullptr;
    const bool numeric = std::iswdigit(word.back()) || word.back() == L'.';
    const double real = std::wcstod(word.c_str(), &end);
    if (!numeric || *end || word.find_first_of(L"xXnN") != std::wstring::npos) return form;
    form.real = real;
    form.kind = LispForm::Kind::real;
    if (word.find_first_of(L".eE") == std::wstring::npos && std::abs(real) <= std::numeric_limits<int>::max()) {
        form.kind = LispForm::Kind::integer;
        form.integer = static_cast<long>(real);
    }
    return form;
}

class Reader
{
public:
    explicit Reader(const std::wstring& text) : mText(text) {}

    bool read(LispForm& form, std::wstring& fault)
    {
        const bool good = readForm(form, 0);
        skipBlanks();
        if (good && mAt < mText.size()) mFault = L"extra right paren on input";
        fault = mFault;
        return mFault.empty();
    }

private:
    void skipBlanks()
    {
        while (mAt < mText.size() && std::iswspace(mText[mAt])) ++mAt;
    }
    bool fail(const wchar_t* fault)
    {
        if (mFault.empty()) mFault = fault;
        return false;
    }

    bool readForm(LispForm& form, int depth)
    {
        skipBlanks();
        if (depth > deepest) return fail(L"too deeply nested");
        if (mAt >= mText.size()) return fail(L"malformed list on input");
        switch (mText[mAt]) {
        case L'(': return readList(form, depth);
        case L')': return fail(L"extra right paren on input");
        case L'"': return readText(form);
        case L'\'': return readQuoted(form, depth);
        default: return readWord(form);
        }
    }
    bool readList(LispForm& form, int depth)
    {
        form = LispForm();
        ++mAt;
        for (skipBlanks(); mAt < mText.size() && mText[mAt] != L')'; skipBlanks()) {
            LispForm item;
            if (!readForm(item, depth + 1)) return false;
            form.items.push_back(std::move(item));
        }
        if (mAt >= mText.size()) return fail(L"malformed list on input");
        ++mAt;
        return true;
    }
    bool readQuoted(LispForm& form, int depth)
    {
        ++mAt;
        form = LispForm();
        form.items.push_back(symbol(L"quote"));
        form.items.emplace_back();
        return readForm(form.items.back(), depth + 1);
    }
    bool readText(LispForm& form)
    {
        form.kind = LispForm::Kind::text;
        for (++mAt; mAt < mText.size() && mText[mAt] != L'"'; ++mAt) form.text += readCharacter();
        if (mAt >= mText.size()) return fail(L"malformed string on input");
        ++mAt;
        return true;
    }
    wchar_t readCharacter()
    {
        if (mText[mAt] != L'\\' || mAt + 1 >= mText.size()) return mText[mAt];
        switch (mText[++mAt]) {
        case L'n': return L'\n';
        case L'r': return L'\r';
        case L't': return L'\t';
        case L'e': return L'\x1b';
        default: return mText[mAt];
        }
    }
    bool readWord(LispForm& form)
    {
        constexpr std::wstring_view ends = L"()\"'"; // a null character is one like others
        const std::size_t from = mAt;
        while (mAt < mText.size() && !std::iswspace(mText[mAt]) && ends.find(mText[mAt]) == ends.npos) ++mAt;
        form = atom(mText.substr(from, mAt - from));
        return true;
    }

    const std::wstring& mText;
    std::size_t mAt = 0;
    std::wstring mFault;
};
} // namespace

bool ed::readLisp(const std::wstring& text, LispForm& form, std::wstring& fault) { return Reader(text).read(form, fault); }
