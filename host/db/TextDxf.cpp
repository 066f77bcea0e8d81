/// The groups of texts and attributes.

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "dbattdef.h"
#include "dbattrib.h"
#include "dbtext.h"

ACDB_DXF_CLASS(AcDbText, AcDbEntity, TEXT)
ACDB_DXF_CLASS(AcDbAttributeDefinition, AcDbText, ATTDEF)
ACDB_DXF_CLASS(AcDbAttribute, AcDbText, ATTRIB)

struct TextFields {
    static void readAlignment(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        dxf::point<&AcDbText::mAlignment>(11).read(object, field, source);
        static_cast<AcDbText&>(object).mHasAlignment = true;
    }

    static void writeAlignment(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const auto& text = static_cast<const AcDbText&>(object);
        if (text.mHasAlignment || !text.isDefaultAlignment())
            dxf::point<&AcDbText::mAlignment>(11).write(object, field, sink);
    }

    static void readVertical(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        static_cast<AcDbText&>(object).mVertical = static_cast<std::int8_t>(source.peek()->integer);
        source.take();
    }

    /// The vertical alignment stands in a section of its own, under the same name; that of attributes in theirs.
    static void writeVertical(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const auto& text = static_cast<const AcDbText&>(object);
        if (text.isA() != AcDbText::desc()) return;
        if (sink.version() > static_cast<int>(DxfVersion::r12)) sink.text(100, "AcDbText");
        sink.integer(73, text.mVertical);
    }

    static constexpr auto vertical = &AcDbText::mVertical;
};

const DxfClass AcDbText::dxf("AcDbText", &AcDbEntity::dxf,
                             {
                                 dxf::real<&AcDbText::mThickness>(39).unless(0.0),
                                 dxf::point<&AcDbText::mPosition>(10),
                                 dxf::real<&AcDbText::mHeight>(40),
                                 dxf::text<&AcDbText::mText>(1),
                                 dxf::angle<&AcDbText::mRotation>(50),
                                 dxf::real<&AcDbText::mWidthFactor>(41),
                                 dxf::angle<&AcDbText::mOblique>(51),
                                 dxf::record<&AcDbText::mStyle>(7),
                                 dxf::integer<&AcDbText::mGeneration>(71),
                                 dxf::integer<&AcDbText::mHorizontal>(72),
                                 dxf::custom(11, TextFields::readAlignment, TextFields::writeAlignment),
                                 dxf::direction<&AcDbText::mNormal>(210).unlessZAxis(),
                                 dxf::custom(73, TextFields::readVertical, TextFields::writeVertical),
                             });

/// Attributes and their definitions have group 280 twice: a version before the tag, the lock of the position behind it.
template <class T>
struct AttributeFields {
    static void read280(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        auto& attribute = static_cast<T&>(object);
        auto& value = attribute.mTag.IsEmpty() ? attribute.mVersion : attribute.mLockPosition;
        value = static_cast<std::int8_t>(source.peek()->integer);
        source.take();
    }
    static void writeVersion(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const auto& attribute = static_cast<const T&>(object);
        if (attribute.mVersion >= 0) sink.integer(280, attribute.mVersion);
    }
    static void writeLock(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const auto& attribute = static_cast<const T&>(object);
        if (attribute.mLockPosition >= 0) sink.integer(280, attribute.mLockPosition);
    }
};

const DxfClass AcDbAttributeDefinition::dxf(
    "AcDbAttributeDefinition", &AcDbText::dxf,
    {
        dxf::custom(280, AttributeFields<AcDbAttributeDefinition>::read280,
                    AttributeFields<AcDbAttributeDefinition>::writeVersion)
            .from(DxfVersion::r2010),
        dxf::text<&AcDbAttributeDefinition::mPrompt>(3),
        dxf::text<&AcDbAttributeDefinition::mTag>(2),
        dxf::integer<&AcDbAttributeDefinition::mFlags>(70),
        dxf::integer<&AcDbAttributeDefinition::mFieldLength>(73),
        dxf::integer<TextFields::vertical>(74),
        dxf::custom(0, nullptr, AttributeFields<AcDbAttributeDefinition>::writeLock).from(DxfVersion::r2007),
    });

const DxfClass AcDbAttribute::dxf("AcDbAttribute", &AcDbText::dxf,
                                  {
                                      dxf::custom(280, AttributeFields<AcDbAttribute>::read280,
                                                  AttributeFields<AcDbAttribute>::writeVersion)
                                          .from(DxfVersion::r2010),
                                      dxf::text<&AcDbAttribute::mTag>(2),
                                      dxf::integer<&AcDbAttribute::mFlags>(70),
                                      dxf::integer<&AcDbAttribute::mFieldLength>(73),
                                      dxf::integer<TextFields::vertical>(74),
                                      dxf::custom(0, nullptr, AttributeFields<AcDbAttribute>::writeLock)
                                          .from(DxfVersion::r2007),
                                  });
