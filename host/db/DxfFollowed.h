#pragma once

#include "DxfFields.h"

namespace dxf
{
/// Group 66 of entities that others always follow.
inline DxfField followed()
{
    const auto read = [](AcDbObject&, const DxfField&, DxfSource& source) { source.take(); };
    const auto write = [](const AcDbObject&, const DxfField& field, DxfSink& sink) {
        sink.integer(field.code, 1);
    };
    return custom(66, read, write);
}
} // namespace dxf
