#include "LiveCounts.h"

namespace live
{
std::int64_t& resbufs()
{
    static std::int64_t count = 0;
    return count;
}
} // namespace live
