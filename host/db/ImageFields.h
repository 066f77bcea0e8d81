#pragma once

/// The groups that images and wipeouts have in common.

#include "DxfFields.h"
#include "imgent.h"

struct ImageFields {
    using Image = AcDbRasterImage;
    static constexpr auto version = &Image::mVersion;
    static constexpr auto origin = &Image::mOrigin;
    static constexpr auto pixelU = &Image::mPixelU;
    static constexpr auto pixelV = &Image::mPixelV;
    static constexpr auto size = &Image::mSize;
    static constexpr auto definition = &Image::mDefinition;
    static constexpr auto display = &Image::mDisplay;
    static constexpr auto isClipOn = &Image::mIsClipOn;
    static constexpr auto brightness = &Image::mBrightness;
    static constexpr auto contrast = &Image::mContrast;
    static constexpr auto fade = &Image::mFade;
    static constexpr auto clipInverted = &Image::mClipInverted;
    static constexpr auto reactor = &Image::mReactor;
    static constexpr auto clipType = &Image::mClipType;

    /// The number of points says that they follow; those of a new image go.
    static void readClip(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        auto& points = static_cast<Image&>(object).mClip;
        points.clear();
        source.take();
    }
    static void writeClip(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const auto& points = static_cast<const Image&>(object).mClip;
        sink.integer(field.code, static_cast<std::int64_t>(points.size()));
        for (const AcGePoint2d& point : points)
            sink.point(14, point.x, point.y);
    }
    static void readPoint(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcGePoint2d point;
        dxf::takeCoordinate(source, 14, point.x);
        dxf::takeCoordinate(source, 24, point.y);
        static_cast<Image&>(object).mClip.push_back(point);
    }
};

#define ACDB_IMAGE_FIELDS                                                                                    \
    {                                                                                                        \
        dxf::integer<ImageFields::version>(90),                                                              \
        dxf::point<ImageFields::origin>(10),                                                                 \
        dxf::point<ImageFields::pixelU>(11),                                                                 \
        dxf::point<ImageFields::pixelV>(12),                                                                 \
        dxf::point2d<ImageFields::size>(13),                                                                 \
        dxf::reference<ImageFields::definition>(340),                                                        \
        dxf::integer<ImageFields::display>(70),                                                              \
        dxf::integer<ImageFields::isClipOn>(280),                                                            \
        dxf::integer<ImageFields::brightness>(281),                                                          \
        dxf::integer<ImageFields::contrast>(282),                                                            \
        dxf::integer<ImageFields::fade>(283),                                                                \
        dxf::integer<ImageFields::clipInverted>(290).from(DxfVersion::r2010),                                \
        dxf::reference<ImageFields::reactor>(360),                                                           \
        dxf::integer<ImageFields::clipType>(71),                                                             \
        dxf::custom(91, ImageFields::readClip, ImageFields::writeClip),                                      \
        dxf::custom(14, ImageFields::readPoint, nullptr),                                                    \
    }
