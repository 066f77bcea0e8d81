#include "SelectionDialog.h"

#include "CommandLine.h"
#include "SelectableGroups.h"
#include "VariableStore.h"

namespace ed
{
namespace
{
long integerOf(const wchar_t* variable)
{
    const std::optional<VariableValue> value = readVariable(variable);
    return value ? value->integer : 0;
}

std::wstring counted(std::size_t count, const wchar_t* one, const wchar_t* more)
{
    return count == 0 ? std::wstring() : std::to_wstring(count) + (count == 1 ? one : more);
}

/// Why some were left out, a line for each reason.
std::wstring refusals(const Admitted& admitted)
{
    return counted(admitted.filtered, L" was filtered out.\n", L" were filtered out.\n") +
           counted(admitted.locked, L" was on a locked layer.\n", L" were on a locked layer.\n");
}
} // namespace

SelectionDialog::SelectionDialog(SelectionSearch& search, const SelectionAdmission& admission, AcDbDatabase& database,
                                 const SelectionMode& mode, Prompts prompts)
    : mSearch(search), mAdmission(admission), mDatabase(database), mMode(mode), mPrompts(std::move(prompts)),
      mGatheringBefore(currentSelection()->gathering), mIsSingle(mode.isSingle)
{
    currentSelection()->gathering = &mSet;
}

SelectionDialog::~SelectionDialog()
{
    if (SelectionState* state = currentSelection()) state->gathering = mGatheringBefore;
}

bool SelectionDialog::run()
{
    for (;;) {
        print(mRemoves ? mPrompts.remove : mPrompts.add);
        const Next next = handle(currentInput().next(Reading::token));
        if (next == Next::cancelled) return false;
        if (next == Next::done) return true;
    }
}

SelectionDialog::Next SelectionDialog::handle(const Answer& answer)
{
    switch (answer.kind) {
    case Answer::Kind::cancel:
        return Next::cancelled;
    case Answer::Kind::enter:
        return Next::done;
    case Answer::Kind::entity:
        return select({AcDbObjectId().setFromOldId(static_cast<std::intptr_t>(answer.name[0]))}, {}, false);
    case Answer::Kind::selection: {
        const SelectionSet* set = selectionSet(answer.name);
        return select(set ? set->ids() : Ids(), {}, false);
    }
    default:
        return handleText(answer);
    }
}

SelectionDialog::Next SelectionDialog::handleText(const Answer& answer)
{
    if (mMode.callsForKeywords) {
        if (const std::optional<std::size_t> word = mRules.keywords.match(answer.text))
            return handleCallback(callBackKeyword(mRules.keywords.name(*word)));
    }
    const std::optional<SelectionKeyword> keyword = selectionKeyword(answer.text);
    if (keyword && isAllowed(*keyword)) return handleKeyword(*keyword);
    AcGePoint3d point;
    std::wstring message;
    const Verdict verdict = mMode.isNongeometric ? Verdict::notUnderstood : answeredPoint(answer, {}, point, message);
    switch (verdict) {
    case Verdict::good:
        return handlePoint(point);
    case Verdict::cancelled:
        return Next::cancelled;
    case Verdict::refused:
        print(message + L"\n");
        return Next::goOn;
    case Verdict::notUnderstood:
        break;
    }
    return handleUnknown(answer.text);
}

bool SelectionDialog::isAllowed(SelectionKeyword keyword) const
{
    switch (keyword) {
    case SelectionKeyword::window:
    case SelectionKeyword::crossing:
    case SelectionKeyword::box:
    case SelectionKeyword::fence:
    case SelectionKeyword::windowPolygon:
    case SelectionKeyword::crossingPolygon:
    case SelectionKeyword::multiple:
        return !mMode.isNongeometric && !mMode.picksOnly;
    default:
        return true;
    }
}

SelectionDialog::Next SelectionDialog::handleUnknown(const std::wstring& text)
{
    if (mMode.callsForOthers) return handleCallback(callBackOther(text));
    print(invalidSelectionText);
    return Next::goOn;
}

SelectionDialog::Next SelectionDialog::handleCallback(CalledBack said)
{
    print(said.message);
    return said.ids.empty() ? Next::goOn : select(std::move(said.ids), {}, false);
}

SelectionDialog::Ids SelectionDialog::under(const AcGePoint3d& point)
{
    const SelectionArea box = mSearch.pickBox(point);
    if (mMode.takesAllUnderBox) return mSearch.touching(box);
    const AcDbObjectId found = mSearch.uppermostTouching(box);
    return found.isNull() ? Ids() : Ids{found};
}

SelectionDialog::Next SelectionDialog::handlePoint(const AcGePoint3d& point)
{
    Ids found = under(point);
    const bool drawsWindow = found.empty() && !mMode.picksOnly && integerOf(L"PICKAUTO") != 0;
    if (drawsWindow) return askOppositeCorner(point, std::nullopt);
    return select(std::move(found), pickAt(mSearch.view(), point), true);
}

SelectionDialog::Next SelectionDialog::handleKeyword(SelectionKeyword keyword)
{
    switch (keyword) {
    case SelectionKeyword::last: {
        const AcDbObjectId last = mSearch.lastSeen();
        return select(last.isNull() ? Ids() : Ids{last}, {}, false);
    }
    case SelectionKeyword::all:
        return select(mSearch.thawed(), {}, false);
    case SelectionKeyword::previous:
        return select(previousSelection(mDatabase), {}, false);
    case SelectionKeyword::group:
        return askGroup();
    case SelectionKeyword::multiple:
        return askMultiple();
    case SelectionKeyword::add:
        mRemoves = false;
        break;
    case SelectionKeyword::remove:
        mRemoves = true;
        break;
    case SelectionKeyword::undo:
        undo();
        break;
    case SelectionKeyword::automatic:
        break;
    case SelectionKeyword::single:
        mIsSingle = true;
        break;
    default:
        return handleDrawing(keyword);
    }
    return Next::goOn;
}

SelectionDialog::Next SelectionDialog::handleDrawing(SelectionKeyword keyword)
{
    switch (keyword) {
    case SelectionKeyword::window:
        return askCorners(Kind::window);
    case SelectionKeyword::crossing:
        return askCorners(Kind::crossing);
    case SelectionKeyword::box:
        return askCorners(std::nullopt);
    case SelectionKeyword::windowPolygon:
        return askPolygon(Kind::window);
    case SelectionKeyword::crossingPolygon:
        return askPolygon(Kind::crossing);
    default:
        return askPolygon(Kind::fence);
    }
}

SelectionDialog::PointAnswer SelectionDialog::askPoint(const std::wstring& prompt,
                                                       const std::optional<AcGePoint3d>& base, AcGePoint3d& point,
                                                       bool mayUndo)
{
    for (;;) {
        print(prompt);
        const Answer answer = currentInput().next(Reading::token);
        if (answer.kind == Answer::Kind::cancel) return PointAnswer::cancel;
        if (answer.kind == Answer::Kind::enter) return PointAnswer::enter;
        std::wstring message = L"Invalid point.";
        const Verdict verdict = answeredPoint(answer, base, point, message);
        if (verdict == Verdict::good) return PointAnswer::point;
        if (verdict == Verdict::cancelled) return PointAnswer::cancel;
        if (mayUndo && selectionKeyword(answer.text) == SelectionKeyword::undo) return PointAnswer::undo;
        print(message + L"\n");
    }
}

SelectionDialog::Next SelectionDialog::askCorners(std::optional<Kind> kind)
{
    AcGePoint3d first;
    switch (askPoint(L"Specify first corner: ", {}, first)) {
    case PointAnswer::point:
        return askOppositeCorner(first, kind);
    case PointAnswer::cancel:
        return Next::cancelled;
    default:
        return Next::goOn;
    }
}

SelectionDialog::Next SelectionDialog::askOppositeCorner(const AcGePoint3d& first, std::optional<Kind> kind)
{
    AcGePoint3d second;
    const PointAnswer answer = askPoint(L"Specify opposite corner: ", first, second);
    if (answer != PointAnswer::point) return answer == PointAnswer::cancel ? Next::cancelled : Next::goOn;
    const SelectionView& view = mSearch.view();
    return selectArea(windowOf(view, kind.value_or(kindByDirection(view, first, second)), first, second));
}

SelectionDialog::Next SelectionDialog::askPolygon(Kind kind)
{
    const bool isFence = kind == Kind::fence;
    const wchar_t* const first = isFence ? L"Specify first fence point: " : L"First polygon point: ";
    const wchar_t* const next =
        isFence ? L"Specify next fence point or [Undo]: " : L"Specify endpoint of line or [Undo]: ";
    std::vector<AcGePoint3d> points;
    for (;;) {
        AcGePoint3d point;
        std::optional<AcGePoint3d> base;
        if (!points.empty()) base = points.back();
        const PointAnswer answer = askPoint(base ? next : first, base, point, base.has_value());
        if (answer == PointAnswer::cancel) return Next::cancelled;
        if (answer == PointAnswer::enter) break;
        if (answer == PointAnswer::undo)
            points.pop_back();
        else
            points.push_back(point);
    }
    const std::optional<DrawnArea> drawn = polygonOf(mSearch.view(), kind, points);
    return drawn ? selectArea(*drawn) : Next::goOn;
}

SelectionDialog::Next SelectionDialog::askGroup()
{
    print(L"Enter group name: ");
    const Answer answer = currentInput().next(Reading::word);
    if (answer.kind == Answer::Kind::cancel) return Next::cancelled;
    if (answer.kind != Answer::Kind::text) return Next::goOn;
    Ids ids = entitiesOfGroup(mDatabase, answer.text);
    if (!ids.empty()) return select(std::move(ids), {}, false);
    print(L"No group is named \"" + answer.text + L"\".\n");
    return Next::goOn;
}

/// Points that pick, without a word until Enter.
SelectionDialog::Next SelectionDialog::askMultiple()
{
    Ids all;
    for (;;) {
        AcGePoint3d point;
        const PointAnswer answer = askPoint(mPrompts.add, {}, point);
        if (answer == PointAnswer::cancel) return Next::cancelled;
        if (answer == PointAnswer::enter) return select(std::move(all), {}, true);
        for (const AcDbObjectId id : under(point)) {
            if (std::find(all.begin(), all.end(), id) == all.end()) all.push_back(id);
        }
    }
}

SelectionDialog::Next SelectionDialog::selectArea(const DrawnArea& drawn)
{
    const bool isWindow = drawn.cause.kind == Kind::window;
    return select(isWindow ? mSearch.inside(drawn.area) : mSearch.touching(drawn.area), drawn.cause, true);
}

SelectionDialog::Next SelectionDialog::select(Ids ids, SelectionCause cause, bool byGeometry)
{
    const Admitted admitted = mAdmission.admit(std::move(ids), byGeometry);
    std::wstring message = std::to_wstring(admitted.found) + L" found";
    message += mRemoves ? removeAll(admitted.ids) : addAll(admitted.ids, std::move(cause));
    message += counted(admitted.groups, L" group", L" groups").insert(0, admitted.groups ? L", " : L"");
    print(message + L"\n" + refusals(admitted));
    return mIsSingle && !mSet.empty() ? Next::done : Next::goOn;
}

std::wstring SelectionDialog::addAll(const Ids& ids, SelectionCause cause)
{
    const bool isFirst = mSet.empty();
    if (integerOf(L"PICKADD") == 0 && cause.kind != Kind::unknown) mSet.clear();
    mSet.setCause(std::move(cause));
    Step step{true, {}};
    for (const AcDbObjectId id : ids) {
        if (mMode.keepsDoubles)
            mSet.addAgain(id);
        else if (!mSet.add(id))
            continue;
        step.ids.push_back(id);
    }
    const std::size_t doubles = ids.size() - step.ids.size();
    if (!step.ids.empty()) mSteps.push_back(std::move(step));
    std::wstring message = counted(doubles, L" duplicate", L" duplicates");
    if (!message.empty()) message = L" (" + message + L")";
    return message + (isFirst ? L"" : L", " + std::to_wstring(mSet.size()) + L" total");
}

std::wstring SelectionDialog::removeAll(const Ids& ids)
{
    Step step{false, {}};
    for (const AcDbObjectId id : ids) {
        if (mSet.remove(id)) step.ids.push_back(id);
    }
    const std::size_t removed = step.ids.size();
    if (removed) mSteps.push_back(std::move(step));
    return L", " + std::to_wstring(removed) + L" removed, " + std::to_wstring(mSet.size()) + L" total";
}

void SelectionDialog::undo()
{
    if (mSteps.empty()) {
        print(L"All selections have been undone.\n");
        return;
    }
    const Step step = std::move(mSteps.back());
    mSteps.pop_back();
    for (const AcDbObjectId id : step.ids) {
        if (step.added)
            mSet.remove(id);
        else
            mSet.add(id);
    }
}
} // namespace ed
