#pragma once

/// The basic types of the application interface. Integer types have the width that their names say.

#include <cstdint>

namespace Adesk
{
using Int8 = std::int8_t;
using Int16 = std::int16_t;
using Int32 = std::int32_t;
using Int64 = long long;
using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using UInt64 = unsigned long long;
using IntPtr = long long;
using UIntPtr = unsigned long long;
using LongPtr = long long;
using ULongPtr = unsigned long long;
using IntDbId = Int64;
using GsMarker = IntPtr;
using Boolean = bool;
using uchar = unsigned char;
using ushort = unsigned short;
using uint = unsigned int;

constexpr bool kFalse = false;
constexpr bool kTrue = true;

static_assert(sizeof(IntPtr) == sizeof(void*), "IntPtr holds a pointer");
} // namespace Adesk

using ACHAR = wchar_t;

#ifndef ACRX_T
#define ACRX_T_(text) L##text
#define ACRX_T(text) ACRX_T_(text)
#endif
