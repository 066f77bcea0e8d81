#pragma once

#include "rxevent.h"

#include <functional>

namespace events
{
/// Tells every reactor that is attached; one that is detached meanwhile is not told any more.
void tell(const std::function<void(AcRxEventReactor&)>& event);
} // namespace events
