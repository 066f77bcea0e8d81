#pragma once

#include <string>

class AcDbEntity;

namespace commands
{
/// What LIST tells of an entity: its kind, layer, space and handle, its measures, and its extended data.
/// Lines end with a line feed.
std::wstring reportOf(const AcDbEntity& entity);
} // namespace commands
