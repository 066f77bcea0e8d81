#include "RegexMatcher.h"

#include <algorithm>
#include <cwchar>

namespace
{
constexpr size_t leastSteps = 50000000;
constexpr size_t stepsOfCharacter = 100;
constexpr size_t mostMemories = 8000000;

bool isLineEnd(wchar_t c)
{
    return c == L'\n' || c == L'\r' || c == 0x2028 || c == 0x2029;
}

bool isWordCharacter(wchar_t c)
{
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z') || c == L'_';
}
} // namespace

namespace regex
{
Matcher::Matcher(const Program& program, const wchar_t* text, size_t length)
    : m_program(program), m_text(text), m_length(length), m_steps(leastSteps + stepsOfCharacter * length),
      m_slots(static_cast<size_t>(program.slots), noPosition)
{
}

bool Matcher::search(size_t from)
{
    // A pattern that starts with a certain character can only match where that is. Instruction 0 is a save.
    const Instruction& first = m_program.instructions[1];
    for (size_t start = from; start <= m_length && !m_gaveUp; ++start) {
        if (first.op == Op::character) {
            const wchar_t* const found =
                std::wmemchr(m_text + start, static_cast<wchar_t>(first.a), m_length - start);
            if (!found) return false;
            start = static_cast<size_t>(found - m_text);
        }
        if (matchAt(start, true)) return true;
    }
    return false;
}

bool Matcher::matchSome(size_t at)
{
    return matchAt(at, false);
}

bool Matcher::matchAt(size_t start, bool mayBeEmpty)
{
    std::fill(m_slots.begin(), m_slots.end(), noPosition);
    m_memory.clear();
    return run({0, start}, 0, mayBeEmpty);
}

/// Runs until an accept. What it remembers on the way lies above `floor`; it is used up when the run fails.
bool Matcher::run(State state, size_t floor, bool mayBeEmpty)
{
    const size_t start = state.position;
    while (!m_gaveUp) {
        spend(1);
        const bool accepted = m_program.instructions[static_cast<size_t>(state.at)].op == Op::accept;
        if (accepted && (mayBeEmpty || state.position != start)) return true;
        if ((accepted || !step(state)) && !comeBack(state, floor)) return false;
    }
    return false;
}

/// Carries one instruction out; false when it does not match here.
bool Matcher::step(State& state)
{
    const Instruction& in = m_program.instructions[static_cast<size_t>(state.at)];
    switch (in.op) {
    case Op::repeat:
        return repeat(state, in);
    case Op::split:
    case Op::jump:
        return branch(state, in);
    case Op::lookAhead:
    case Op::noLookAhead:
        return look(state, in);
    case Op::backReference:
        return repeatGroup(state, in.a);
    default:
        break;
    }
    ++state.at;
    switch (in.op) {
    case Op::save:
        setSlot(in.a, state.position);
        return true;
    case Op::clear:
        for (int slot = in.a; slot < in.b; ++slot)
            setSlot(slot, noPosition);
        return true;
    case Op::checkProgress:
        return m_slots[static_cast<size_t>(in.a)] != state.position;
    case Op::textBegin:
        return state.position == 0;
    case Op::textEnd:
        return state.position == m_length;
    case Op::wordBoundary:
    case Op::noWordBoundary:
        return isWordBoundary(state.position) == (in.op == Op::wordBoundary);
    default:
        return takes(in.op, in.a, state.position++);
    }
}

bool Matcher::branch(State& state, const Instruction& in)
{
    if (in.op == Op::split) remember(Kind::branch, state.at + in.b, state.position, 0);
    state.at += in.a;
    return true;
}

bool Matcher::repeat(State& state, const Instruction& in)
{
    const size_t room = m_length - state.position;
    const size_t most = in.most == unlimited ? room : std::min(room, static_cast<size_t>(in.most));
    const size_t least = static_cast<size_t>(in.least);
    const size_t wanted = in.greedy ? most : std::min(most, least);
    size_t taken = 0;
    while (taken < wanted && takes(in.one, in.a, state.position + taken))
        ++taken;
    spend(taken);
    if (taken < least) return false;
    if (in.greedy && taken > least)
        remember(Kind::shrink, state.at + 1, state.position + least, state.position + taken);
    if (!in.greedy && taken < most)
        remember(Kind::grow, state.at, state.position + taken, state.position + most);
    state.position += taken;
    ++state.at;
    return true;
}

bool Matcher::look(State& state, const Instruction& in)
{
    // With something in the memory every change of a slot from here on is remembered and can be undone.
    remember(Kind::slot, 0, m_slots[0], 0);
    const size_t floor = m_memory.size();
    const bool found = run({state.at + 1, state.position}, floor, true);
    if (in.op == Op::lookAhead) {
        if (found) forgetBranches(floor);
    } else if (found) {
        // Nothing of what was tried may stay behind, neither places to come back to nor groups.
        forgetBranches(floor);
        comeBack(state, floor);
    }
    const bool wanted = in.op == Op::lookAhead;
    state.at += in.a;
    return found == wanted && !m_gaveUp;
}

bool Matcher::repeatGroup(State& state, int group)
{
    ++state.at;
    if (!tookPart(group)) return true;
    const size_t length = end(group) - begin(group);
    spend(length);
    if (length > m_length - state.position ||
        std::wmemcmp(m_text + begin(group), m_text + state.position, length) != 0)
        return false;
    state.position += length;
    return true;
}

bool Matcher::takes(Op op, int operand, size_t position) const
{
    if (position >= m_length) return false;
    const wchar_t c = m_text[position];
    if (op == Op::character) return c == static_cast<wchar_t>(operand);
    if (op == Op::anyCharacter) return !isLineEnd(c);
    return m_program.sets[static_cast<size_t>(operand)].contains(c);
}

bool Matcher::isWordBoundary(size_t position) const
{
    const bool before = position > 0 && isWordCharacter(m_text[position - 1]);
    const bool after = position < m_length && isWordCharacter(m_text[position]);
    return before != after;
}

/// Undoes and forgets down to the next place to come back to, and goes there; false when there is none above
/// `floor`.
bool Matcher::comeBack(State& state, size_t floor)
{
    while (m_memory.size() > floor) {
        Memory& last = m_memory.back();
        const Memory copy = last;
        switch (copy.kind) {
        case Kind::slot:
            m_slots[static_cast<size_t>(copy.index)] = copy.first;
            m_memory.pop_back();
            break;
        case Kind::branch:
            m_memory.pop_back();
            state = {copy.index, copy.first};
            return true;
        case Kind::shrink:
            state = {copy.index, --last.second};
            if (last.second == last.first) m_memory.pop_back();
            return true;
        case Kind::grow:
            if (growOnce(state)) return true;
            break;
        }
    }
    return false;
}

/// Lets the reluctant repetition on top of the memory take one character more.
bool Matcher::growOnce(State& state)
{
    Memory& last = m_memory.back();
    const Instruction& in = m_program.instructions[static_cast<size_t>(last.index)];
    if (last.first == last.second || !takes(in.one, in.a, last.first)) {
        m_memory.pop_back();
        return false;
    }
    state = {last.index + 1, ++last.first};
    return true;
}

/// Drops the places to come back to above `floor`, but keeps what undoes changes of slots.
void Matcher::forgetBranches(size_t floor)
{
    const auto begin = m_memory.begin() + static_cast<std::ptrdiff_t>(floor);
    m_memory.erase(
        std::remove_if(begin, m_memory.end(), [](const Memory& m) { return m.kind != Kind::slot; }),
        m_memory.end());
}

void Matcher::setSlot(int slot, size_t position)
{
    size_t& value = m_slots[static_cast<size_t>(slot)];
    // Without a place to come back to there is no need to know what the slot held.
    if (!m_memory.empty()) remember(Kind::slot, slot, value, 0);
    value = position;
}

void Matcher::remember(Kind kind, int index, size_t first, size_t second)
{
    if (m_memory.size() >= mostMemories)
        m_gaveUp = true;
    else
        m_memory.push_back({kind, index, first, second});
}

void Matcher::spend(size_t steps)
{
    if (steps > m_steps)
        m_gaveUp = true;
    else
        m_steps -= steps;
}
} // namespace regex
