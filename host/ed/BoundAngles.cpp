/// Variables of angles: files have degrees, variables radians.

#include "dbmain.h"
#include "VariableTable.h"

namespace
{
AcDbDatabase* drawing()
{
    return acdbHostApplicationServices()->workingDatabase();
}

ed::BoundVariable angleBase()
{
    return {[] {
                const AcDbDatabase* db = drawing();
                return ed::VariableValue::ofReal(db ? db->angbase() : 0.0);
            },
            [](const ed::VariableValue& value) {
                AcDbDatabase* db = drawing();
                return db && db->setAngbase(value.real) == Acad::eOk;
            }};
}

[[maybe_unused]] const bool bound = (ed::bindVariable(L"ANGBASE", RTREAL, angleBase()), true);
} // namespace
