#pragma once

/// The dialogue of "Select objects:".

#include "InputRules.h"
#include "InputSource.h"
#include "SelectionAdmission.h"
#include "SelectionKeywords.h"
#include "SelectionPoints.h"
#include "SelectionState.h"

namespace ed
{
/// What a callback said; nothing where there is none.
struct CalledBack {
    std::vector<AcDbObjectId> ids;
    std::wstring message;
};
CalledBack callBackKeyword(const std::wstring& keyword);
CalledBack callBackOther(const std::wstring& text);

class SelectionDialog
{
public:
    struct Prompts {
        std::wstring add = L"\nSelect objects: ";
        std::wstring remove = L"\nRemove objects: ";
    };

    SelectionDialog(SelectionSearch& search, const SelectionAdmission& admission, AcDbDatabase& database,
                    const SelectionMode& mode, Prompts prompts);
    ~SelectionDialog();
    SelectionDialog(const SelectionDialog&) = delete;
    SelectionDialog& operator=(const SelectionDialog&) = delete;

    /// Asks until Enter: true; or until Esc: false.
    bool run();
    SelectionSet takeSet() { return std::move(mSet); }

private:
    using Ids = std::vector<AcDbObjectId>;
    using Kind = SelectionCause::Kind;
    enum class Next { goOn, done, cancelled };

    Next handle(const Answer& answer);
    Next handleText(const Answer& answer);
    Next handlePoint(const AcGePoint3d& point);
    Next handleKeyword(SelectionKeyword keyword);
    Next handleDrawing(SelectionKeyword keyword);
    Next handleUnknown(const std::wstring& text);
    Next handleCallback(CalledBack said);
    bool isAllowed(SelectionKeyword keyword) const;

    Next askCorners(std::optional<Kind> kind);
    Next askOppositeCorner(const AcGePoint3d& first, std::optional<Kind> kind);
    Next askPolygon(Kind kind);
    Next askGroup();
    Next askMultiple();
    /// What may be answered to a question for a point.
    enum class PointAnswer { point, enter, undo, cancel };
    PointAnswer askPoint(const std::wstring& prompt, const std::optional<AcGePoint3d>& base, AcGePoint3d& point,
                         bool mayUndo = false);

    Ids under(const AcGePoint3d& point);
    Next selectArea(const DrawnArea& drawn);
    /// Adds or removes, and says how many.
    Next select(Ids ids, SelectionCause cause, bool byGeometry);
    std::wstring addAll(const Ids& ids, SelectionCause cause);
    std::wstring removeAll(const Ids& ids);
    void undo();

    SelectionSearch& mSearch;
    const SelectionAdmission& mAdmission;
    AcDbDatabase& mDatabase;
    const SelectionMode& mMode;
    Prompts mPrompts;
    InputRules mRules = takeInputRules(); ///< with the keywords of the caller
    SelectionSet mSet;
    const SelectionSet* mGatheringBefore;
    bool mRemoves = false;
    bool mIsSingle = false;
    struct Step {
        bool added;
        Ids ids;
    };
    std::vector<Step> mSteps; ///< for Undo
};

/// The entities of the set before that are still in the current space.
std::vector<AcDbObjectId> previousSelection(const AcDbDatabase& database);
} // namespace ed
