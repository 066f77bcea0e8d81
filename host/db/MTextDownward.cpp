#include "MTextDownward.h"

namespace lettering
{
namespace
{
AcGePoint2d turned(const AcGePoint2d& lying)
{
    return {-lying.y, -lying.x};
}

/// A letter whose column has its middle at `middle` and whose top is at `top`.
MTextFragment letter(const MTextFragment& run, std::wstring text, double middle, double top)
{
    MTextFragment made{std::move(text), run.format, {}, 0};
    made.format.isVertical = false;
    made.format.lines = {};
    made.advance = advanceOf(fontNamed(made.format.font), made.look(), made.text);
    made.position.set(middle - made.advance / 2, top - made.format.height);
    return made;
}

void writeDown(std::vector<MTextFragment>& letters, const MTextFragment& run)
{
    const double middle = -run.position.y - run.format.height / 2;
    double top = -run.position.x;
    for (std::size_t at = 0; at < run.text.size();) {
        std::wstring character;
        appendCharacter(character, takeCharacter(run.text, at));
        const double step = advanceOf(fontNamed(run.format.font), run.look(), character);
        if (character != L" ") letters.push_back(letter(run, std::move(character), middle, top));
        top -= step;
    }
}
} // namespace

Attachment transposed(Attachment attachment)
{
    const int number = static_cast<int>(attachment) - 1;
    return static_cast<Attachment>(number % 3 * 3 + number / 3 + 1);
}

MTextLayout writtenDown(const MTextLayout& lying)
{
    MTextLayout down;
    down.lineCount = lying.lineCount;
    down.width = lying.height;
    down.height = lying.width;
    down.min = turned(lying.max);
    down.max = turned(lying.min);
    for (const MTextFragment& run : lying.fragments)
        writeDown(down.fragments, run);
    for (const MTextRule& rule : lying.rules)
        down.rules.push_back({{turned(rule.bar.start), turned(rule.bar.end)}, rule.format});
    return down;
}
} // namespace lettering
