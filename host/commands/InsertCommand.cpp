/// INSERT: blocks of the drawing, and other drawings as blocks.

#include "acdocman.h"
#include "acedinput.h"
#include "acedvars.h"
#include "Ask.h"
#include "CommandLine.h"
#include "CommandTable.h"
#include "CurrentUcs.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "DrawingName.h"
#include "Faults.h"
#include "FileReason.h"
#include "geassign.h"
#include "Status.h"
#include "SupportFiles.h"

#include <cmath>

namespace
{
AcDbDatabase& drawing() { return *acDocManager->curDocument()->database(); }

int variable(const wchar_t* name)
{
    resbuf value{};
    return acedGetVar(name, &value) == RTNORM ? value.resval.rint : 0;
}

std::wstring lastName()
{
    resbuf value{};
    if (acedGetVar(L"INSNAME", &value) != RTNORM || !value.resval.rstring) return L"";
    const std::wstring name = value.resval.rstring;
    acutDelString(value.resval.rstring);
    return name;
}

void keepName(std::wstring name)
{
    resbuf value{};
    value.restype = RTSTR;
    value.resval.rstring = &name[0];
    acedSetVar(L"INSNAME", &value);
}

/// Metres in each of the units of INSUNITS; none has 0.
double metresOf(AcDb::UnitsValue units)
{
    constexpr double metres[] = {0,    0.0254, 0.3048, 1609.344, 1e-3, 1e-2, 1, 1e3, 2.54e-8, 2.54e-5, 0.9144,
                                 1e-10, 1e-9,  1e-6,   0.1,      10,   100,  1e9, 149597870700.0,
                                 9460730472580800.0, 3.0856775814913673e16};
    const auto index = static_cast<std::size_t>(units);
    return index < std::size(metres) ? metres[index] : 0.0;
}

/// What a block is scaled by so that it keeps its size: drawings and blocks without units have those of INSUNITSDEF...
double unitFactor(AcDb::UnitsValue block, AcDb::UnitsValue target)
{
    if (block == AcDb::kUnitsUndefined) block = static_cast<AcDb::UnitsValue>(variable(L"INSUNITSDEFSOURCE"));
    if (target == AcDb::kUnitsUndefined) target = static_cast<AcDb::UnitsValue>(variable(L"INSUNITSDEFTARGET"));
    const double from = metresOf(block), to = metresOf(target);
    return from > 0.0 && to > 0.0 ? from / to : 1.0;
}

/// What was typed for the name: "door", "door=file", "door=", "folder/file", each with "*" for its pieces.
struct Asked {
    std::wstring block, file;
    bool isExploded = false;
    bool isFromFile = false; ///< also where the drawing has a block of the name
};

Asked parse(std::wstring text)
{
    Asked asked;
    asked.isExploded = !text.empty() && text[0] == L'*';
    if (asked.isExploded) text.erase(0, 1);
    const std::size_t equals = text.find(L'=');
    asked.isFromFile = equals != std::wstring::npos || text.find_first_of(L"\\/") != std::wstring::npos;
    asked.block = text.substr(0, equals);
    asked.file = equals == std::wstring::npos || equals + 1 == text.size() ? asked.block : text.substr(equals + 1);
    if (equals != std::wstring::npos) return asked;
    asked.block.erase(0, asked.block.find_last_of(L"\\/") + 1);
    const std::size_t dot = asked.block.rfind(L'.');
    if (dot != std::wstring::npos && dot > 0) asked.block.erase(dot);
    return asked;
}

AcDbObjectId blockNamed(const std::wstring& name)
{
    const AcDbBlockTableRecordPointer block(name.c_str(), &drawing());
    return block.openStatus() == Acad::eOk && !block->isLayout() ? block->objectId() : AcDbObjectId();
}

AcDbObjectId insertFile(const Asked& asked)
{
    AcDbObjectId id;
    std::wstring path = ed::findSupportFile(asked.file);
    if (path.empty()) path = ed::findSupportFile(asked.file + L".dxf");
    if (path.empty()) path = commands::drawingPath(asked.file);
    AcDbDatabase source(false, true);
    const Acad::ErrorStatus read = source.readDwgFile(path.c_str());
    if (read != Acad::eOk) {
        ed::fail(L"Cannot insert \"" + path + L"\": " + commands::fileReason(read) + L".");
        return id;
    }
    commands::succeeds(drawing().insert(id, asked.block.c_str(), &source));
    return id;
}

void listBlocks()
{
    const AcDbBlockTablePointer table(&drawing());
    if (table.openStatus() != Acad::eOk) return;
    for (const AcDbObjectId id : table->recordIds()) {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id);
        if (block.openStatus() != Acad::eOk || block->isLayout() || block->isAnonymous()) continue;
        ed::print(L"\n  \"" + std::wstring(block->name()) + L"\"");
    }
    ed::print(L"\n");
}

/// The block to show; null when none is wanted or it is not there.
AcDbObjectId askBlock(Asked& asked)
{
    const std::wstring last = lastName();
    const std::wstring shown = last.empty() ? L"Enter block name or [?]: " : L"Enter block name or [?] <" + last + L">: ";
    const auto text = commands::askFile(shown);
    if (!text || (text->empty() && last.empty())) return AcDbObjectId();
    if (*text == L"?") {
        listBlocks();
        return AcDbObjectId();
    }
    asked = parse(text->empty() ? last : *text);
    const AcDbObjectId known = asked.isFromFile ? AcDbObjectId() : blockNamed(asked.block);
    return known.isNull() ? insertFile(asked) : known;
}

/// How a reference lies, in the UCS; what has been set before the point is not asked for.
struct Placing {
    AcGePoint3d position;
    AcGeScale3d scale{1.0, 1.0, 1.0};
    double rotation = 0.0;
    bool hasScale = false, hasRotation = false;
};

bool askReal(const std::wstring& prompt, double& value)
{
    ads_real answer = 0.0;
    acedInitGet(RSG_NOZERO, nullptr);
    const int code = acedGetReal(prompt.c_str(), &answer);
    if (code == RTNORM) value = answer;
    return code == RTNORM || code == RTNONE;
}

bool askAngle(Placing& placing, const ads_point base)
{
    ads_real angle = 0.0;
    const int code = acedGetAngle(base, L"Specify rotation angle <0>: ", &angle);
    if (code == RTNORM) placing.rotation = angle;
    return code == RTNORM || code == RTNONE;
}

bool askEvenScale(Placing& placing, const wchar_t* prompt)
{
    double factor = 1.0;
    if (!askReal(prompt, factor)) return false;
    placing.scale = AcGeScale3d(factor, factor, factor);
    return placing.hasScale = true;
}

bool obey(Placing& placing, const std::wstring& option)
{
    if (option == L"Scale") return askEvenScale(placing, L"Specify scale factor for XYZ axes <1>: ");
    if (option == L"Rotate") {
        const ads_point origin = {0, 0, 0};
        return placing.hasRotation = askAngle(placing, origin);
    }
    double& factor = option == L"X" ? placing.scale.sx : option == L"Y" ? placing.scale.sy : placing.scale.sz;
    return placing.hasScale = askReal(L"Specify " + option + L" scale factor <1>: ", factor);
}

bool askPosition(Placing& placing)
{
    while (true) {
        ads_point at;
        ACHAR option[20];
        acedInitGet(RSG_NONULL, L"Scale X Y Z Rotate");
        const int code = acedGetPoint(nullptr, L"Specify insertion point or [Scale/X/Y/Z/Rotate]: ", at);
        if (code == RTNORM) placing.position = asPnt3d(at);
        if (code != RTKWORD) return code == RTNORM;
        if (acedGetInput(option) != RTNORM || !obey(placing, option)) return false;
    }
}

/// The factors of the three axes: Y and Z are X's unless they are given.
bool askFactors(Placing& placing, bool isExploded)
{
    if (placing.hasScale) return true;
    if (isExploded) return askEvenScale(placing, L"Specify scale factor for XYZ axes <1>: ");
    ads_real x = 1.0;
    acedInitGet(RSG_NOZERO, L"XYZ");
    const int code = acedGetReal(L"Enter X scale factor or [XYZ] <1>: ", &x);
    if (code == RTKWORD) {
        AcGeScale3d& scale = placing.scale;
        if (!askReal(L"Enter X scale factor <1>: ", scale.sx)) return false;
        scale.sy = scale.sz = scale.sx;
        return askReal(L"Enter Y scale factor <use X scale factor>: ", scale.sy) &&
               askReal(L"Enter Z scale factor <use X scale factor>: ", scale.sz);
    }
    if (code != RTNORM && code != RTNONE) return false;
    placing.scale = code == RTNORM ? AcGeScale3d(x, x, x) : AcGeScale3d(1.0, 1.0, 1.0);
    return askReal(L"Enter Y scale factor <use X scale factor>: ", placing.scale.sy);
}

bool askPlacing(Placing& placing, bool isExploded)
{
    if (!askPosition(placing) || !askFactors(placing, isExploded)) return false;
    return placing.hasRotation || askAngle(placing, asDblArray(placing.position));
}

/// The value of an attribute as it is asked for; its own text without a question.
std::wstring valueOf(const AcDbAttributeDefinition& definition)
{
    const std::wstring value = definition.textStringConst();
    if (definition.isPreset() || variable(L"ATTREQ") == 0) return value;
    std::wstring prompt = definition.promptConst();
    if (prompt.empty()) prompt = definition.tagConst();
    const auto answer = commands::ask(prompt + (value.empty() ? L": " : L" <" + value + L">: "), ed::Reading::line);
    return answer && !answer->empty() ? *answer : value;
}

void addAttributes(AcDbBlockReference& reference)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference.blockTableRecord());
    if (block.openStatus() != Acad::eOk || !block->hasAttributeDefinitions()) return;
    for (const AcDbObjectId id : block->entityIds()) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id);
        if (definition.openStatus() != Acad::eOk || definition->isConstant()) continue;
        auto attribute = std::make_unique<AcDbAttribute>();
        attribute->setPropertiesFrom(definition);
        attribute->setAttributeFromBlock(definition, reference.blockTransform());
        attribute->setTextString(valueOf(*definition).c_str());
        if (reference.appendAttribute(attribute.get()) == Acad::eOk) attribute.release()->close();
    }
}

/// The pieces of a reference that is not added itself.
void addPieces(const AcDbBlockReference& reference, AcDbBlockTableRecord& space)
{
    AcDbVoidPtrArray pieces;
    if (!commands::succeeds(reference.explode(pieces))) return;
    for (int i = 0; i < pieces.length(); ++i) {
        auto* piece = static_cast<AcDbEntity*>(pieces[i]);
        if (space.appendAcDbEntity(piece) == Acad::eOk) {
            piece->close();
        } else {
            delete piece;
        }
    }
}

void addReference(AcDbObjectId block, const Placing& placing, bool isExploded)
{
    AcDbObjectPointer<AcDbBlockReference> reference(new AcDbBlockReference(placing.position, block));
    const double factor =
        unitFactor(AcDbObjectPointer<AcDbBlockTableRecord>(block)->blockInsertUnits(), drawing().insunits());
    reference->setDatabaseDefaults(&drawing());
    reference->setScaleFactors(
        AcGeScale3d(placing.scale.sx * factor, placing.scale.sy * factor, placing.scale.sz * factor));
    reference->setRotation(placing.rotation);
    reference->transformBy(ed::ucsToWorld());
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing().currentSpaceId(), AcDb::kForWrite);
    if (!commands::succeeds(space.openStatus())) return;
    if (isExploded) return addPieces(*reference, *space);
    if (commands::succeeds(space->appendAcDbEntity(reference.object()))) addAttributes(*reference);
}

void insert()
{
    Asked asked;
    Placing placing;
    const AcDbObjectId block = askBlock(asked);
    if (block.isNull()) return;
    keepName(asked.block);
    if (askPlacing(placing, asked.isExploded)) addReference(block, placing, asked.isExploded);
}

constexpr const wchar_t* help = L"Shows a block, or another drawing as one: name, name=file or file; * adds its pieces";
[[maybe_unused]] const bool added = commands::add({
    {L"INSERT", L"I", ACRX_CMD_MODAL, insert, help},
});
} // namespace
