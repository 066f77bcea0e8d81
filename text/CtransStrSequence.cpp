#include "CtransStr.h"

#include <algorithm>
#include <climits>
#include <cwchar>
#include <optional>
#include <string>

namespace
{
bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// The whole number at the start of a text, 0 when there is none; nothing when it does not fit an int.
std::optional<int> leadingNumber(const CString& text)
{
    const wchar_t* at = text.GetString();
    const bool negative = *at == L'-';
    if (*at == L'-' || *at == L'+') ++at;
    long long value = 0;
    for (; isDigit(*at); ++at) {
        value = value * 10 + (*at - L'0');
        if (value > 1LL + INT_MAX) return std::nullopt;
    }
    if (negative) value = -value;
    if (value > INT_MAX) return std::nullopt;
    return static_cast<int>(value);
}

/// The sequence number whose last part is changed by `step`, with the rule of failure of GetNextSeqNum.
CString neighbour(const CString& seq, int step, int least)
{
    const int dot = seq.ReverseFind(L'.');
    if (dot < 0) return CString();
    const std::optional<int> last = leadingNumber(seq.Mid(dot + 1));
    if (!last) return CString();
    const long long value = static_cast<long long>(*last) + step;
    if (value < least || value > INT_MAX) return CString();
    CString number;
    number.Format(L".%d", static_cast<int>(value));
    return seq.Left(dot) + number;
}

/// One part of a sequence number, in the text that it is taken from.
struct Part {
    const wchar_t* begin;
    const wchar_t* end;

    size_t length() const { return static_cast<size_t>(end - begin); }
    bool isNumber() const
    {
        for (const wchar_t* at = begin; at != end; ++at)
            if (!isDigit(*at)) return false;
        return true;
    }
    Part withoutLeadingZeros() const
    {
        Part rest = *this;
        while (rest.begin != rest.end && *rest.begin == L'0')
            ++rest.begin;
        return rest;
    }
};

int compareCodes(const Part& a, const Part& b)
{
    const int order = std::wmemcmp(a.begin, b.begin, std::min(a.length(), b.length()));
    if (order) return order;
    return a.length() < b.length() ? -1 : a.length() > b.length();
}

int compareNumbers(const Part& a, const Part& b)
{
    const Part x = a.withoutLeadingZeros();
    const Part y = b.withoutLeadingZeros();
    if (x.length() != y.length()) return x.length() < y.length() ? -1 : 1;
    return compareCodes(x, y);
}

int compareParts(const Part& a, const Part& b)
{
    const bool number = a.isNumber();
    if (number != b.isNumber()) return number ? -1 : 1;
    return number ? compareNumbers(a, b) : compareCodes(a, b);
}

/// Takes the parts off a sequence number, left to right. A number always has at least one part.
class Parts
{
public:
    explicit Parts(const CString& seq) : m_at(seq.GetString()), m_end(m_at + seq.GetLength()) {}

    bool hasMore() const { return m_at != nullptr; }
    Part take()
    {
        const wchar_t* dot = std::wmemchr(m_at, L'.', static_cast<size_t>(m_end - m_at));
        const Part part{m_at, dot ? dot : m_end};
        m_at = dot ? dot + 1 : nullptr;
        return part;
    }

private:
    const wchar_t* m_at;
    const wchar_t* m_end;
};

/// The order of the first parts that differ; 0 when one number starts with the other.
int compareSequences(const CString& first, const CString& second)
{
    Parts a(first);
    Parts b(second);
    while (a.hasMore() && b.hasMore())
        if (const int order = compareParts(a.take(), b.take())) return order;
    return 0;
}

bool isSameNumber(const CString& first, const CString& second)
{
    return CtransStr::CountDot(first) == CtransStr::CountDot(second) && compareSequences(first, second) == 0;
}

CString parentOf(const CString& seq)
{
    CString parent;
    CtransStr::GetParentSeqNum(parent, seq);
    return parent;
}

void increaseDecimal(std::wstring& text)
{
    size_t at = text.size();
    while (at > 0 && text[at - 1] == L'9')
        text[--at] = L'0';
    if (at > 0 && isDigit(text[at - 1]))
        ++text[at - 1];
    else
        text.insert(at, 1, L'1');
}

/// The end of the run of digits with single points between them that starts at `begin`.
int endOfVersion(const CString& text, int begin)
{
    int at = begin;
    const int length = text.GetLength();
    while (at < length &&
           (isDigit(text[at]) || (text[at] == L'.' && at + 1 < length && isDigit(text[at + 1]))))
        ++at;
    return at;
}
} // namespace

int CtransStr::CountDot(const CString& text)
{
    int count = 0;
    for (int i = 0; i < text.GetLength(); ++i)
        count += text[i] == L'.';
    return count;
}

void CtransStr::GetNextSeqNum(CString& out, const CString& seq)
{
    out = neighbour(seq, 1, INT_MIN);
}

void CtransStr::GetPervSeqNum(CString& out, const CString& seq)
{
    out = neighbour(seq, -1, 1);
}

void CtransStr::GetParentSeqNum(CString& out, const CString& seq)
{
    const int dot = seq.ReverseFind(L'.');
    out = dot < 0 ? CString(L"0") : seq.Left(dot);
}

void CtransStr::GetSeqNumPostfix(CString& out, const CString& seq)
{
    const int dot = seq.ReverseFind(L'.');
    out = dot < 0 ? CString(L"0") : seq.Mid(dot + 1);
}

bool CtransStr::IsAfterChildBySeqNum(const CString& seq, const CString& child)
{
    return compareSequences(seq, child) > 0;
}

bool CtransStr::IsSameLevelOrChildLevelByParentSeqNum(const CString& parentSeq, const CString& seq)
{
    const CString parent = parentOf(seq);
    return isSameNumber(parent, parentSeq) || isSameNumber(parent, parentOf(parentSeq));
}

CString CtransStr::StringFlowNext(const CString& text)
{
    std::wstring next(text.GetString(), static_cast<size_t>(text.GetLength()));
    increaseDecimal(next);
    return CString(next.data(), static_cast<int>(next.size()));
}

CString CtransStr::GetUpgradeVersion(const CString& text)
{
    for (int begin = 0; begin < text.GetLength(); ++begin) {
        if (!isDigit(text[begin])) continue;
        const int end = endOfVersion(text, begin);
        const CString run = text.Mid(begin, end - begin);
        if (run.Find(L'.') >= 0) return run;
        begin = end;
    }
    return CString();
}
