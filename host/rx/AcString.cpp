#include "AcString.h"

#include <algorithm>
#include <cwctype>

namespace
{
const wchar_t* orEmpty(const wchar_t* text) { return text ? text : L""; }

template <class Same>
unsigned sameFromTheBeginning(const wchar_t* one, const wchar_t* other, Same isSame)
{
    unsigned count = 0;
    while (one[count] && isSame(one[count], other[count])) ++count;
    return count;
}

CStringA bytesOf(const CString& text, UINT codePage)
{
    const int size = WideCharToMultiByte(codePage, 0, text, text.GetLength(), nullptr, 0, nullptr, nullptr);
    CStringA bytes;
    WideCharToMultiByte(codePage, 0, text, text.GetLength(), bytes.GetBuffer(size), size, nullptr, nullptr);
    bytes.ReleaseBuffer(size);
    return bytes;
}
} // namespace

const char* AcString::utf8Ptr() const { return mBytes = bytesOf(mText, CP_UTF8); }
const char* AcString::ansiPtr() const { return mBytes = bytesOf(mText, CP_ACP); }

bool AcString::isAscii() const
{
    const wchar_t* text = mText;
    return std::all_of(text, text + mText.GetLength(), [](wchar_t c) { return c > 0 && c < 128; });
}

AcString& AcString::setEmpty()
{
    mText.Empty();
    return *this;
}

AcString& AcString::assign(const wchar_t* text)
{
    mText = orEmpty(text);
    return *this;
}

AcString& AcString::append(const wchar_t* text)
{
    mText += orEmpty(text);
    return *this;
}

AcString& AcString::append(wchar_t character)
{
    mText += character;
    return *this;
}

AcString& AcString::insert(int at, const wchar_t* text)
{
    mText.Insert(at, orEmpty(text));
    return *this;
}

int AcString::find(const wchar_t* text, int from) const { return mText.Find(orEmpty(text), from); }
int AcString::find(wchar_t character, int from) const { return mText.Find(character, from); }

int AcString::findLast(const wchar_t* text, int to) const
{
    const std::wstring all(mText);
    const std::size_t found = all.rfind(orEmpty(text), to < 0 ? std::wstring::npos : static_cast<std::size_t>(to));
    return found == std::wstring::npos ? -1 : static_cast<int>(found);
}

AcString AcString::mid(int from, int count) const
{
    if (from < 0 || from >= mText.GetLength()) return AcString();
    return count < 0 ? mText.Mid(from) : mText.Mid(from, count);
}

int AcString::replace(const wchar_t* what, const wchar_t* with) { return mText.Replace(orEmpty(what), orEmpty(with)); }

AcString& AcString::remove(int from, int count)
{
    mText.Delete(from, count < 0 ? mText.GetLength() - from : count);
    return *this;
}

AcString& AcString::makeUpper()
{
    mText.MakeUpper();
    return *this;
}

AcString& AcString::makeLower()
{
    mText.MakeLower();
    return *this;
}

AcString& AcString::makeReverse()
{
    mText.MakeReverse();
    return *this;
}

AcString& AcString::trimLeft()
{
    mText.TrimLeft();
    return *this;
}

AcString& AcString::trimRight()
{
    mText.TrimRight();
    return *this;
}

int AcString::compare(const wchar_t* text) const { return mText.Compare(orEmpty(text)); }
int AcString::compareNoCase(const wchar_t* text) const { return mText.CompareNoCase(orEmpty(text)); }

unsigned AcString::match(const wchar_t* text) const
{
    return sameFromTheBeginning(mText, orEmpty(text), [](wchar_t a, wchar_t b) { return a == b; });
}

unsigned AcString::matchNoCase(const wchar_t* text) const
{
    return sameFromTheBeginning(mText, orEmpty(text), [](wchar_t a, wchar_t b) { return towlower(a) == towlower(b); });
}
