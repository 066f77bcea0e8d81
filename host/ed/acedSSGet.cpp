#include "acedselect.h"
#include "CommandLine.h"
#include "Documents.h"
#include "SelectableGroups.h"
#include "SelectionDialog.h"
#include "SpaceOrder.h"
#include "Stub.h"
#include "VariableStore.h"

namespace
{
using ed::DrawnArea;
using ed::SelectionCause;
using ed::SelectionMethod;
using ed::SelectionMode;
using ed::SelectionSet;
using Ids = std::vector<AcDbObjectId>;
using Kind = SelectionCause::Kind;

Ids idsOf(const std::vector<const AcDbEntity*>& entities)
{
    Ids ids;
    ids.reserve(entities.size());
    for (const AcDbEntity* entity : entities) ids.push_back(entity->objectId());
    return ids;
}

bool isOn(const wchar_t* variable)
{
    const std::optional<ed::VariableValue> value = ed::readVariable(variable);
    return value && value->integer != 0;
}

/// One call of acedSSGet.
class Request
{
public:
    Request(AcDbDatabase& database, const SelectionMode& mode, const ed::SelectionFilter& filter, const void* first,
            const void* second)
        : mDatabase(database), mMode(mode), mFirst(first), mSecond(second), mSearch(database),
          mAdmission(mSearch, database, mode, filter)
    {
    }

    /// RTNORM, RTERROR or RTCAN.
    int gather(SelectionSet& set)
    {
        switch (mMode.method) {
        case SelectionMethod::ask:
            return gatherByUser(set);
        case SelectionMethod::whole:
            return admit(idsOf(ed::newestFirst(mDatabase)), {}, false, set);
        case SelectionMethod::all:
            return admit(mSearch.thawed(), {}, false, set);
        case SelectionMethod::previous:
            return admit(ed::previousSelection(mDatabase), {}, false, set);
        case SelectionMethod::implied:
            return admit(ed::currentSelection()->implied.ids(), {}, false, set);
        case SelectionMethod::last:
            return admit({mSearch.lastSeen()}, {}, false, set);
        case SelectionMethod::group:
            return gatherGroup(set);
        default:
            return gatherArea(set);
        }
    }

private:
    int admit(Ids ids, SelectionCause cause, bool byGeometry, SelectionSet& set)
    {
        set = SelectionSet(mAdmission.admit(std::move(ids), byGeometry).ids, std::move(cause));
        return set.empty() ? RTERROR : RTNORM;
    }

    int gatherGroup(SelectionSet& set)
    {
        const auto* name = static_cast<const ACHAR*>(mFirst);
        return name ? admit(ed::entitiesOfGroup(mDatabase, name), {}, false, set) : RTERROR;
    }

    int gatherByUser(SelectionSet& set)
    {
        if (mFirst && !mMode.hasPrompts) return gatherUnderPoint(set);
        if (takesImplied()) return gatherImplied(set);
        ed::SelectionDialog::Prompts prompts;
        if (mMode.hasPrompts && mFirst) {
            const auto* texts = static_cast<const ACHAR* const*>(mFirst);
            if (texts[0]) prompts.add = texts[0];
            if (texts[1]) prompts.remove = texts[1];
        }
        ed::SelectionDialog dialog(mSearch, mAdmission, mDatabase, mMode, std::move(prompts));
        if (!dialog.run()) return RTCAN;
        set = dialog.takeSet();
        return set.empty() ? RTERROR : RTNORM;
    }

    bool takesImplied() const
    {
        return !mMode.leavesImplied && isOn(L"PICKFIRST") && !ed::currentSelection()->implied.empty();
    }

    /// What was selected before the command answers the question.
    int gatherImplied(SelectionSet& set)
    {
        const int status = admit(ed::currentSelection()->implied.ids(), {}, false, set);
        ed::currentSelection()->implied.clear();
        ed::print(std::to_wstring(set.size()) + L" found\n");
        return status;
    }

    int gatherUnderPoint(SelectionSet& set)
    {
        const std::optional<AcGePoint3d> point = ed::worldPoint(static_cast<const ads_real*>(mFirst));
        if (!point) return RTERROR;
        const ed::SelectionArea box = mSearch.pickBox(*point);
        Ids found = mMode.takesAllUnderBox ? mSearch.touching(box) : Ids{mSearch.uppermostTouching(box)};
        return admit(std::move(found), ed::pickAt(mSearch.view(), *point), true, set);
    }

    int gatherArea(SelectionSet& set)
    {
        const std::optional<DrawnArea> drawn = isWindow() ? window() : polygon();
        if (!drawn) return RTERROR;
        const bool isWhole = drawn->cause.kind == Kind::window;
        return admit(isWhole ? mSearch.inside(drawn->area) : mSearch.touching(drawn->area), drawn->cause, true, set);
    }

    bool isWindow() const
    {
        return mMode.method == SelectionMethod::window || mMode.method == SelectionMethod::crossing ||
               mMode.method == SelectionMethod::box;
    }

    std::optional<DrawnArea> window() const
    {
        const std::optional<AcGePoint3d> one = ed::worldPoint(static_cast<const ads_real*>(mFirst)),
                                         other = ed::worldPoint(static_cast<const ads_real*>(mSecond));
        if (!one || !other) return std::nullopt;
        const Kind kind = mMode.method == SelectionMethod::window ? Kind::window
                          : mMode.method == SelectionMethod::crossing
                              ? Kind::crossing
                              : ed::kindByDirection(mSearch.view(), *one, *other);
        return ed::windowOf(mSearch.view(), kind, *one, *other);
    }

    std::optional<DrawnArea> polygon() const
    {
        const std::optional<std::vector<AcGePoint3d>> points = ed::worldPoints(static_cast<const resbuf*>(mFirst));
        if (!points) return std::nullopt;
        const Kind kind = mMode.method == SelectionMethod::windowPolygon     ? Kind::window
                          : mMode.method == SelectionMethod::crossingPolygon ? Kind::crossing
                                                                             : Kind::fence;
        return ed::polygonOf(mSearch.view(), kind, *points);
    }

    AcDbDatabase& mDatabase;
    const SelectionMode& mMode;
    const void* mFirst;
    const void* mSecond;
    ed::SelectionSearch mSearch;
    ed::SelectionAdmission mAdmission;
};

/// What the whole drawing holds is no choice that Previous should find again.
bool isRemembered(SelectionMethod method)
{
    return method != SelectionMethod::whole && method != SelectionMethod::previous &&
           method != SelectionMethod::implied;
}
} // namespace

std::vector<AcDbObjectId> ed::previousSelection(const AcDbDatabase& database)
{
    Ids ids = currentSelection()->previous.ids();
    const AcDbObjectId space = database.currentSpaceId();
    const auto isGone = [space](AcDbObjectId id) {
        return id.isErased() || !id.isValid() || residentObject(id)->ownerId() != space;
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), isGone), ids.end());
    return ids;
}

int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const resbuf* filter, ads_name ss)
{
    if (!ss) return RTERROR;
    ads_name_clear(ss);
    const std::optional<SelectionMode> how = SelectionMode::read(mode);
    const std::optional<ed::SelectionFilter> which = ed::SelectionFilter::read(filter);
    DocumentState* state = documents::current();
    if (!how || !which || !state || state->selection.sets.size() >= ed::mostSelectionSets) return RTERROR;
    SelectionSet set;
    const int status = Request(*state->database, *how, *which, pt1, pt2).gather(set);
    if (status != RTNORM) return status;
    if (isRemembered(how->method)) state->selection.previous = SelectionSet(set.ids());
    return ed::giveSelectionSet(std::move(set), ss) ? RTNORM : RTERROR;
}
