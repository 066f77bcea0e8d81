#include "CtransStr.h"

namespace
{
/// Walks over the fields of a text, left to right.
class Fields
{
public:
    Fields(const CString& text, const CString& separator) : m_text(text), m_separator(separator) {}

    /// Moves to the next field; false after the last one.
    bool next()
    {
        if (m_nextStart < 0) return false;
        m_start = m_nextStart;
        const int found = m_separator.IsEmpty() ? -1 : m_text.Find(m_separator.GetString(), m_start);
        m_end = found < 0 ? m_text.GetLength() : found;
        m_nextStart = found < 0 ? -1 : found + m_separator.GetLength();
        return true;
    }
    CString field() const { return m_text.Mid(m_start, m_end - m_start); }

private:
    // Copies: an output of the caller may be one of the inputs.
    const CString m_text;
    const CString m_separator;
    int m_start = 0;
    int m_end = 0;
    int m_nextStart = 0;
};
} // namespace

int CtransStr::ExtractSubString(CString& out, const CString& text, const CString& separator, int index)
{
    Fields fields(text, separator);
    out.Empty();
    if (index < 0) return 0;
    for (int at = 0; fields.next(); ++at) {
        if (at != index) continue;
        out = fields.field();
        return 1;
    }
    return 0;
}

int CtransStr::SplitStr(CStringArray& out, const CString& text, const CString& separator)
{
    Fields fields(text, separator);
    out.RemoveAll();
    while (fields.next())
        out.Add(fields.field());
    return static_cast<int>(out.GetSize());
}

int CtransStr::SplitStr(std::vector<CString>& out, const CString& text, const CString& separator)
{
    Fields fields(text, separator);
    out.clear();
    while (fields.next())
        out.push_back(fields.field());
    return static_cast<int>(out.size());
}

int CtransStr::SplitStrTwo(CString& first, CString& second, const CString& text, const CString& separator)
{
    const CString whole = text;
    const int separatorLength = separator.GetLength();
    const int found = separatorLength ? whole.Find(separator.GetString()) : -1;
    first = found < 0 ? whole : whole.Left(found);
    second = found < 0 ? CString() : whole.Mid(found + separatorLength);
    return found >= 0;
}
