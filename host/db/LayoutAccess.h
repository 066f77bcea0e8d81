#pragma once

/// What the layout manager does to layouts and their blocks.

#include "dblayout.h"

struct LayoutAccess {
    static AcDbObjectId& lastViewport(AcDbLayout& layout) { return layout.mLastViewport; }
    static AcDbObjectId& block(AcDbLayout& layout) { return layout.mBlock; }
    static int& tabOrder(AcDbLayout& layout) { return layout.mTabOrder; }
    static bool isModel(const AcDbLayout& layout) { return layout.mName.CompareNoCase(L"Model") == 0; }
    static const CString& name(const AcDbLayout& layout) { return layout.mName; }

    /// The living layouts of a drawing in the order of their tabs, the model's first.
    static std::vector<AcDbLayout*> all(const AcDbDatabase& database);
    /// The layout of a name; null when there is none.
    static AcDbLayout* find(const AcDbDatabase& database, const ACHAR* name);
    /// The layout that is shown; with `onPaper` the one that was last shown on paper.
    static AcDbLayout* current(const AcDbDatabase& database, bool onPaper);
    /// Gives a block of paper space the name of the one that is shown, and that one a name of its own.
    static void putOnPaper(AcDbDatabase& database, AcDbBlockTableRecord& block);
};
