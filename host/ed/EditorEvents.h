#pragma once

#include "aced.h"

#include <functional>

namespace ed
{
/// Tells every reactor of the editor.
void tellEditor(const std::function<void(AcEditorReactor&)>& event);
/// The same; false when one of them called veto() meanwhile.
bool askEditor(const std::function<void(AcEditorReactor&)>& event);
} // namespace ed
