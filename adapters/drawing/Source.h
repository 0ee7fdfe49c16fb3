// What the readers of single entities need of a drawing. For this room only.
#pragma once

#include "drawing/Drawing.h"
#include "drawing/FileBytes.h"
#include "drawing/NameTable.h"
#include "drawing/Structure.h"

#include <unordered_map>

namespace sm::drawing {

class Drawing::Source {
public:
    Source(FileBytes fileBytes, TagFormat tagFormat) : bytes(std::move(fileBytes)), format(tagFormat) {}

    FileBytes bytes;
    TagFormat format;
    std::unique_ptr<TextDecoder> text;
    NameTable layers, linetypes, styles, blocks;
    std::unordered_map<Handle, std::uint32_t> layerOfHandle;
    std::unordered_map<Handle, std::uint32_t> styleOfHandle;
    /// The FIELD objects, and the dictionaries that lead to them: empty in a drawing without fields.
    std::unordered_map<Handle, Slice> fields, dictionaries;

    [[nodiscard]] std::string_view File() const { return bytes.View(); }
    /// 0, "ByLayer" or "Standard" for names that aren't there.
    [[nodiscard]] std::uint32_t LayerOf(std::string_view raw) const { return layers.Find(raw, *text).value_or(0); }
    [[nodiscard]] std::uint32_t LinetypeOf(std::string_view raw) const
    {
        return linetypes.Find(raw, *text).value_or(0);
    }
    [[nodiscard]] std::uint32_t StyleOf(std::string_view raw) const { return styles.Find(raw, *text).value_or(0); }
    [[nodiscard]] std::uint32_t BlockOf(std::string_view raw) const
    {
        return blocks.Find(raw, *text).value_or(kNoBlock);
    }
};

} // namespace sm::drawing
