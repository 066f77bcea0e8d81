#pragma once

/// AcString: a text of the drawing interfaces, with value semantics.

#include "acadstrc.h"

#include <atlstr.h>

/// Positions and lengths count characters from 0; a length of -1 is all that follows. What does not exist is -1 where a
/// position is asked for, and the empty text otherwise.
class AcString
{
public:
    enum class Encoding { Utf8, Wide };

    AcString() = default;
    AcString(const wchar_t* text) : mText(text ? text : L"") {}
    AcString(const char* ansi) : mText(ansi ? ansi : "") {}
    AcString(const CString& text) : mText(text) {}
    explicit AcString(wchar_t character) : mText(character, 1) {}
    AcString(const wchar_t* text, unsigned length) : mText(text, static_cast<int>(length)) {}

    const wchar_t* constPtr() const { return mText; }
    const wchar_t* kACharPtr() const { return mText; }
    const wchar_t* kwszPtr() const { return mText; }
    operator const wchar_t*() const { return mText; }
    /// The text as bytes; they hold until the text is changed or asked for again.
    const char* utf8Ptr() const;
    const char* ansiPtr() const;

    bool isEmpty() const { return mText.IsEmpty(); }
    /// A text of nothing but 7-bit characters.
    bool isAscii() const;
    unsigned length() const { return static_cast<unsigned>(mText.GetLength()); }
    AcString& setEmpty();
    /// The value of the digits that the text begins with; 0 without any.
    int asDeci() const { return static_cast<int>(std::wcstol(mText, nullptr, 10)); }
    unsigned asHex() const { return static_cast<unsigned>(std::wcstoul(mText, nullptr, 16)); }

    AcString& assign(const wchar_t* text);
    AcString& assign(const AcString& text) { return *this = text; }
    AcString& append(const wchar_t* text);
    AcString& append(wchar_t character);
    AcString& insert(int at, const wchar_t* text);
    /// Replaces the contents, or adds to them, in the manner of printf.
    template <class... Arguments>
    AcString& format(const wchar_t* format, const Arguments&... arguments)
    {
        mText.Format(format, arguments...);
        return *this;
    }
    template <class... Arguments>
    AcString& appendFormat(const wchar_t* format, const Arguments&... arguments)
    {
        mText.AppendFormat(format, arguments...);
        return *this;
    }
    AcString& operator+=(const wchar_t* text) { return append(text); }
    AcString& operator+=(wchar_t character) { return append(character); }
    AcString& operator+=(const AcString& text) { return append(text.constPtr()); }

    int find(const wchar_t* text, int from = 0) const;
    int find(wchar_t character, int from = 0) const;
    int findLast(const wchar_t* text, int to = -1) const;
    /// The first character that is one of a set, or none of it.
    int findOneOf(const wchar_t* set) const { return mText.FindOneOf(set); }
    AcString left(unsigned count) const { return mText.Left(static_cast<int>(count)); }
    AcString right(unsigned count) const { return mText.Right(static_cast<int>(count)); }
    AcString mid(int from, int count = -1) const;
    AcString substr(int count) const { return mid(0, count); }
    AcString substr(int from, int count) const { return mid(from, count); }
    /// How many were replaced.
    int replace(const wchar_t* what, const wchar_t* with);
    AcString& remove(int from, int count = -1);

    AcString& makeUpper();
    AcString& makeLower();
    AcString& makeReverse();
    AcString& trimLeft();
    AcString& trimRight();
    AcString& trim() { return trimLeft().trimRight(); }

    /// Below, at or above 0, by character codes.
    int compare(const wchar_t* text) const;
    int compareNoCase(const wchar_t* text) const;
    /// How many characters from the beginning are the same.
    unsigned match(const wchar_t* text) const;
    unsigned matchNoCase(const wchar_t* text) const;

    bool operator==(const wchar_t* text) const { return compare(text) == 0; }
    bool operator!=(const wchar_t* text) const { return compare(text) != 0; }
    bool operator==(const AcString& text) const { return mText == text.mText; }
    bool operator!=(const AcString& text) const { return mText != text.mText; }
    bool operator<(const AcString& text) const { return compare(text.constPtr()) < 0; }

private:
    CString mText;
    mutable CStringA mBytes;
};

inline AcString operator+(AcString one, const AcString& other) { return one.append(other.constPtr()); }
inline AcString operator+(AcString one, const wchar_t* other) { return one.append(other); }
inline AcString operator+(const wchar_t* one, const AcString& other) { return AcString(one).append(other.constPtr()); }
