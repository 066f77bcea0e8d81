#include "GroupKind.h"

using dxf::GroupKind;
using dxf::kindOf;

// The edges of ranges that neighbour another kind, from the table of value types in the DXF reference.
TEST(GroupKind, ChangesAtTheEdgesOfTheDocumentedRanges)
{
    const struct {
        int code;
        GroupKind kind;
    } cases[] = {
        {4, GroupKind::text},      {5, GroupKind::handle},    {9, GroupKind::text},
        {10, GroupKind::real},     {59, GroupKind::real},     {60, GroupKind::int16},
        {79, GroupKind::int16},    {90, GroupKind::int32},    {100, GroupKind::text},
        {105, GroupKind::handle},  {140, GroupKind::real},    {160, GroupKind::int64},
        {170, GroupKind::int16},   {239, GroupKind::real},    {289, GroupKind::int16},
        {290, GroupKind::boolean}, {299, GroupKind::boolean}, {300, GroupKind::text},
        {310, GroupKind::chunk},   {320, GroupKind::handle},  {369, GroupKind::handle},
        {370, GroupKind::int16},   {390, GroupKind::handle},  {400, GroupKind::int16},
        {410, GroupKind::text},    {420, GroupKind::int32},   {430, GroupKind::text},
        {450, GroupKind::int32},   {460, GroupKind::real},    {470, GroupKind::text},
        {481, GroupKind::handle},  {999, GroupKind::text},    {1004, GroupKind::chunk},
        {1005, GroupKind::handle}, {1010, GroupKind::real},   {1060, GroupKind::int16},
        {1070, GroupKind::int16},  {1071, GroupKind::int32},  {1072, GroupKind::text},
        {-1, GroupKind::text},
    };
    for (const auto& each : cases)
        EXPECT_EQ(kindOf(each.code), each.kind) << each.code;
}
