#include "RegexProgram.h"

#include <climits>
#include <cstdlib>

namespace
{
using regex::CharacterSet;
using regex::Instruction;
using regex::Op;
using regex::Program;
using regex::unlimited;

constexpr int deepestNesting = 200;
constexpr size_t longestProgram = 200000;

/// What ends the reading of a malformed pattern. It does not leave this file.
struct Malformed {
};

/// The instructions of a part of a pattern. Their distances do not depend on where the part will stand.
struct Fragment {
    std::vector<Instruction> code;
    bool canBeEmpty = true;

    void append(const Fragment& next)
    {
        if (code.size() + next.code.size() > longestProgram) throw Malformed();
        code.insert(code.end(), next.code.begin(), next.code.end());
        canBeEmpty = canBeEmpty && next.canBeEmpty;
    }
    int size() const { return static_cast<int>(code.size()); }
};

Fragment single(const Instruction& instruction, bool canBeEmpty)
{
    Fragment fragment;
    fragment.code.push_back(instruction);
    fragment.canBeEmpty = canBeEmpty;
    return fragment;
}

Fragment consuming(Op op, int operand = 0)
{
    return single({op, operand}, false);
}

bool takesOneCharacter(const Fragment& f)
{
    return f.size() == 1 && f.code[0].op <= Op::characterSet;
}

Instruction choice(int preferred, int other, bool greedy)
{
    return {Op::split, greedy ? preferred : other, greedy ? other : preferred};
}

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}
bool isLetter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

struct Quantifier {
    int least;
    int most; ///< or unlimited
    bool greedy;
};

/// Reads a pattern by recursive descent.
class Compiler
{
public:
    explicit Compiler(const std::wstring& pattern) : m_at(pattern.data()), m_end(m_at + pattern.size()) {}

    Program compile()
    {
        Fragment whole = single({Op::save, 0}, true);
        whole.append(alternatives());
        if (m_at != m_end) throw Malformed(); // a ")" too many
        whole.append(single({Op::save, 1}, true));
        whole.append(single({Op::accept}, true));
        m_program.instructions = std::move(whole.code);
        // The slots behind those of the groups were numbered from 0 downwards while groups were counted.
        m_program.slots = 2 * m_program.groups + m_progressSlots;
        for (Instruction& each : m_program.instructions)
            if ((each.op == Op::save || each.op == Op::checkProgress) && each.a < 0)
                each.a = 2 * m_program.groups - each.a - 1;
        return std::move(m_program);
    }

private:
    // Characters of the pattern.

    bool atEnd() const { return m_at == m_end; }
    bool sees(wchar_t c) const { return m_at != m_end && *m_at == c; }
    bool skip(wchar_t c)
    {
        if (!sees(c)) return false;
        ++m_at;
        return true;
    }
    bool skip(const wchar_t* text)
    {
        const wchar_t* at = m_at;
        for (; *text; ++text, ++at)
            if (at == m_end || *at != *text) return false;
        m_at = at;
        return true;
    }
    wchar_t take()
    {
        if (atEnd()) throw Malformed();
        return *m_at++;
    }
    void expect(wchar_t c)
    {
        if (take() != c) throw Malformed();
    }

    // Structure.

    Fragment alternatives()
    {
        if (++m_depth > deepestNesting) throw Malformed();
        std::vector<Fragment> each{sequence()};
        while (skip(L'|'))
            each.push_back(sequence());
        --m_depth;
        return joined(each);
    }
    /// a|b|c: every alternative but the last starts with a choice and ends with a jump behind the last.
    static Fragment joined(std::vector<Fragment>& each)
    {
        size_t total = 0;
        bool canBeEmpty = false;
        for (const Fragment& f : each) {
            total += f.code.size() + 2;
            canBeEmpty = canBeEmpty || f.canBeEmpty;
        }
        if (total > longestProgram) throw Malformed();
        const int end = static_cast<int>(total) - 2;
        Fragment result;
        for (size_t i = 0; i + 1 < each.size(); ++i) {
            result.append(single({Op::split, 1, each[i].size() + 2}, true));
            result.append(each[i]);
            result.append(single({Op::jump, end - result.size()}, true));
        }
        result.append(each.back());
        result.canBeEmpty = canBeEmpty;
        return result;
    }
    Fragment sequence()
    {
        Fragment result;
        while (!atEnd() && !sees(L'|') && !sees(L')'))
            result.append(term());
        return result;
    }
    Fragment term()
    {
        if (skip(L'^')) return single({Op::textBegin}, true);
        if (skip(L'$')) return single({Op::textEnd}, true);
        if (skip(L"\\b")) return single({Op::wordBoundary}, true);
        if (skip(L"\\B")) return single({Op::noWordBoundary}, true);
        if (skip(L"(?=")) return ahead(Op::lookAhead);
        if (skip(L"(?!")) return ahead(Op::noLookAhead);
        const int firstGroup = m_program.groups;
        const Fragment one = atom();
        const std::optional<Quantifier> q = quantifier();
        return q ? repeated(one, *q, firstGroup) : one;
    }
    Fragment ahead(Op op)
    {
        const Fragment inner = closed(alternatives());
        Fragment result = single({op, inner.size() + 2}, true);
        result.append(inner);
        result.append(single({Op::accept}, true));
        result.canBeEmpty = true;
        return result;
    }
    Fragment closed(Fragment inner)
    {
        expect(L')');
        return inner;
    }
    Fragment atom()
    {
        const wchar_t c = take();
        switch (c) {
        case L'.':
            return consuming(Op::anyCharacter);
        case L'\\':
            return escape();
        case L'[':
            return consuming(Op::characterSet, addSet(bracket()));
        case L'(':
            return skip(L"?:") ? closed(alternatives()) : group();
        case L'*':
        case L'+':
        case L'?':
        case L'{':
            throw Malformed(); // nothing to repeat
        default:
            return consuming(Op::character, static_cast<int>(c));
        }
    }
    Fragment group()
    {
        if (sees(L'?')) throw Malformed();
        const int number = m_program.groups++;
        m_open.push_back(true);
        Fragment result = single({Op::save, 2 * number}, true);
        result.append(closed(alternatives()));
        result.append(single({Op::save, 2 * number + 1}, true));
        m_open[number - 1] = false;
        return result;
    }
    int addSet(CharacterSet set)
    {
        set.prepare();
        m_program.sets.push_back(std::move(set));
        return static_cast<int>(m_program.sets.size()) - 1;
    }

    // Repetition.

    std::optional<Quantifier> quantifier()
    {
        Quantifier q{0, unlimited, true};
        if (skip(L'+'))
            q.least = 1;
        else if (skip(L'?'))
            q.most = 1;
        else if (skip(L'{'))
            readBounds(q);
        else if (!skip(L'*'))
            return std::nullopt;
        q.greedy = !skip(L'?');
        return q;
    }
    void readBounds(Quantifier& q)
    {
        q.least = number();
        q.most = q.least;
        if (skip(L',')) q.most = sees(L'}') ? unlimited : number();
        expect(L'}');
        if (q.most != unlimited && q.most < q.least) throw Malformed();
    }
    int number()
    {
        if (atEnd() || !isDigit(*m_at)) throw Malformed();
        long long value = 0;
        while (!atEnd() && isDigit(*m_at) && value <= INT_MAX)
            value = value * 10 + (take() - L'0');
        if (value > INT_MAX) throw Malformed();
        return static_cast<int>(value);
    }
    Fragment repeated(const Fragment& one, const Quantifier& q, int firstGroup)
    {
        if (takesOneCharacter(one)) {
            const Instruction& inner = one.code[0];
            return single({Op::repeat, inner.a, 0, inner.op, q.least, q.most, q.greedy}, q.least == 0);
        }
        Fragment body;
        if (m_program.groups > firstGroup)
            body.append(single({Op::clear, 2 * firstGroup, 2 * m_program.groups}, true));
        body.append(one);
        body.canBeEmpty = one.canBeEmpty;
        Fragment result;
        for (int i = 0; i < q.least && body.size() > 0; ++i)
            result.append(body);
        result.append(q.most == unlimited ? endless(body, q.greedy)
                                          : optional(body, q.most - q.least, q.greedy));
        result.canBeEmpty = q.least == 0 || one.canBeEmpty;
        return result;
    }
    /// One more time or not: what a repetition beyond the least number adds. It has to take something.
    Fragment onceMore(const Fragment& body)
    {
        if (!body.canBeEmpty) return body;
        const int slot = -++m_progressSlots;
        Fragment result = single({Op::save, slot}, true);
        result.append(body);
        result.append(single({Op::checkProgress, slot}, true));
        return result;
    }
    Fragment endless(const Fragment& body, bool greedy)
    {
        const Fragment more = onceMore(body);
        Fragment result = single(choice(1, more.size() + 2, greedy), true);
        result.append(more);
        result.append(single({Op::jump, -(more.size() + 1)}, true));
        return result;
    }
    Fragment optional(const Fragment& body, int count, bool greedy)
    {
        Fragment result;
        if (count == 0 || body.size() == 0) return result;
        const Fragment more = onceMore(body);
        const long long end = (more.size() + 1LL) * count;
        if (end > static_cast<long long>(longestProgram)) throw Malformed();
        for (int i = 0; i < count; ++i) {
            result.append(single(choice(1, static_cast<int>(end) - result.size(), greedy), true));
            result.append(more);
        }
        return result;
    }

    // Characters with a backslash.

    Fragment escape()
    {
        const wchar_t c = take();
        if (c >= L'1' && c <= L'9') return backReference();
        if (isClassEscape(c)) {
            CharacterSet set;
            set.addEscape(c);
            return consuming(Op::characterSet, addSet(std::move(set)));
        }
        return consuming(Op::character, static_cast<int>(escapedCharacter(c)));
    }
    static bool isClassEscape(wchar_t c)
    {
        return c == L'd' || c == L'D' || c == L's' || c == L'S' || c == L'w' || c == L'W';
    }
    Fragment backReference()
    {
        --m_at;
        const int group = number();
        if (group >= m_program.groups || m_open[group - 1]) throw Malformed();
        return single({Op::backReference, group}, true);
    }
    wchar_t escapedCharacter(wchar_t c)
    {
        switch (c) {
        case L't':
            return L'\t';
        case L'n':
            return L'\n';
        case L'v':
            return L'\v';
        case L'f':
            return L'\f';
        case L'r':
            return L'\r';
        case L'0':
            if (!atEnd() && isDigit(*m_at)) throw Malformed();
            return L'\0';
        case L'c':
            return controlCharacter(take());
        case L'x':
            return hexadecimal(2);
        case L'u':
            return hexadecimal(4);
        default:
            if (isLetter(c) || isDigit(c) || c == L'_') throw Malformed();
            return c;
        }
    }
    static wchar_t controlCharacter(wchar_t letter)
    {
        if (!isLetter(letter)) throw Malformed();
        return static_cast<wchar_t>(letter % 32);
    }
    wchar_t hexadecimal(int digits)
    {
        unsigned value = 0;
        for (int i = 0; i < digits; ++i) {
            const wchar_t c = take();
            if (isDigit(c))
                value = value * 16 + static_cast<unsigned>(c - L'0');
            else if ((c >= L'a' && c <= L'f') || (c >= L'A' && c <= L'F'))
                value = value * 16 + static_cast<unsigned>(c % 32) + 9;
            else
                throw Malformed();
        }
        return static_cast<wchar_t>(value);
    }

    // Brackets.

    CharacterSet bracket()
    {
        CharacterSet set;
        if (skip(L'^')) set.negate();
        while (!skip(L']'))
            bracketItem(set);
        return set;
    }
    /// One character, a range, or a class. A "-" beside a class, or first or last, stands for itself.
    void bracketItem(CharacterSet& set)
    {
        const std::optional<wchar_t> first = bracketCharacter(set);
        if (!first || !isRangeAhead()) {
            if (first) set.add(*first, *first);
            return;
        }
        ++m_at;
        const std::optional<wchar_t> last = bracketCharacter(set);
        if (last && *last < *first) throw Malformed();
        set.add(*first, last ? *last : *first);
        if (!last) set.add(L'-', L'-');
    }
    bool isRangeAhead() const { return m_end - m_at > 1 && m_at[0] == L'-' && m_at[1] != L']'; }
    /// The next character of a bracket; nothing when it was a class, which is added to the set.
    std::optional<wchar_t> bracketCharacter(CharacterSet& set)
    {
        if (skip(L"[:")) {
            addClass(set, nameUntil(L':'));
            return std::nullopt;
        }
        if (skip(L"[.")) return onlyCharacter(nameUntil(L'.'));
        if (skip(L"[=")) return onlyCharacter(nameUntil(L'='));
        if (!skip(L'\\')) return take();
        const wchar_t c = take();
        if (c == L'b') return L'\b';
        if (!isClassEscape(c)) return escapedCharacter(c);
        set.addEscape(c);
        return std::nullopt;
    }
    std::wstring nameUntil(wchar_t mark)
    {
        std::wstring name;
        while (!sees(mark))
            name += take();
        ++m_at;
        expect(L']');
        return name;
    }
    static wchar_t onlyCharacter(const std::wstring& name)
    {
        if (name.size() != 1) throw Malformed();
        return name[0];
    }
    static void addClass(CharacterSet& set, const std::wstring& name)
    {
        if (name == L"d" || name == L"s" || name == L"w") return set.addEscape(name[0]);
        std::string narrow;
        for (const wchar_t c : name) {
            if (!isLetter(c)) throw Malformed();
            narrow += static_cast<char>(c);
        }
        const std::wctype_t named = std::wctype(narrow.c_str());
        if (!named) throw Malformed();
        set.add(named);
    }

    const wchar_t* m_at;
    const wchar_t* m_end;
    Program m_program;
    std::vector<bool> m_open; ///< of the groups from 1 on: not closed yet
    int m_depth = 0;
    int m_progressSlots = 0;
};
} // namespace

std::optional<Program> regex::compile(const std::wstring& pattern)
{
    try {
        return Compiler(pattern).compile();
    } catch (const Malformed&) {
        return std::nullopt;
    }
}
