#pragma once

/// How the parts of AcDbMText change its members, and what its record says beside its fields.

#include "MTextExtras.h"

struct MTextFields {
    /// Takes the columns from the object that newer programs embed at the end of the record.
    static void readEmbedded(AcDbMText& text);
    /// That object repeats what the fields say: once the text has changed, it would contradict them.
    static void forgetEmbedded(AcDbMText& text);
};

template <class T, class V>
Acad::ErrorStatus AcDbMText::change(T& member, V value)
{
    const Acad::ErrorStatus status = beginTextChange();
    if (status == Acad::eOk) member = static_cast<T>(value);
    return status;
}

template <class Apply>
Acad::ErrorStatus AcDbMText::changeExtras(Apply apply)
{
    const Acad::ErrorStatus status = beginTextChange();
    if (status == Acad::eOk) apply(mExtras.need());
    return status;
}

/// Changes something of the background, where there is one.
template <class Apply>
Acad::ErrorStatus AcDbMText::changeFill(Apply apply)
{
    return backgroundFillOn() ? changeExtras(apply) : Acad::eInvalidInput;
}

template <class Apply>
Acad::ErrorStatus AcDbMText::changeColumns(Apply apply)
{
    if (!columns()) return Acad::eNotApplicable;
    return changeExtras([&](MTextExtras& extras) { apply(extras.columns); });
}
