// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Model.h"

#include "base/text/Names.h"

#include <array>
#include <cstdlib>

namespace sm::drawing {

namespace {

constexpr std::array<const char*, 3> kFixed{"ByLayer", "ByBlock", "Continuous"};

using Kind = LinetypeElement::Kind;

void TakeElementType(LinetypeElement& element, std::int32_t flags)
{
    element.absoluteRotation = (flags & 1) != 0;
    if ((flags & 4) != 0)
        element.kind = Kind::Shape;
    else if ((flags & 2) != 0)
        element.kind = Kind::Text;
}

/// The tags of one element (DXF reference, LTYPE): 74 to 75, 340, 46, 50, 44, 45, 9.
void TakeElementTag(const Model& model, const TagCursor& tag, LinetypeElement& element)
{
    switch (tag.Code()) {
    case 74:
        TakeElementType(element, tag.Integer());
        break;
    case 75:
        element.shape = static_cast<std::uint16_t>(tag.Integer() & 0xFFFF);
        break;
    case 46:
        element.scale = tag.Real();
        break;
    case 50:
        element.rotation = tag.Real();
        break;
    case 44:
        element.offset.x = tag.Real();
        break;
    case 45:
        element.offset.y = tag.Real();
        break;
    case 9:
        element.text = model.Text(tag.Text());
        break;
    case 340: {
        const auto style = model.source.styleOfHandle.find(tag.HandleValue());
        element.style = style == model.source.styleOfHandle.end() ? 0 : style->second;
        break;
    }
    default:
        break;
    }
}

struct ReadLinetype {
    Linetype type;
    std::string_view rawName;
};

ReadLinetype ReadLinetypeEntry(const Model& model, const Slice& slice)
{
    ReadLinetype read;
    Linetype& type = read.type;
    ForEachTag(model, slice, [&](const TagCursor& tag) {
        switch (tag.Code()) {
        case 2:
            read.rawName = tag.Name();
            break;
        case 3:
            type.description = model.Text(tag.Name());
            break;
        case 5:
            type.handle = tag.HandleValue();
            break;
        case 40:
            type.patternLength = tag.Real();
            break;
        case 49:
            type.elements.emplace_back();
            type.elements.back().length = tag.Real();
            break;
        default:
            if (!type.elements.empty())
                TakeElementTag(model, tag, type.elements.back());
        }
    });
    type.name = model.Text(read.rawName);
    return read;
}

} // namespace

void BuildLinetypes(Model& model)
{
    for (const char* name : kFixed) {
        model.linetypes.emplace_back();
        model.linetypes.back().name = name;
    }
    ForEachEntry(model, "LTYPE", [&](const Slice& slice) {
        ReadLinetype read = ReadLinetypeEntry(model, slice);
        if (read.type.name.empty()) {
            model.findings.Add(Damage::NamelessEntry, slice.line);
            return;
        }
        const std::string folded = base::FoldCase(read.type.name);
        auto index = static_cast<std::uint32_t>(model.linetypes.size());
        for (std::uint32_t i = 0; i < kFixed.size(); ++i)
            if (folded == base::FoldCase(kFixed[i]))
                index = i;
        model.source.linetypes.Add(read.rawName, read.type.name, index);
        if (index < kFixed.size())
            model.linetypes[index] = std::move(read.type);
        else
            model.linetypes.push_back(std::move(read.type));
    });
    for (std::uint32_t i = 0; i < kFixed.size(); ++i)
        model.source.linetypes.Add(kFixed[i], kFixed[i], i);
}

} // namespace sm::drawing
