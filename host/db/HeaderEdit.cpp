#include "DatabaseState.h"
#include "HeaderEdit.h"
#include "ObjectNotices.h"

#include <utility>

void HeaderEdit::exchange(AcDbDatabase& database)
{
    std::swap(DatabaseAccess::of(database).header.at(mName), mValue);
}

void HeaderEdit::tell(AcDbDatabase& database) const
{
    notices::headerChanged(database, CString(mName.c_str() + 1)); // without the $
}

void SettingsEdit::exchange(AcDbDatabase& database)
{
    std::swap(static_cast<CurrentSettings&>(DatabaseAccess::of(database)), mSettings);
}

void SettingsEdit::tell(AcDbDatabase& database) const
{
    const CurrentSettings& now = DatabaseAccess::of(database);
    const auto tellOf = [&](const wchar_t* name, bool isSame) {
        if (!isSame) notices::headerChanged(database, name);
    };
    tellOf(L"CLAYER", now.clayer == mSettings.clayer);
    tellOf(L"CELTYPE", now.celtype == mSettings.celtype);
    tellOf(L"TEXTSTYLE", now.textstyle == mSettings.textstyle);
    tellOf(L"DIMSTYLE", now.dimstyle == mSettings.dimstyle);
    tellOf(L"CECOLOR", now.cecolor == mSettings.cecolor);
}
