/// The dimension variables of a drawing, a dimension or a leader as a style of its own.

#include "DatabaseState.h"
#include "DimVariables.h"
#include "ObjectNotices.h"
#include "RecordNames.h"
#include "Stub.h"
#include "dbblock.h"
#include "dbdimension.h"
#include "dblead.h"

#include <cctype>

namespace
{
AcCmColor colorOf(int index)
{
    AcCmColor color;
    color.setColorIndex(index);
    return color;
}

AcDbDimStyleTableRecord* newRecordOf(const DimVariables& variables)
{
    auto* record = new AcDbDimStyleTableRecord;
#define DIM_VALUE(name, Name, code, value) record->set##Name(variables.name);
#define DIM_COLOR(name, Name, code, value) record->set##Name(colorOf(variables.name));
#define DIM_LINEWEIGHT(name, Name, code, value) record->set##Name(static_cast<AcDb::LineWeight>(variables.name));
    ACDB_DIM_REALS(DIM_VALUE)
    ACDB_DIM_ANGLES(DIM_VALUE)
    ACDB_DIM_INTEGERS(DIM_VALUE)
    ACDB_DIM_SWITCHES(DIM_VALUE)
    ACDB_DIM_COLORS(DIM_COLOR)
    ACDB_DIM_FILL_COLOR(DIM_COLOR)
    ACDB_DIM_LINEWEIGHTS(DIM_LINEWEIGHT)
    ACDB_DIM_TEXTS(DIM_VALUE)
    ACDB_DIM_REFERENCES(DIM_VALUE)
#undef DIM_VALUE
#undef DIM_COLOR
#undef DIM_LINEWEIGHT
    return record;
}

/// "$DIMASZ" of "dimasz"; one has a shorter name in headers.
std::string variableOf(const char* member)
{
    if (std::string_view(member) == "dimfxlen") return "$DIMFXL";
    std::string name = "$";
    for (; *member; ++member) name += static_cast<char>(std::toupper(static_cast<unsigned char>(*member)));
    return name;
}

/// The table whose records a dimension variable names.
AcDbObjectId tableOf(const AcDbDatabase& database, int code)
{
    if (code == 340) return database.textStyleTableId();
    return code >= 345 ? database.linetypeTableId() : database.blockTableId();
}

/// The header's side of the variables; one that the header does not have keeps what it has.
class HeaderDims
{
public:
    HeaderDims(const AcDbDatabase& database, HeaderVariables& header) : mDatabase(database), mHeader(header) {}

    void read(const char* member, int, double& value) const
    {
        if (has(member)) value = mHeader.real(variableOf(member));
    }
    void read(const char* member, int, int& value) const
    {
        if (has(member)) value = static_cast<int>(mHeader.integer(variableOf(member)));
    }
    void read(const char* member, int, bool& value) const
    {
        if (has(member)) value = mHeader.integer(variableOf(member)) != 0;
    }
    void read(const char* member, int, CString& value) const
    {
        if (has(member)) value = mHeader.text(variableOf(member));
    }
    void read(const char* member, int code, AcDbObjectId& value) const
    {
        const auto* table = AcDbSymbolTable::cast(residentObject(tableOf(mDatabase, code)));
        const CString name = has(member) ? mHeader.text(variableOf(member)) : CString();
        if (table && !name.IsEmpty()) table->getAt(name, value);
    }

    void write(const char* member, int, double value)
    {
        if (has(member)) mHeader.setReal(variableOf(member), value);
    }
    void write(const char* member, int, int value)
    {
        if (has(member)) mHeader.setInteger(variableOf(member), value);
    }
    void write(const char* member, int, const CString& value)
    {
        if (has(member)) mHeader.setText(variableOf(member), value);
    }
    void write(const char* member, int code, AcDbObjectId id)
    {
        const auto* record = AcDbSymbolTableRecord::cast(residentObject(id));
        const CString none = code == 340 ? L"Standard" : L""; // dimensions cannot do without a text style
        if (has(member)) mHeader.setText(variableOf(member), record ? record->name() : none);
    }

private:
    bool has(const char* member) const { return mHeader.find(variableOf(member)) != nullptr; }

    const AcDbDatabase& mDatabase;
    HeaderVariables& mHeader;
};

void readAll(const HeaderDims& header, DimVariables& variables)
{
#define DIM_READ(name, Name, code, value) header.read(#name, code, variables.name);
    ACDB_DIM_REALS(DIM_READ)
    ACDB_DIM_ANGLES(DIM_READ)
    ACDB_DIM_INTEGERS(DIM_READ)
    ACDB_DIM_SWITCHES(DIM_READ)
    ACDB_DIM_COLORS(DIM_READ)
    ACDB_DIM_FILL_COLOR(DIM_READ)
    ACDB_DIM_LINEWEIGHTS(DIM_READ)
    ACDB_DIM_TEXTS(DIM_READ)
    ACDB_DIM_REFERENCES(DIM_READ)
#undef DIM_READ
}

void writeAll(HeaderDims header, const AcDbDimStyleTableRecord& record)
{
#define DIM_WRITE(name, Name, code, value) header.write(#name, code, record.name());
#define DIM_WRITE_COLOR(name, Name, code, value) header.write(#name, code, int(record.name().colorIndex()));
#define DIM_WRITE_WEIGHT(name, Name, code, value) header.write(#name, code, int(record.name()));
    ACDB_DIM_REALS(DIM_WRITE)
    ACDB_DIM_ANGLES(DIM_WRITE)
    ACDB_DIM_INTEGERS(DIM_WRITE)
    ACDB_DIM_SWITCHES(DIM_WRITE)
    ACDB_DIM_COLORS(DIM_WRITE_COLOR)
    ACDB_DIM_FILL_COLOR(DIM_WRITE_COLOR)
    ACDB_DIM_LINEWEIGHTS(DIM_WRITE_WEIGHT)
    ACDB_DIM_TEXTS(DIM_WRITE)
    ACDB_DIM_REFERENCES(DIM_WRITE)
#undef DIM_WRITE
#undef DIM_WRITE_COLOR
#undef DIM_WRITE_WEIGHT
}

Acad::ErrorStatus giveData(const AcDbObject& object, AcDbObjectId style, AcDbDimStyleTableRecord*& record)
{
    record = newRecordOf(dimVariablesOf(style, object));
    return Acad::eOk;
}

/// Overrides what differs from the style.
Acad::ErrorStatus overrideBy(AcDbObject& object, AcDbObjectId style, const AcDbDimStyleTableRecord& wanted)
{
    Acad::ErrorStatus status = clearDimOverrides(object);
    const DimVariables now = dimVariablesOf(style, object);
    const auto put = [&](int code, bool isSame, const DimValue& value) {
        if (status == Acad::eOk && !isSame) status = setDimOverride(object, code, value);
    };
#define DIM_PUT(name, Name, code, value) put(code, now.name == wanted.name(), DimValue(wanted.name()));
#define DIM_PUT_NUMBER(name, Name, code, value) put(code, now.name == int(wanted.name()), DimValue(int(wanted.name())));
#define DIM_PUT_COLOR(name, Name, code, value)                                                               \
    put(code, now.name == wanted.name().colorIndex(), DimValue(int(wanted.name().colorIndex())));
    ACDB_DIM_REALS(DIM_PUT)
    ACDB_DIM_ANGLES(DIM_PUT)
    ACDB_DIM_INTEGERS(DIM_PUT)
    ACDB_DIM_SWITCHES(DIM_PUT)
    ACDB_DIM_COLORS(DIM_PUT_COLOR)
    ACDB_DIM_LINEWEIGHTS(DIM_PUT_NUMBER)
    ACDB_DIM_TEXTS(DIM_PUT)
    ACDB_DIM_REFERENCES(DIM_PUT)
#undef DIM_PUT
#undef DIM_PUT_NUMBER
#undef DIM_PUT_COLOR
    return status;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::getDimstyleData(AcDbDimStyleTableRecord*& record) const
{
    DimVariables variables = dimVariablesOf(dimstyle()); // headers have not all
    readAll(HeaderDims(*this, mState->header), variables);
    record = newRecordOf(variables);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setDimstyleData(const AcDbDimStyleTableRecord* record)
{
    if (!record) return Acad::eNullObjectPointer;
    if (record->database() && record->database() != this) return Acad::eWrongDatabase;
    notices::headerWillChange(*this, L"DIMSTYLE");
    writeAll(HeaderDims(*this, mState->header), *record);
    notices::headerChanged(*this, L"DIMSTYLE");
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::setDimstyleData(AcDbObjectId style)
{
    const Acad::ErrorStatus status = setDimstyle(style);
    if (status != Acad::eOk) return status;
    return setDimstyleData(static_cast<const AcDbDimStyleTableRecord*>(residentObject(style)));
}

Acad::ErrorStatus AcDbDimension::getDimstyleData(AcDbDimStyleTableRecord*& record) const
{
    return giveData(*this, dimensionStyle(), record);
}

Acad::ErrorStatus AcDbDimension::setDimstyleData(const AcDbDimStyleTableRecord* record)
{
    if (!record) return Acad::eNullObjectPointer;
    const Acad::ErrorStatus status = beginReshape();
    return status == Acad::eOk ? overrideBy(*this, dimensionStyle(), *record) : status;
}

Acad::ErrorStatus AcDbLeader::getDimstyleData(AcDbDimStyleTableRecord*& record) const
{
    return giveData(*this, dimensionStyle(), record);
}

Acad::ErrorStatus AcDbLeader::setDimstyleData(const AcDbDimStyleTableRecord* record)
{
    if (!record) return Acad::eNullObjectPointer;
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? overrideBy(*this, dimensionStyle(), *record) : status;
}
