#pragma once

/// The string class of both character widths.

#include "atlexcept.h"
#include "cstringdata.h"

#include <windows.h>

#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

/// A text of wide characters (CString, CStringW) or of bytes in the ANSI code page (CStringA).
///
/// A string is one pointer to its zero-terminated characters. Copies share them until one of them changes.
/// Different strings may be used from different threads at once, also when they share characters; one string
/// may not be changed while another thread uses it.
///
/// Positions and lengths count characters of BaseType from 0. Searches, comparisons and edits of a CStringA
/// go by whole characters of the ANSI code page: the second byte of a two-byte character is never taken for
/// a letter or a backslash. Where a text is given as a pointer, a null pointer is the empty text.
/// Comparisons, and whatever takes the text as a pointer, end at the first zero; the other operations keep
/// zeros.
///
/// A text given as a pointer may lie inside the string that is being changed.
///
/// Any operation that needs memory throws CAtlException(E_OUTOFMEMORY) when there is none or when the result
/// would be longer than INT_MAX; the string is then as it was.
template <class BaseType>
class __declspec(dllexport) CStringT
{
public:
    using XCHAR = BaseType;
    using YCHAR = std::conditional_t<std::is_same_v<BaseType, wchar_t>, char, wchar_t>;
    using PXSTR = XCHAR*;
    using PCXSTR = const XCHAR*;
    using PYSTR = YCHAR*;
    using PCYSTR = const YCHAR*;
    using CStringOther = CStringT<YCHAR>;

    CStringT() noexcept : m_text(nilText()) {}
    CStringT(const CStringT& other) : m_text(other.data()->share() ? other.m_text : other.cloneText()) {}
    CStringT(CStringT&& other) noexcept : m_text(other.m_text) { other.m_text = nilText(); }
    /// The text converted from the other width through the ANSI code page.
    CStringT(const CStringOther& other) : CStringT(other.GetString(), other.GetLength()) {}
    CStringT(PCXSTR text) : m_text(newText(text, lengthOf(text))) {}
    CStringT(PCYSTR text) : CStringT(text, lengthOf(text)) {}
    CStringT(const unsigned char* text) : CStringT(reinterpret_cast<const char*>(text)) {}
    /// The first `length` characters, zeros included. A negative length is E_INVALIDARG, and so is a null
    /// pointer with a length above 0.
    CStringT(PCXSTR text, int length) : m_text(newText(text, length)) {}
    CStringT(PCYSTR text, int length);
    /// One character repeated; a count below 1 gives the empty text.
    CStringT(XCHAR character, int count = 1);
    CStringT(YCHAR character, int count = 1);
    ~CStringT()
    {
        if (data()->leave()) freeText(m_text);
    }

    CStringT& operator=(const CStringT& other);
    CStringT& operator=(CStringT&& other)
    {
        if (data()->isLocked()) return *this = static_cast<const CStringT&>(other);
        std::swap(m_text, other.m_text);
        return *this;
    }
    CStringT& operator=(const CStringOther& other) { return *this = CStringT(other); }
    CStringT& operator=(PCXSTR text)
    {
        SetString(text);
        return *this;
    }
    CStringT& operator=(PCYSTR text) { return *this = CStringT(text); }
    CStringT& operator=(const unsigned char* text) { return *this = CStringT(text); }
    CStringT& operator=(char character) { return *this = CStringT(character); }
    CStringT& operator=(wchar_t character) { return *this = CStringT(character); }
    void SetString(PCXSTR text) { SetString(text, lengthOf(text)); }
    void SetString(PCXSTR text, int length);

    int GetLength() const noexcept { return data()->length; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    /// Makes the text empty and gives its memory back; a locked buffer is kept.
    void Empty() noexcept;
    /// The character at a position from 0 to GetLength(), where the terminator is; beyond: E_INVALIDARG.
    XCHAR GetAt(int index) const
    {
        if (index < 0 || index > GetLength()) throwInvalidArgument();
        return m_text[index];
    }
    template <class Index, class = std::enable_if_t<std::is_integral_v<Index>>>
    XCHAR operator[](Index index) const
    {
        return GetAt(static_cast<int>(index));
    }
    /// Replaces the character at a position from 0 to GetLength() - 1; beyond: E_INVALIDARG.
    void SetAt(int index, XCHAR character);
    PCXSTR GetString() const noexcept { return m_text; }
    operator PCXSTR() const noexcept { return m_text; }

    /// The characters for writing, GetLength() of them and the terminator. To be followed by ReleaseBuffer
    /// when the length may have changed.
    PXSTR GetBuffer() { return writableText(GetLength()); }
    /// The characters for writing, with room for `minimum` and a terminator. The text stays. A negative
    /// minimum is E_INVALIDARG. To be followed by ReleaseBuffer.
    PXSTR GetBuffer(int minimum);
    /// As GetBuffer(length), and the text has that length at once; new characters are undefined.
    PXSTR GetBufferSetLength(int length);
    /// Ends a GetBuffer: the text now has `newLength` characters, or with -1 those before the first zero.
    /// A length for which there is no room is E_INVALIDARG.
    void ReleaseBuffer(int newLength = -1);
    void ReleaseBufferSetLength(int newLength);
    /// Keeps the characters where they are and unshared: copies of a locked string copy the characters.
    PXSTR LockBuffer();
    void UnlockBuffer() noexcept;
    /// Gives unused room back.
    void FreeExtra();
    /// Makes room for `length` characters.
    void Preallocate(int length);
    int GetAllocLength() const noexcept { return data()->capacity; }
    /// Shortens the text to `length` characters; a length outside 0..GetLength() is E_INVALIDARG.
    void Truncate(int length);

    void Append(PCXSTR text) { Append(text, lengthOf(text)); }
    /// Appends the first `length` characters. Fails as the constructor from pointer and length does.
    void Append(PCXSTR text, int length)
    {
        CStringData* const buffer = data();
        const bool isUnshared = buffer->isUnshared();
        const int end = buffer->length;
        const bool fits = length >= 0 && length <= buffer->capacity - end;
        if (!isUnshared || !fits || !text) return appendSlow(text, length);
        std::memcpy(m_text + end, text, static_cast<std::size_t>(length) * sizeof(XCHAR));
        setLength(end + length);
    }
    void Append(const CStringT& text) { Append(text.m_text, text.GetLength()); }
    void AppendChar(XCHAR character)
    {
        // Both ways end in the same stores, which lets a loop keep the length in a register.
        const int end = data()->length;
        const unsigned isFull = end >= data()->capacity;
        if (__builtin_expect(isFull | !data()->isSingle(), false)) makeRoomForOne();
        m_text[end] = character;
        m_text[end + 1] = 0;
        data()->length = end + 1;
    }
    CStringT& operator+=(const CStringT& text)
    {
        Append(text);
        return *this;
    }
    CStringT& operator+=(const CStringOther& text) { return *this += CStringT(text); }
    CStringT& operator+=(PCXSTR text)
    {
        Append(text);
        return *this;
    }
    CStringT& operator+=(PCYSTR text) { return *this += CStringT(text); }
    CStringT& operator+=(XCHAR character)
    {
        AppendChar(character);
        return *this;
    }
    CStringT& operator+=(YCHAR character) { return *this += CStringT(character); }

    /// Inserts in front of the character at `index`; an index below 0 counts as 0, one behind the end as the
    /// end. The new length.
    int Insert(int index, PCXSTR text);
    int Insert(int index, XCHAR character) { return insertText(index, &character, 1); }
    /// Removes up to `count` characters from `index` on; negative values count as 0. The new length.
    int Delete(int index, int count = 1);
    /// Removes every occurrence of the character. Their number.
    int Remove(XCHAR character);
    /// Replaces every occurrence. Their number.
    int Replace(XCHAR oldCharacter, XCHAR newCharacter);
    /// Replaces every occurrence, from left to right without looking at what was put in; nothing when
    /// `oldText` is empty. Their number.
    int Replace(PCXSTR oldText, PCXSTR newText);

    /// The position of the first occurrence at or behind `start`, or -1. A start outside the text finds
    /// nothing; the empty text is found at the start.
    int Find(PCXSTR text, int start = 0) const noexcept;
    int Find(XCHAR character, int start = 0) const noexcept;
    /// The position of the last occurrence of the character, or -1.
    int ReverseFind(XCHAR character) const noexcept;
    /// The position of the first character that is one of the set, or -1.
    int FindOneOf(PCXSTR characters) const noexcept;

    /// Parts of the text. Negative values count as 0, and what is too long ends with the text.
    CStringT Mid(int first) const { return Mid(first, GetLength()); }
    CStringT Mid(int first, int count) const;
    CStringT Left(int count) const { return Mid(0, count); }
    CStringT Right(int count) const;
    /// The longest beginning made only of characters of the set.
    CStringT SpanIncluding(PCXSTR characters) const;
    /// The longest beginning made only of characters that are not in the set.
    CStringT SpanExcluding(PCXSTR characters) const;

    /// Remove white space, one character, or the characters of a set, from one end or both.
    CStringT& Trim() { return TrimRight().TrimLeft(); }
    CStringT& Trim(XCHAR character) { return TrimRight(character).TrimLeft(character); }
    CStringT& Trim(PCXSTR characters)
    {
        const CStringT set(characters);
        return TrimRight(set).TrimLeft(set);
    }
    CStringT& TrimLeft();
    CStringT& TrimLeft(XCHAR character);
    CStringT& TrimLeft(PCXSTR characters);
    CStringT& TrimRight();
    CStringT& TrimRight(XCHAR character);
    CStringT& TrimRight(PCXSTR characters);

    CStringT& MakeUpper();
    CStringT& MakeLower();
    CStringT& MakeReverse();

    /// The next piece of the text that holds none of the separator characters, from `start` on. Empty pieces
    /// are skipped. `start` becomes the position behind the separator that ended the piece, or -1, with the
    /// empty text as result, when there is no further piece. Without separators the rest of the text is one
    /// piece. A negative start is E_INVALIDARG.
    CStringT Tokenize(PCXSTR separators, int& start) const;

    /// Becomes, or gets appended, the formatted text; crtformat.h has the directives. Strings of either width
    /// are passed as they are. The arguments may point into this string.
    template <class... Args>
    void Format(PCXSTR format, const Args&... args)
    {
        const auto list = crt::formatArgs(args...);
        formatTyped(format, list.begin(), list.size());
    }
    template <class... Args>
    void AppendFormat(PCXSTR format, const Args&... args)
    {
        const auto list = crt::formatArgs(args...);
        appendFormatTyped(format, list.begin(), list.size());
    }
    /// For the arguments of a function with `...`: crt::formatV has the limits.
    void FormatV(PCXSTR format, va_list args);
    void AppendFormatV(PCXSTR format, va_list args);
    /// Becomes the message with its inserts %1, %2!d! ...; see crt::formatMessage.
    template <class... Args>
    void FormatMessage(PCXSTR format, const Args&... args)
    {
        const auto list = crt::formatArgs(args...);
        formatMessageTyped(format, list.begin(), list.size());
    }

    /// Below 0, 0 or above 0 as this text comes before, equals or comes behind the other by the values of its
    /// characters; Collate in the order of the user's language (CompareStringW).
    int Compare(PCXSTR text) const noexcept { return compareText(m_text, text ? text : nilText()); }
    /// As Compare, with upper and lower case taken as equal.
    int CompareNoCase(PCXSTR text) const noexcept;
    int Collate(PCXSTR text) const;
    int CollateNoCase(PCXSTR text) const;

    /// The text as a string of automation, for SysFreeString.
    BSTR AllocSysString() const;
    /// Puts the text into the string of automation, which may move. The string.
    BSTR SetSysString(BSTR* string) const;

    friend CStringT operator+(CStringT left, const CStringT& right)
    {
        left.Append(right);
        return left;
    }
    friend CStringT operator+(CStringT left, const CStringOther& right)
    {
        left += right;
        return left;
    }
    friend CStringT operator+(CStringT left, PCXSTR right)
    {
        left.Append(right);
        return left;
    }
    friend CStringT operator+(CStringT left, PCYSTR right)
    {
        left += right;
        return left;
    }
    friend CStringT operator+(PCYSTR left, const CStringT& right) { return CStringT(left) + right; }
    friend CStringT operator+(PCXSTR left, const CStringT& right) { return CStringT(left) + right; }
    friend CStringT operator+(CStringT left, XCHAR right)
    {
        left.AppendChar(right);
        return left;
    }
    friend CStringT operator+(CStringT left, YCHAR right)
    {
        left += right;
        return left;
    }
    friend CStringT operator+(XCHAR left, const CStringT& right) { return CStringT(left) + right; }
    friend CStringT operator+(YCHAR left, const CStringT& right) { return CStringT(left) + right; }

#define QM_STRING_COMPARISON(op)                                                                             \
    friend bool operator op(const CStringT& left, const CStringT& right) noexcept                            \
    {                                                                                                        \
        return compareText(left.m_text, right.m_text) op 0;                                                  \
    }                                                                                                        \
    friend bool operator op(const CStringT& left, PCXSTR right) noexcept                                     \
    {                                                                                                        \
        return left.Compare(right) op 0;                                                                     \
    }                                                                                                        \
    friend bool operator op(PCXSTR left, const CStringT& right) noexcept                                     \
    {                                                                                                        \
        return 0 op right.Compare(left);                                                                     \
    }                                                                                                        \
    friend bool operator op(const CStringT& left, PCYSTR right)                                              \
    {                                                                                                        \
        return left op CStringT(right);                                                                      \
    }                                                                                                        \
    friend bool operator op(PCYSTR left, const CStringT& right)                                              \
    {                                                                                                        \
        return CStringT(left) op right;                                                                      \
    }
    QM_STRING_COMPARISON(==)
    QM_STRING_COMPARISON(!=)
    QM_STRING_COMPARISON(<)
    QM_STRING_COMPARISON(>)
    QM_STRING_COMPARISON(<=)
    QM_STRING_COMPARISON(>=)
#undef QM_STRING_COMPARISON
    friend bool operator==(const CStringT& left, XCHAR right) noexcept
    {
        return left.isCharacter(right);
    }
    friend bool operator==(XCHAR left, const CStringT& right) noexcept
    {
        return right.isCharacter(left);
    }
    friend bool operator!=(const CStringT& left, XCHAR right) noexcept
    {
        return !left.isCharacter(right);
    }
    friend bool operator!=(XCHAR left, const CStringT& right) noexcept
    {
        return !right.isCharacter(left);
    }

    /// The characters as a range, without the terminator.
    friend PCXSTR begin(const CStringT& text) noexcept
    {
        return text.m_text;
    }
    friend PCXSTR end(const CStringT& text) noexcept
    {
        return text.m_text + text.GetLength();
    }

private:
    using View = std::basic_string_view<XCHAR>;

    static PXSTR nilText() noexcept
    {
        return reinterpret_cast<PXSTR>(&atlNilString.data + 1);
    }
    static CStringData* dataOf(PXSTR text) noexcept
    {
        return reinterpret_cast<CStringData*>(text) - 1;
    }
    CStringData* data() const noexcept
    {
        return dataOf(m_text);
    }
    View view() const noexcept
    {
        return View(m_text, GetLength());
    }

    static int lengthOf(const char* text)
    {
        return text ? checkedLength(std::strlen(text)) : 0;
    }
    static int lengthOf(const wchar_t* text)
    {
        return text ? checkedLength(std::wcslen(text)) : 0;
    }
    static int checkedLength(std::size_t length)
    {
        if (length > INT_MAX) throwTooLong();
        return static_cast<int>(length);
    }
    static int compareText(const char* a, const char* b) noexcept
    {
        return std::strcmp(a, b);
    }
    static int compareText(const wchar_t* a, const wchar_t* b) noexcept
    {
        return std::wcscmp(a, b);
    }
    bool isCharacter(XCHAR character) const noexcept
    {
        return GetLength() == 1 && *m_text == character;
    }

    /// Sets the length of an unshared text with enough room.
    void setLength(int length) noexcept
    {
        data()->length = length;
        m_text[length] = 0;
    }

    [[noreturn]] static void throwInvalidArgument();
    [[noreturn]] static void throwTooLong();
    static void freeText(PXSTR text) noexcept;
    static PXSTR allocateText(int capacity);
    static PXSTR newText(PCXSTR text, int length);
    PXSTR cloneText() const;
    PXSTR writableText(int capacity);
    void growTo(int length);
    void reserveText(int capacity);
    bool contains(PCXSTR text) const noexcept;
    void appendSlow(PCXSTR text, int length);
    __attribute__((cold)) void makeRoomForOne();
    void formatTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count);
    void appendFormatTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count);
    void formatMessageTyped(PCXSTR format, const crt::FormatArg* args, std::size_t count);
    int insertText(int index, PCXSTR text, int length);
    void keep(int first, int count);
    template <class IsUnwanted>
    CStringT& trimLeftWhile(IsUnwanted isUnwanted);
    template <class IsUnwanted>
    CStringT& trimRightWhile(IsUnwanted isUnwanted);

    PXSTR m_text;
};

extern template class CStringT<wchar_t>;
extern template class CStringT<char>;

using CStringW = CStringT<wchar_t>;
using CStringA = CStringT<char>;
using CString = CStringW;

/// Equal strings have equal hashes: the characters up to the first zero.
template <class BaseType>
struct std::hash<CStringT<BaseType>> {
    std::size_t operator()(const CStringT<BaseType>& text) const noexcept
    {
        return std::hash<std::basic_string_view<BaseType>>()(text.GetString());
    }
};
