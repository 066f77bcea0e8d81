#include "TextMakers.h"

/// Every maker that takes a point, at one.
Calls MakersOfTexts::atPoint(const AcGePoint3d& at) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(at, L"a", id, 1.0, 0.5); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(at, L"a", id, 1.0, kAligTopRight, 0.5); }},
        {"MakeMText", [=](AcDbObjectId& id, auto&) {
             return CMakeEnt::MakeMText(at, L"a", AcDbObjectId(), 1.0, 0.0, id);
         }}};
    for (const _Text_Class kind : {kTextClassLine, kTextClassParagraph, kTextClassAttribute})
        calls.push_back({"MakeText of class " + std::to_string(kind), [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeText(kSoftCommon, at, L"a", id, kAligCenter, kind, 0.5);
                         }});
    for (const Dimensions make : dimensions)
        calls.push_back(
            {"MakeCoordDim", [=](auto&, AcDbObjectIdArray& ids) { return make(at, ids, 0, 5.0, L""); }});
    return calls;
}

/// Every maker that takes a height, length, width, factor or angle, with a bad one.
Calls MakersOfTexts::withSize(double size) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, L"a", id, size); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, L"a", id, size, kAligRight, 0.0); }},
        {"MakeMText", [=](AcDbObjectId& id,
                          auto&) { return CMakeEnt::MakeMText(here, L"a", AcDbObjectId(), size, 0.0, id); }},
        {"MakeTxtStyle factor",
         [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"HELD", L"romans.shx", 1.0, size, 0.0); }},
        {"MakeTxtStyle new",
         [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"NEW", L"romans.shx", 1.0, size, 0.0); }}};
    for (const Dimensions make : dimensions)
        calls.push_back(
            {"MakeCoordDim", [=](auto&, AcDbObjectIdArray& ids) { return make(here, ids, 1, size, L""); }});
    if (size == 0.0) return calls; // which is a good width and angle
    calls.push_back({"MakeMText width", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::MakeMText(here, L"a", AcDbObjectId(), 1.0, size, id);
                     }});
    calls.push_back({"MakeTxtStyle height", [=](auto&, auto&) {
                         return CMakeEnt::MakeTxtStyle(L"HELD", L"romans.shx", size, 1.0, 0.0);
                     }});
    calls.push_back({"DrawPl width",
                     [=](auto&, AcDbObjectIdArray& ids) { return CMakeEnt::DrawPl(ids, L"", 256, size); }});
    calls.push_back({"DrawPlCmd width",
                     [=](AcDbObjectId& id, auto&) { return CMakeEnt::DrawPlCmd(id, L"", 256, size); }});
    calls.push_back({"DrawPlWithDoubleElastic width", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::DrawPlWithDoubleElastic(id, L"", 256, size);
                     }});
    return calls;
}

/// Every maker of single lines, with a text that is none.
Calls MakersOfTexts::withText(const wchar_t* text) const
{
    Calls calls = {
        {"MakeText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, text, id, 1.0); }},
        {"MakeText aligned",
         [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeText(here, text, id, 1.0, kAligRight, 0.0); }}};
    if (!text) {
        calls.push_back({"MakeMText", [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeMText(here, text, AcDbObjectId(), 1.0, 0.0, id);
                         }});
        return calls;
    }
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(m_text, text, id); }});
    calls.push_back({"MakeText attribute", [=](AcDbObjectId& id, auto&) {
                         return CMakeEnt::MakeText(kSoftCommon, here, text, id, kAligLeft,
                                                   kTextClassAttribute);
                     }});
    return calls;
}

/// Every maker that takes a name, with one that is not allowed or not there.
Calls MakersOfTexts::withName(const CString& name) const
{
    const AcDbObjectIdArray entities = listOf({m_line});
    Calls calls = {
        {"MakeTxtStyle",
         [=](auto&, auto&) { return CMakeEnt::MakeTxtStyle(name, L"txt.shx", 1.0, 1.0, 0.0); }},
        {"MakeGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeGroup(name, entities, id); }},
        {"ExplodNoNameGroup", [=](auto&, auto&) { return CMakeEnt::ExplodNoNameGroup(name); }}};
    if (name.IsEmpty()) return calls; // which is the current style and layer, and any layer to SeekBj
    calls.push_back({"MakeCoordDim", [=](auto&, AcDbObjectIdArray& ids) {
                         return CMakeEnt::MakeCoordDim2(here, ids, 0, 5.0, name);
                     }});
    calls.push_back({"DrawPl", [=](auto&, AcDbObjectIdArray& ids) { return CMakeEnt::DrawPl(ids, name); }});
    calls.push_back({"DrawPlCmd", [=](AcDbObjectId& id, auto&) { return CMakeEnt::DrawPlCmd(id, name); }});
    calls.push_back({"DrawPlWithDoubleElastic",
                     [=](AcDbObjectId& id, auto&) { return CMakeEnt::DrawPlWithDoubleElastic(id, name); }});
    calls.push_back({"SeekBj", [=](AcDbObjectId& id, auto&) { return CMakeEnt::SeekBj(here, name, id); }});
    return calls;
}

Calls MakersOfTexts::withGroup(const AcDbObjectIdArray& ids) const
{
    return {{"MakeGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeGroup(L"NEW", ids, id); }},
            {"MakeNoNameGroup", [=](AcDbObjectId& id, auto&) { return CMakeEnt::MakeNoNameGroup(ids, id); }}};
}

/// Every maker that takes an object, with one that it cannot use.
Calls MakersOfTexts::withObject(AcDbObjectId object) const
{
    Calls calls = withGroup(listOf({m_line, object}));
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(object, L"b", id); }});
    if (!object.isNull())
        calls.push_back({"MakeMText", [=](AcDbObjectId& id, auto&) {
                             return CMakeEnt::MakeMText(here, L"a", object, 1.0, 0.0, id);
                         }});
    return calls;
}

/// Every maker, as it succeeds. The interactive ones have answers waiting.
Calls MakersOfTexts::good()
{
    Calls calls = atPoint(here);
    calls.push_back(
        {"CopyText", [=](AcDbObjectId& id, auto&) { return CMakeEnt::CopyText(m_text, L"b", id); }});
    calls.push_back({"DrawPl", [=](auto&, AcDbObjectIdArray& ids) {
                         answer(L"0,0 1,0  ");
                         return CMakeEnt::DrawPl(ids);
                     }});
    calls.push_back({"DrawPlCmd", [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0 1,1 c ");
                         return CMakeEnt::DrawPlCmd(id);
                     }});
    calls.push_back({"DrawPlWithDoubleElastic", [=](AcDbObjectId& id, auto&) {
                         answer(L"0,0 1,0 1,1 c ");
                         return CMakeEnt::DrawPlWithDoubleElastic(id);
                     }});
    return calls;
}

Calls MakersOfTexts::all()
{
    Calls calls = good();
    const Calls groups = withGroup(listOf({m_line}));
    calls.insert(calls.end(), groups.begin(), groups.end());
    calls.push_back({"MakeTxtStyle new",
                     [](auto&, auto&) { return CMakeEnt::MakeTxtStyle(L"NEW", L"txt.shx", 1.0, 1.0, 0.0); }});
    calls.push_back({"MakeTxtStyle", [](auto&, auto&) {
                         return CMakeEnt::MakeTxtStyle(L"HELD", L"txt.shx", 1.0, 1.0, 0.0);
                     }});
    return calls;
}
