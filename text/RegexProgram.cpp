#include "RegexProgram.h"

#include "RegexPattern.h"

#include <cstdlib>

namespace
{
using regex::CharacterSet;
using regex::Instruction;
using regex::isClassEscape;
using regex::Malformed;
using regex::Op;
using regex::PatternText;
using regex::Program;
using regex::unlimited;

constexpr int deepestNesting = 200;
constexpr size_t longestProgram = 200000;

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

struct Quantifier {
    int least;
    int most; ///< or unlimited
    bool greedy;
};

/// Reads a pattern by recursive descent.
class Compiler : private PatternText
{
public:
    explicit Compiler(const std::wstring& pattern) : PatternText(pattern) {}

    Program compile()
    {
        Fragment whole = single({Op::save, 0}, true);
        whole.append(alternatives());
        if (!atEnd()) throw Malformed(); // a ")" too many
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
    Fragment backReference()
    {
        stepBack();
        const int group = number();
        if (group >= m_program.groups || m_open[group - 1]) throw Malformed();
        return single({Op::backReference, group}, true);
    }
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
