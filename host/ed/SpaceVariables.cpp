/// System variables that model space and paper space have each their own of, and those that say where one
/// works.

#include "acedviews.h"
#include "CurrentFrame.h"
#include "DatabaseState.h"
#include "dbapserv.h"
#include "dblayoutmanager.h"
#include "DocumentLocks.h"
#include "Documents.h"
#include "UcsChange.h"
#include "VariableTable.h"
#include "ViewChange.h"

namespace
{
using ed::VariableValue;

AcDbDatabase* database()
{
    return acdbHostApplicationServices()->workingDatabase();
}

HeaderVariables& header()
{
    return DatabaseAccess::of(*database()).header;
}

std::string inSpace(const char* name)
{
    return frames::variableOfSpace(*database(), name);
}

void tellModified()
{
    if (DocumentState* state = documents::current()) state->dbmod |= 4;
}

AcGePoint3d pointInSpace(const char* name)
{
    return database() ? header().point(inSpace(name)) : AcGePoint3d();
}

bool setPointInSpace(const char* name, const AcGePoint3d& point)
{
    if (!database()) return false;
    header().setPoint(inSpace(name), point);
    tellModified();
    return true;
}

void bindPoint(const wchar_t* name, short type, const char* inHeader, bool isReadOnly)
{
    ed::BoundVariable bound{[=] { return VariableValue::ofPoint(pointInSpace(inHeader), type); }, nullptr};
    if (!isReadOnly)
        bound.write = [=](const VariableValue& value) { return setPointInSpace(inHeader, value.point); };
    ed::bindVariable(name, type, std::move(bound));
}

/// EXTMIN and EXTMAX grow with the drawing; zooming to the extents makes them fit again.
AcGePoint3d extent(const char* inHeader, AcGePoint3d (AcDbExtents::*corner)() const)
{
    if (!database()) return {};
    const AcGePoint3d low = header().point(inSpace("$EXTMIN")), high = header().point(inSpace("$EXTMAX"));
    AcDbExtents all = ed::extentsOf(database()->currentSpaceId());
    if (low.x <= high.x) all.addExt({low, high});
    return all.isEmpty() ? header().point(inSpace(inHeader)) : (all.*corner)();
}

void bindExtents()
{
    ed::bindVariable(
        L"EXTMIN", RT3DPOINT,
        {[] { return VariableValue::ofPoint(extent("$EXTMIN", &AcDbExtents::minPoint)); }, nullptr});
    ed::bindVariable(
        L"EXTMAX", RT3DPOINT,
        {[] { return VariableValue::ofPoint(extent("$EXTMAX", &AcDbExtents::maxPoint)); }, nullptr});
}

void bindPlaces()
{
    bindPoint(L"UCSORG", RT3DPOINT, "$UCSORG", true);
    bindPoint(L"UCSXDIR", RT3DPOINT, "$UCSXDIR", true);
    bindPoint(L"UCSYDIR", RT3DPOINT, "$UCSYDIR", true);
    bindPoint(L"LIMMIN", RTPOINT, "$LIMMIN", false);
    bindPoint(L"LIMMAX", RTPOINT, "$LIMMAX", false);
    bindPoint(L"INSBASE", RT3DPOINT, "$INSBASE", false);
}

void bindCurrentSystem()
{
    ed::bindVariable(L"UCSNAME", RTSTR,
                     {[] {
                          return VariableValue::ofText(
                              database() ? frames::currentName(*database()).GetString() : L"");
                      },
                      nullptr});
    ed::bindVariable(L"WORLDUCS", RTSHORT,
                     {[] {
                          const bool isWorld =
                              !database() || frames::current(*database()) == AcGeMatrix3d::kIdentity;
                          return VariableValue::ofInteger(isWorld);
                      },
                      nullptr});
    ed::bindVariable(
        L"ELEVATION", RTREAL,
        {[] { return VariableValue::ofReal(database() ? header().real(inSpace("$ELEVATION")) : 0.0); },
         [](const VariableValue& value) {
             if (!database()) return false;
             header().setReal(inSpace("$ELEVATION"), value.real);
             tellModified();
             return true;
         }});
}

AcDbLayoutManager& layouts()
{
    return *acdbHostApplicationServices()->layoutManager();
}

std::wstring nameOfTab()
{
    const ACHAR* name = layouts().findActiveLayout(true, database());
    return name ? name : !database() || database()->tilemode() ? L"Model" : L"";
}

/// The lock that the editor takes for itself where a variable changes objects: a sheet that is shown for the
/// first time gets its viewport.
class OwnLock
{
public:
    OwnLock() : mDocument(acDocManager->document(database()))
    {
        const bool isNeeded = mDocument && !locks::allowsWriting(mDocument->myLockMode());
        mIsTaken = isNeeded && acDocManager->lockDocument(mDocument) == Acad::eOk;
    }
    OwnLock(const OwnLock&) = delete;
    OwnLock& operator=(const OwnLock&) = delete;
    ~OwnLock()
    {
        if (mIsTaken) acDocManager->unlockDocument(mDocument);
    }

private:
    AcApDocument* mDocument;
    bool mIsTaken = false;
};

/// Shows the model tab or a layout; false, and nothing changed, for a name that is neither.
bool showTab(const std::wstring& name)
{
    if (!database()) return false;
    if (_wcsicmp(name.c_str(), nameOfTab().c_str()) == 0) return true;
    const OwnLock lock;
    if (layouts().setCurrentLayout(name.c_str(), database()) != Acad::eOk) return false;
    tellModified();
    return true;
}

/// The model tab, or the layout that was shown last.
bool showModelTab(bool model)
{
    const ACHAR* paper = layouts().findActiveLayout(false, database());
    return model ? showTab(L"Model") : paper && showTab(paper);
}

void bindTabs()
{
    ed::bindSwitch(
        L"TILEMODE", [] { return !database() || database()->tilemode(); }, showModelTab);
    ed::bindVariable(L"CTAB", RTSTR,
                     {[] { return VariableValue::ofText(nameOfTab()); },
                      [](const VariableValue& value) { return showTab(value.text); }});
    ed::bindVariable(L"CVPORT", RTSHORT,
                     {[] { return VariableValue::ofInteger(ed::activeViewport().number); },
                      [](const VariableValue& value) {
                          return acedSetCurrentVPort(static_cast<int>(value.integer)) == Acad::eOk;
                      }});
}

[[maybe_unused]] const bool allBound = (bindExtents(), bindPlaces(), bindCurrentSystem(), bindTabs(), true);
} // namespace
