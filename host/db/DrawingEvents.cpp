#include "DrawingEvents.h"

#include "rxclass.h"

#include <algorithm>
#include <vector>

namespace
{
std::vector<AcRxEventReactor*>& reactors()
{
    static auto& all = *new std::vector<AcRxEventReactor*>;
    return all;
}

bool isAttached(AcRxEventReactor* reactor)
{
    return std::find(reactors().begin(), reactors().end(), reactor) != reactors().end();
}

// The registry holds the object from the start of the program.
[[maybe_unused]] const bool registered = [] {
    std::uint32_t id = 0;
    acrxSysRegistry()->atPut(ACRX_EVENT_OBJ, new AcRxEvent, id);
    return true;
}();
} // namespace

AcRxClass* AcRxEvent::desc()
{
    static AcRxClass* const made = newAcRxClass(L"AcRxEvent", AcRxObject::desc());
    return made;
}

AcRxClass* AcRxEvent::isA() const { return desc(); }

AcRxEvent* AcRxEvent::cast(const AcRxObject* object)
{
    const bool fits = object && object->isKindOf(desc());
    return fits ? const_cast<AcRxEvent*>(static_cast<const AcRxEvent*>(object)) : nullptr;
}

void AcRxEvent::addReactor(AcRxEventReactor* reactor)
{
    if (reactor && !isAttached(reactor)) reactors().push_back(reactor);
}

void AcRxEvent::removeReactor(AcRxEventReactor* reactor)
{
    reactors().erase(std::remove(reactors().begin(), reactors().end(), reactor), reactors().end());
}

void events::tell(const std::function<void(AcRxEventReactor&)>& event)
{
    const std::vector<AcRxEventReactor*> some = reactors();
    for (AcRxEventReactor* reactor : some) {
        if (isAttached(reactor)) event(*reactor);
    }
}
