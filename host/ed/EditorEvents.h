#pragma once

#include "aced.h"

#include <functional>

namespace ed
{
/// Tells every reactor of the editor.
void tellEditor(const std::function<void(AcEditorReactor&)>& event);
} // namespace ed
