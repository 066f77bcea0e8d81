#pragma once

#include "windef.h"

#include <cstddef>

namespace win32
{
/// The code pages that are converted by tables, and the ICU converter that has the same mapping.
struct KnownCodePage {
    UINT number;
    const char* converter;
};

// The pages of Chinese and Western text are asked for most and stand first.
constexpr KnownCodePage knownCodePages[] = {
    {936, "windows-936-2000"},     {950, "windows-950-2000"},     {1252, "ibm-5348_P100-1997"},
    {932, "ibm-943_P15A-2003"},    {949, "windows-949-2000"},     {874, "windows-874-2000"},
    {1250, "ibm-5346_P100-1998"},  {1251, "ibm-5347_P100-1998"},  {1253, "ibm-5349_P100-1998"},
    {1254, "ibm-5350_P100-1998"},  {1255, "ibm-9447_P100-2002"},  {1256, "ibm-9448_X100-2005"},
    {1257, "ibm-9449_P100-2002"},  {1258, "ibm-5354_P100-1998"},  {437, "ibm-437_P100-1995"},
    {737, "ibm-737_P100-1997"},    {775, "ibm-775_P100-1996"},    {850, "ibm-850_P100-1995"},
    {852, "ibm-852_P100-1995"},    {855, "ibm-855_P100-1995"},    {857, "ibm-857_P100-1995"},
    {858, "ibm-858_P100-1997"},    {860, "ibm-860_P100-1995"},    {861, "ibm-861_P100-1995"},
    {862, "ibm-862_P100-1995"},    {863, "ibm-863_P100-1995"},    {864, "ibm-864_X110-1999"},
    {865, "ibm-865_P100-1995"},    {866, "ibm-866_P100-1995"},    {869, "ibm-869_P100-1995"},
    {10000, "macos-0_2-10.2"},     {28591, "ISO-8859-1"},         {28592, "ibm-912_P100-1995"},
    {28593, "ibm-913_P100-2000"},  {28594, "ibm-914_P100-1995"},  {28595, "ibm-915_P100-1995"},
    {28596, "ibm-1089_P100-1995"}, {28597, "ibm-9005_X110-2007"}, {28598, "ibm-5012_P100-1999"},
    {28599, "ibm-920_P100-1995"},  {28605, "ibm-923_P100-1998"},
};
constexpr std::size_t knownCodePageCount = sizeof knownCodePages / sizeof *knownCodePages;

constexpr bool hasTwoByteCharacters(UINT codePage)
{
    return codePage == 936 || codePage == 950 || codePage == 932 || codePage == 949;
}
} // namespace win32
