#pragma once

/// A drawing in memory, and its plot on a page of which each pixel is a drawing unit.

#include "PictureFixture.h"

#include "SpacePlot.h"
#include "dbcircle.h"
#include "dbents.h"
#include "dblayer.h"
#include "dblinetp.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbtxtsty.h"

#include <memory>

class DrawingFixture : public PictureFixture
{
protected:
    AcDbObjectId addLayer(const wchar_t* name, int color)
    {
        auto layer = std::make_unique<AcDbLayerTableRecord>();
        AcCmColor own;
        own.setColorIndex(color);
        layer->setColor(own);
        return addRecord<AcDbLayerTable>(name, std::move(layer));
    }

    /// Dashes and gaps of these lengths.
    AcDbObjectId addLinetype(const wchar_t* name, double dash, double gap)
    {
        auto linetype = std::make_unique<AcDbLinetypeTableRecord>();
        linetype->setNumDashes(2);
        linetype->setDashLengthAt(0, dash);
        linetype->setDashLengthAt(1, -gap);
        linetype->setPatternLength(dash + gap);
        return addRecord<AcDbLinetypeTable>(name, std::move(linetype));
    }

    /// A text style of a shape font whose letters stand below each other.
    AcDbObjectId addColumnStyle(const wchar_t* name)
    {
        auto style = std::make_unique<AcDbTextStyleTableRecord>();
        style->setFileName(L"txt.shx");
        style->setIsVertical(true);
        return addRecord<AcDbTextStyleTable>(name, std::move(style));
    }

    AcDbObjectId addBlock(const wchar_t* name)
    {
        return addRecord<AcDbBlockTable>(name, std::make_unique<AcDbBlockTableRecord>());
    }

    /// Puts an entity into a block, null: model space.
    template <class E>
    AcDbObjectId add(std::unique_ptr<E> entity, AcDbObjectId block = AcDbObjectId::kNull)
    {
        const AcDbObjectId space = block.isNull() ? database.modelSpaceId() : block;
        AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, entity.get()), Acad::eOk);
        entity.release()->close();
        return id;
    }

    static std::unique_ptr<AcDbLine> line(double x0, double y0, double x1, double y1)
    {
        return std::make_unique<AcDbLine>(AcGePoint3d(x0, y0, 0), AcGePoint3d(x1, y1, 0));
    }

    /// A filled square.
    static std::unique_ptr<AcDbSolid> square(double x, double y, double size)
    {
        auto solid = std::make_unique<AcDbSolid>();
        const double corners[4][2] = {{x, y}, {x + size, y}, {x, y + size}, {x + size, y + size}};
        for (std::uint16_t i = 0; i < 4; ++i) solid->setPointAt(i, {corners[i][0], corners[i][1], 0});
        return solid;
    }

    const AcDbBlockTableRecord& modelSpace()
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId());
        return *space.object();
    }

    void plotModel(const plot::LayerSet& frozen = {})
    {
        plotHundred([&](plot::Canvas& canvas) {
            plot::PlotStyles styles(database);
            view.max.set(100, 100);
            plot::drawBlock(canvas, styles, modelSpace(), view, frozen);
        });
    }

    AcDbDatabase database;
    plot::View view;

private:
    template <class Table, class Record>
    AcDbObjectId addRecord(const wchar_t* name, std::unique_ptr<Record> record)
    {
        Table* table = nullptr;
        EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(record->setName(name), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record.get()), Acad::eOk);
        record.release()->close();
        table->close();
        return id;
    }
};
