// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/PickTexts.h"

namespace sm::scene {
namespace {

constexpr KeyMeaning kKeys[] = {{"+  -", "zoom in, zoom out (or turn the wheel)"},
                                {"Home", "show everything"},
                                {"W", "zoom to a frame that is drawn next"},
                                {"Arrows", "move the view (or drag with the middle button)"},
                                {"F3", "object snaps on or off; Shift suspends them"},
                                {"B", "dark or light background"},
                                {"Ctrl+PageUp, Ctrl+PageDown", "the layout before, the next one"},
                                {"x,y  @x,y", "a point, typed; @ counts from the first corner"},
                                {"Escape", "cancel (or press the right button)"},
                                {"F1", "show or hide these keys"}};

/// Stamps have red in the low byte, items in the high one.
std::int32_t MarkColorOn(Backdrop backdrop, std::int32_t color)
{
    const auto turned = [](std::uint32_t one) { return (one & 0xFF) << 16 | (one & 0xFF00) | (one >> 16 & 0xFF); };
    return static_cast<std::int32_t>(turned(InkOn(backdrop, turned(static_cast<std::uint32_t>(color)))));
}

} // namespace

std::span<const KeyMeaning> WindowKeys()
{
    return kKeys;
}

std::string HintText(bool isReading, const std::optional<Snap>& snap, bool snapsAreOn)
{
    if (isReading)
        return "Reading the drawing …";
    if (snap)
        return SnapName(snap->kind);
    return snapsAreOn ? "Object snaps on (F3)" : "Object snaps off (F3)";
}

bool BeginsNumber(std::string_view typed)
{
    return !typed.empty() && ((typed[0] >= '0' && typed[0] <= '9') || typed[0] == '.');
}

std::vector<beside::PageMark> MarksInScene(std::vector<beside::PageMark> marks, const LayoutPicture& picture,
                                           const ViewMap& map, Backdrop backdrop)
{
    for (beside::PageMark& mark : marks) {
        mark.from = picture.map.ToScene(mark.from);
        mark.to = picture.map.ToScene(mark.to);
        mark.color = MarkColorOn(backdrop, mark.color);
        if (!picture.paper)
            mark.size = kModelStamp / map.scale;
    }
    return marks;
}

} // namespace sm::scene
