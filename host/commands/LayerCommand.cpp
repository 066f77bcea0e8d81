/// LAYER.

#include "acdocman.h"
#include "acestext.h"
#include "acutads.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "dbobjptr.h"
#include "Faults.h"

#include <functional>
#include <memory>

namespace
{
using Text = std::optional<std::wstring>;
using Layer = AcDbLayerTableRecord;

AcDbDatabase& database()
{
    return *acDocManager->curDocument()->database();
}

/// Opens the layers whose names match a pattern one after the other. eKeyNotFound when there are none, else
/// the last status that is not eOk.
Acad::ErrorStatus forEachLayer(const std::wstring& pattern,
                               const std::function<Acad::ErrorStatus(Layer&)>& call)
{
    const AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId());
    if (table.openStatus() != Acad::eOk) return table.openStatus();
    Acad::ErrorStatus result = Acad::eKeyNotFound;
    for (const AcDbObjectId id : table->recordIds()) {
        AcDbObjectPointer<Layer> layer(id);
        if (layer.openStatus() != Acad::eOk || acutWcMatch(layer->name(), pattern.c_str()) != RTNORM)
            continue;
        const Acad::ErrorStatus status = call(*layer);
        if (result == Acad::eKeyNotFound || status != Acad::eOk) result = status;
    }
    return result;
}

std::wstring linetypeOf(const Layer& layer)
{
    const AcDbObjectPointer<AcDbLinetypeTableRecord> linetype(layer.linetypeObjectId());
    return linetype.openStatus() == Acad::eOk ? std::wstring(linetype->name()) : L"";
}

std::wstring column(std::wstring text, std::size_t width)
{
    text.resize(std::max(width, text.size() + 1), L' ');
    return text;
}

std::wstring lineOf(const Layer& layer)
{
    const std::wstring state = std::wstring(layer.isOff() ? L"off" : L"on") +
                               (layer.isFrozen() ? L" frozen" : L"") + (layer.isLocked() ? L" locked" : L"");
    return column(L"\"" + std::wstring(layer.name()) + L"\"", 24) + column(state, 18) +
           column(std::to_wstring(layer.color().colorIndex()), 8) + linetypeOf(layer) + L"\n";
}

bool listLayers()
{
    const Text names = commands::ask(L"Enter layer name(s) to list <*>: ", ed::Reading::word);
    if (!names) return false;
    ed::print(column(L"Layer name", 24) + column(L"State", 18) + column(L"Color", 8) + L"Linetype\n");
    forEachLayer(names->empty() ? L"*" : *names, [](Layer& layer) {
        ed::print(lineOf(layer));
        return Acad::eOk;
    });
    return true;
}

/// False with a message when something did not go well.
bool succeeds(Acad::ErrorStatus status, const std::wstring& name)
{
    if (status == Acad::eOk) return true;
    ed::fail(L"Layer \"" + name + L"\": " + acadErrorStatusText(status) + L".");
    return false;
}

bool makeLayer(const std::wstring& name)
{
    AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) return succeeds(table.openStatus(), name);
    if (table->has(name.c_str())) return true;
    AcDbObjectPointer<Layer> layer;
    layer.create();
    const Acad::ErrorStatus status = layer->setName(name.c_str());
    layer->setLinetypeObjectId(database().continuousLinetype());
    return succeeds(status == Acad::eOk ? table->add(layer.object()) : status, name);
}

bool setCurrent(const std::wstring& name)
{
    const AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId());
    AcDbObjectId id;
    const Acad::ErrorStatus status = table->getAt(name.c_str(), id);
    return succeeds(status == Acad::eOk ? database().setClayer(id) : status, name);
}

/// Calls for each name of a list with commas.
bool forEachName(const std::wstring& names, bool (*call)(const std::wstring& name))
{
    bool good = true;
    for (std::size_t from = 0; good && from <= names.size();) {
        const std::size_t to = std::min(names.find(L',', from), names.size());
        good = call(names.substr(from, to - from));
        from = to + 1;
    }
    return good;
}

/// Asks for names and does something to each of them; Enter does nothing.
bool forNames(const wchar_t* prompt, const std::function<bool(const std::wstring& names)>& call)
{
    const Text names = commands::ask(prompt, ed::Reading::word);
    return names && (names->empty() || call(*names));
}

bool change(const wchar_t* prompt, const std::function<Acad::ErrorStatus(Layer&)>& how)
{
    return forNames(prompt, [&](const std::wstring& names) {
        const auto write = [&](Layer& layer) {
            const Acad::ErrorStatus status = layer.upgradeOpen();
            return status == Acad::eOk ? how(layer) : status;
        };
        return succeeds(forEachLayer(names, write), names);
    });
}

bool colorLayers()
{
    constexpr unsigned long last = 255;
    const Text color = commands::ask(L"New color (1 to 255): ");
    if (!color || color->empty()) return color.has_value();
    wchar_t* end = nullptr;
    const unsigned long index = std::wcstoul(color->c_str(), &end, 10);
    if (*end || index < 1 || index > last) {
        ed::fail(L"A color is a number from 1 to 255.");
        return false;
    }
    AcCmColor chosen;
    chosen.setColorIndex(static_cast<std::uint16_t>(index));
    return change(L"Enter name list of layer(s) for this color: ", [&](Layer& layer) {
        layer.setColor(chosen);
        return Acad::eOk;
    });
}

Acad::ErrorStatus turn(Layer& layer, bool off)
{
    layer.setIsOff(off);
    return Acad::eOk;
}

Acad::ErrorStatus lock(Layer& layer, bool locked)
{
    layer.setIsLocked(locked);
    return Acad::eOk;
}

bool makeAndSet(const std::wstring& name)
{
    return makeLayer(name) && setCurrent(name);
}

struct Option {
    const wchar_t* name;
    std::function<bool()> perform;
};

/// Each is false when the command is over: cancelled, or failed.
const Option options[] = {
    {L"?", listLayers},
    {L"Make", [] { return forNames(L"Enter name for new layer (becomes the current layer): ", makeAndSet); }},
    {L"Set", [] { return forNames(L"Enter layer name to make current: ", setCurrent); }},
    {L"New",
     [] {
         return forNames(L"Enter name list for new layer(s): ",
                         [](const std::wstring& names) { return forEachName(names, makeLayer); });
     }},
    {L"ON",
     [] {
         return change(L"Enter name list of layer(s) to turn on: ", [](Layer& l) { return turn(l, false); });
     }},
    {L"OFF",
     [] {
         return change(L"Enter name list of layer(s) to turn off: ", [](Layer& l) { return turn(l, true); });
     }},
    {L"Color", colorLayers},
    {L"Freeze",
     [] {
         return change(L"Enter name list of layer(s) to freeze: ",
                       [](Layer& l) { return l.setIsFrozen(true); });
     }},
    {L"Thaw",
     [] {
         return change(L"Enter name list of layer(s) to thaw: ",
                       [](Layer& l) { return l.setIsFrozen(false); });
     }},
    {L"LOck",
     [] { return change(L"Enter name list of layer(s) to lock: ", [](Layer& l) { return lock(l, true); }); }},
    {L"Unlock",
     [] {
         return change(L"Enter name list of layer(s) to unlock: ", [](Layer& l) { return lock(l, false); });
     }},
};

bool perform(const std::wstring& name)
{
    for (const Option& option : options) {
        if (name == option.name) return option.perform();
    }
    return false;
}

void printCurrent()
{
    const AcDbObjectPointer<Layer> current(database().clayer());
    if (current.openStatus() == Acad::eOk)
        ed::print(L"Current layer:  \"" + std::wstring(current->name()) + L"\"\n");
}

void layer()
{
    constexpr const wchar_t* prompt =
        L"Enter an option [?/Make/Set/New/ON/OFF/Color/Freeze/Thaw/LOck/Unlock] <exit>: ";
    constexpr const wchar_t* keywords = L"? Make Set New ON OFF Color Freeze Thaw LOck Unlock";
    printCurrent();
    for (Text option = L"?"; option;) {
        option = commands::askKeyword(prompt, keywords, L"exit");
        if (option && !perform(*option)) return;
    }
}

[[maybe_unused]] const bool added = commands::add({
    {L"LAYER", L"LA", ACRX_CMD_TRANSPARENT, layer, L"Lists layers (?), makes, chooses and changes them"},
});
} // namespace
