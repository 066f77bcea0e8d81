#include "Packing.h"

#include <algorithm>
#include <intrin.h>

namespace
{
using dense::Source;
using std::size_t;

double* packPanelAlong(Source part, size_t count, size_t depth, size_t width, double* to)
{
    for (size_t k = 0; k < depth; ++k, to += width) {
        const double* line = part.at + k * part.stride;
        std::copy(line, line + count, to);
        std::fill(to + count, to + width, 0.0);
    }
    return to;
}

/// Two lines at a time, so that whole vectors are loaded and stored.
void packTwoLines(const double* first, const double* second, size_t depth, size_t height, double* to)
{
    size_t k = 0;
    for (; k + 2 <= depth; k += 2, to += 2 * height) {
        const __m128d upper = _mm_loadu_pd(first + k), lower = _mm_loadu_pd(second + k);
        _mm_storeu_pd(to, _mm_unpacklo_pd(upper, lower));
        _mm_storeu_pd(to + height, _mm_unpackhi_pd(upper, lower));
    }
    if (k == depth) return;
    to[0] = first[k];
    to[1] = second[k];
}

void packLine(const double* line, size_t depth, size_t height, double* to)
{
    for (size_t k = 0; k < depth; ++k)
        to[k * height] = line ? line[k] : 0.0;
}

double* packPanelAcross(Source part, size_t depth, size_t count, size_t height, double* to)
{
    size_t y = 0;
    for (; y + 2 <= count; y += 2)
        packTwoLines(part.at + y * part.stride, part.at + (y + 1) * part.stride, depth, height, to + y);
    for (; y < height; ++y)
        packLine(y < count ? part.at + y * part.stride : nullptr, depth, height, to + y);
    return to + depth * height;
}
} // namespace

namespace dense
{
void packAlong(Source part, size_t count, size_t depth, size_t width, double* panels)
{
    for (size_t x = 0; x < count; x += width)
        panels = packPanelAlong(part.from(x, 0), std::min(width, count - x), depth, width, panels);
}

void packAcross(Source part, size_t depth, size_t count, size_t height, double* panels)
{
    for (size_t y = 0; y < count; y += height)
        panels = packPanelAcross(part.from(0, y), depth, std::min(height, count - y), height, panels);
}
} // namespace dense
