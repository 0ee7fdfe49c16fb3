// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/SpokenNames.h"

#include <cstdlib>

namespace sm::qt {
namespace {

constexpr std::int32_t kNear = 8; ///< dialog units between a field and the label above it

bool IsLabelLike(const FormControl& control)
{
    return control.kind == ControlKind::Label || control.kind == ControlKind::OptionButton ||
           control.kind == ControlKind::CheckBox;
}

bool IsInRow(const ControlPlace& left, const ControlPlace& right)
{
    return left.top < right.top + right.height && right.top < left.top + left.height;
}

std::int32_t Right(const ControlPlace& place)
{
    return place.left + place.width;
}

/// The nearest visible neighbour in the row, on the left or the right; null when there is none.
const FormControl* Neighbour(const std::vector<FormControl>& controls, const FormControl& of, bool onTheLeft)
{
    const FormControl* nearest = nullptr;
    for (const FormControl& other : controls) {
        if (&other == &of || other.parent != of.parent || !other.visible || !IsInRow(other.place, of.place))
            continue;
        const bool isThere = onTheLeft ? Right(other.place) <= of.place.left : other.place.left >= Right(of.place);
        const bool isNearer = nearest == nullptr || (onTheLeft ? Right(other.place) > Right(nearest->place)
                                                               : other.place.left < nearest->place.left);
        if (isThere && isNearer)
            nearest = &other;
    }
    return nearest;
}

/// The label before it, unless that belongs to something further left; and the label behind it, unless something
/// else follows that label.
std::string NameInRow(const std::vector<FormControl>& controls, const FormControl& control)
{
    std::string name;
    const FormControl* const before = Neighbour(controls, control, true);
    if (before != nullptr && IsLabelLike(*before))
        name = Spoken(before->caption);
    const FormControl* const behind = Neighbour(controls, control, false);
    if (behind == nullptr || behind->kind != ControlKind::Label || Neighbour(controls, *behind, false) != nullptr)
        return name;
    return name.empty() ? Spoken(behind->caption) : name + ", " + Spoken(behind->caption);
}

const FormControl* LabelAbove(const std::vector<FormControl>& controls, const FormControl& control)
{
    for (const FormControl& other : controls) {
        const std::int32_t gap = control.place.top - other.place.top - other.place.height;
        if (other.kind == ControlKind::Label && other.parent == control.parent && gap >= 0 && gap < kNear &&
            std::abs(other.place.left - control.place.left) < kNear)
            return &other;
    }
    return nullptr;
}

} // namespace

std::string Spoken(const std::string& caption)
{
    std::string spoken;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size())
            break;
        spoken += caption[i];
    }
    while (!spoken.empty() && (spoken.back() == ':' || spoken.back() == ' '))
        spoken.pop_back();
    return spoken;
}

std::string SpokenName(const std::vector<FormControl>& controls, std::size_t control)
{
    const std::string inRow = NameInRow(controls, controls[control]);
    if (!inRow.empty())
        return inRow;
    if (const FormControl* const above = LabelAbove(controls, controls[control]))
        return Spoken(above->caption);
    std::size_t holder = controls[control].parent;
    while (holder != 0 && controls[holder].caption.empty())
        holder = controls[holder].parent;
    return Spoken(controls[holder].caption);
}

std::size_t BuddyOf(const std::vector<FormControl>& controls, std::size_t label)
{
    for (std::size_t i = label + 1; i < controls.size(); ++i) {
        if (controls[i].parent == controls[label].parent && controls[i].tabIndex >= 0)
            return i;
    }
    return 0;
}

} // namespace sm::qt
