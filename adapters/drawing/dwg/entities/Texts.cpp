// SPDX-License-Identifier: GPL-3.0-or-later
#include "dwg/entities/EntityDecoders.h"

namespace sm::drawing::dwg {

namespace {

struct TextFields {
    double elevation = 0, thickness = 0, oblique = 0, rotation = 0, height = 0, width = 1;
    Vec2 insertion, alignment;
    Vec3 extrusion{0, 0, 1};
    std::string text;
    std::int32_t generation = 0, horizontal = 0, vertical = 0;
};

void ReadOldFields(Object& object, TextFields& text)
{
    BitReader& data = object.data;
    text.elevation = data.BD();
    text.insertion = object.RD2();
    text.alignment = object.RD2();
    text.extrusion = object.BD3();
    text.thickness = data.BD();
    text.oblique = data.BD();
    text.rotation = data.BD();
    text.height = data.BD();
    text.width = data.BD();
    text.text = object.T();
    text.generation = data.BS();
    text.horizontal = data.BS();
    text.vertical = data.BS();
}

/// A set bit tells that the field is absent.
void ReadFields(Object& object, TextFields& text)
{
    BitReader& data = object.data;
    const unsigned absent = data.RC();
    const auto has = [absent](unsigned bit) { return (absent & bit) == 0; };
    text.elevation = has(1) ? data.RD() : 0;
    text.insertion = object.RD2();
    text.alignment = has(2) ? object.DD2(text.insertion) : Vec2{};
    text.extrusion = object.BE();
    text.thickness = object.BT();
    text.oblique = has(4) ? data.RD() : 0;
    text.rotation = has(8) ? data.RD() : 0;
    text.height = data.RD();
    text.width = has(0x10) ? data.RD() : 1;
    text.text = object.T();
    text.generation = has(0x20) ? data.BS() : 0;
    text.horizontal = has(0x40) ? data.BS() : 0;
    text.vertical = has(0x80) ? data.BS() : 0;
}

/// `vertical`: the group of the vertical alignment, which attributes have elsewhere.
void WriteText(Object& object, int vertical)
{
    TextFields text;
    if (object.Before(Release::R2000))
        ReadOldFields(object, text);
    else
        ReadFields(object, text);
    TagSink& sink = object.sink;
    object.WriteThickness(text.thickness);
    sink.Point(10, Vec3{text.insertion.x, text.insertion.y, text.elevation});
    sink.Real(40, text.height);
    sink.Text(1, text.text);
    if (text.rotation != 0)
        object.WriteAngle(50, text.rotation);
    if (text.width != 1)
        sink.Real(41, text.width);
    if (text.oblique != 0)
        object.WriteAngle(51, text.oblique);
    if (text.generation != 0)
        sink.Integer(71, text.generation);
    if (text.horizontal != 0)
        sink.Integer(72, text.horizontal);
    if (text.horizontal != 0 || text.vertical != 0)
        sink.Point(11, Vec3{text.alignment.x, text.alignment.y, text.elevation});
    object.WriteExtrusion(text.extrusion);
    if (text.vertical != 0)
        sink.Integer(vertical, text.vertical);
    object.WriteName(7, object.H());
}

constexpr int kTextVertical = 73, kAttributeVertical = 74;
constexpr unsigned kSingleLine = 1;

/// From R2018 on an attribute may hold an MTEXT. True: it does, and its tags are to follow.
bool ReadAttributeKind(Object& object)
{
    BitReader& data = object.data;
    if (object.Since(Release::R2010))
        (void)data.RC();
    return object.Since(Release::R2018) && data.RC() != kSingleLine;
}

void WriteAttribute(Object& object, bool definition)
{
    BitReader& data = object.data;
    TagSink& sink = object.sink;
    WriteText(object, kAttributeVertical);
    std::string embedded;
    if (ReadAttributeKind(object)) {
        const std::size_t own = sink.Size();
        sink.Text(101, "Embedded Object");
        DecodeEmbeddedMText(object);
        embedded = sink.Take(own);
    }
    object.WriteT(2);
    (void)data.BS();
    sink.Integer(70, data.RC());
    if (object.Since(Release::R2007))
        sink.Integer(280, data.B() ? 1 : 0);
    if (definition) {
        if (object.Since(Release::R2010))
            (void)data.RC();
        object.WriteT(3);
    }
    sink.Put(embedded);
}

} // namespace

void DecodeText(Object& object)
{
    WriteText(object, kTextVertical);
}

void DecodeAttribute(Object& object)
{
    WriteAttribute(object, false);
}

void DecodeAttributeDefinition(Object& object)
{
    WriteAttribute(object, true);
}

} // namespace sm::drawing::dwg
