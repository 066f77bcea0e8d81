#include "Typist.h"

#include <utility>

namespace
{
ed::Typist& current()
{
    static ed::Typist one;
    return one;
}
} // namespace

namespace ed
{
Typist setTypist(Typist typist)
{
    std::swap(current(), typist);
    return typist;
}

std::optional<TypedKeys> askTypist()
{
    return current() ? current()() : std::nullopt;
}
} // namespace ed
