#pragma once

namespace win32
{
/// What the next CoCreateGuid does instead of making an identifier, once.
enum class NextGuid { random, failure, null };
void setNextGuid(NextGuid next);
} // namespace win32
