// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Names.h"

namespace sm::drawing {

namespace {

/// Bits of the extended data "ACAD", group 1071: bold and italic of a TrueType font.
constexpr std::int32_t kBold = 0x2000000, kItalic = 0x1000000;

struct StyleEntry {
    TextStyle style;
    std::string_view rawName;
};

void TakeFlags(TextStyle& style, std::int32_t flags)
{
    style.isShapeFile = (flags & 1) != 0;
    style.vertical = (flags & 4) != 0;
}

StyleEntry ReadStyleEntry(const Model& model, const Slice& slice)
{
    StyleEntry read;
    TextStyle& style = read.style;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        switch (tag.Code()) {
        case 2:
            read.rawName = tag.Name();
            break;
        case 3:
            style.fontFile = model.Text(tag.Name());
            break;
        case 4:
            style.bigFontFile = model.Text(tag.Name());
            break;
        case 5:
            style.handle = tag.HandleValue();
            break;
        case 40:
            style.fixedHeight = tag.Real();
            break;
        case 41:
            style.widthFactor = tag.Real();
            break;
        case 50:
            style.obliqueAngle = tag.Real();
            break;
        case 70:
            TakeFlags(style, tag.Integer());
            break;
        case 71:
            style.backward = (tag.Integer() & 2) != 0;
            style.upsideDown = (tag.Integer() & 4) != 0;
            break;
        default:
            break;
        }
    });
    ForEachExtended(model, slice, "ACAD", [&](const TagCursor& tag) {
        if (tag.Code() == 1000)
            style.family = model.Text(tag.Name());
        if (tag.Code() == 1071) {
            style.bold = (tag.Integer() & kBold) != 0;
            style.italic = (tag.Integer() & kItalic) != 0;
        }
    });
    style.name = model.Text(read.rawName);
    return read;
}

void Register(Model& model, const StyleEntry& read, std::uint32_t index)
{
    model.source.styles.Add(read.rawName, read.style.name, index);
    if (read.style.handle != 0)
        model.source.styleOfHandle.emplace(read.style.handle, index);
}

} // namespace

void BuildStyles(Model& model)
{
    model.styles.push_back({});
    model.styles[0].name = "Standard";
    model.styles[0].fontFile = "txt";
    bool hasStandard = false;
    ForEachEntry(model, "STYLE", [&](const Slice& slice) {
        StyleEntry read = ReadStyleEntry(model, slice);
        // Shape files have no name: linetypes find them by handle.
        if (read.style.name.empty() && !read.style.isShapeFile) {
            model.findings.Add(Damage::NamelessEntry, slice.line);
            return;
        }
        if (!hasStandard && base::SameName(read.style.name, "Standard")) {
            hasStandard = true;
            Register(model, read, 0);
            model.styles[0] = std::move(read.style);
            return;
        }
        Register(model, read, static_cast<std::uint32_t>(model.styles.size()));
        model.styles.push_back(std::move(read.style));
    });
    if (!hasStandard)
        model.source.styles.Add("Standard", "Standard", 0);
}

} // namespace sm::drawing
