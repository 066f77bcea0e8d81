#pragma once

/// How readers, spaces and block references reach into entities.

#include "dbentity.h"

struct EntityAccess {
    static constexpr std::uint8_t invisible = 1;
    static constexpr std::uint8_t namesLayout = 2; ///< the file gave the layout's name with the entity

    /// What an entity that is added without properties gets: the layer "0", line type by layer.
    static void resolveProperties(AcDbEntity& entity);
    static void takeProperties(AcDbEntity& to, const AcDbEntity& from);
    /// Gives the list of vertices or attributes of an entity of a drawing the mark of its end, if it has none.
    static void endSubentities(AcDbEntity& owner);
    static std::uint8_t& flags(AcDbEntity& entity) { return entity.mFlags; }
    static std::uint8_t flags(const AcDbEntity& entity) { return entity.mFlags; }
    static std::int16_t& fileColorIndex(AcDbEntity& entity) { return entity.mFileColorIndex; }
    static std::int16_t fileColorIndex(const AcDbEntity& entity) { return entity.mFileColorIndex; }
    static AcCmEntityColor& color(AcDbEntity& entity) { return entity.mColor; }
    static AcCmTransparency& transparency(AcDbEntity& entity) { return entity.mTransparency; }
};
