// SPDX-License-Identifier: GPL-3.0-or-later
// What makes a dialog look well made, measured on the tables: nothing overlaps, nothing is cut off, every button has
// its key.
#include "ui/FormListing.h"
#include "ui/UiStand.h"

#include <algorithm>

namespace sm {
namespace {

constexpr std::int32_t kCharacter = 4; ///< dialog units that a character of a caption takes on the average

class FormLayout : public UiStand {
protected:
    NineForms forms{session};
};

bool IsPlaced(const FormControl& control)
{
    return control.place.width > 0 && control.kind != ControlKind::FormWindow && control.kind != ControlKind::TabPage;
}

/// A list and the box that takes its place when there is nothing to list.
bool TakesThePlaceOf(const FormControl& left, const FormControl& right)
{
    return left.name.substr(0, 3) != right.name.substr(0, 3) && left.name.substr(3) == right.name.substr(3) &&
           left.place == right.place && left.visible != right.visible;
}

bool Overlap(const ControlPlace& left, const ControlPlace& right)
{
    return left.left < right.left + right.width && right.left < left.left + left.width &&
           left.top < right.top + right.height && right.top < left.top + left.height;
}

TEST_F(FormLayout, NothingOverlaps)
{
    for (const Form* form : forms.All()) {
        const auto& controls = form->Controls();
        for (std::size_t i = 0; i < controls.size(); ++i) {
            for (std::size_t j = i + 1; j < controls.size(); ++j) {
                if (controls[i].parent != controls[j].parent || !IsPlaced(controls[i]) || !IsPlaced(controls[j]) ||
                    TakesThePlaceOf(controls[i], controls[j]))
                    continue;
                EXPECT_FALSE(Overlap(controls[i].place, controls[j].place))
                    << form->Name() << ": " << controls[i].name << " and " << controls[j].name;
            }
        }
    }
}

TEST_F(FormLayout, EverythingLiesInsideItsParent)
{
    for (const Form* form : forms.All()) {
        for (const FormControl& control : form->Controls()) {
            if (!IsPlaced(control))
                continue;
            SCOPED_TRACE(form->Name() + "." + control.name);
            const FormControl& parent = form->Controls()[control.parent];
            const bool framed = parent.kind == ControlKind::Frame;
            EXPECT_GE(control.place.left, framed ? 4 : 0);
            EXPECT_GE(control.place.top, framed ? 9 : 0) << "below the frame's caption";
            EXPECT_LE(control.place.left + control.place.width, parent.place.width - (framed ? 4 : 0));
            EXPECT_LE(control.place.top + control.place.height, parent.place.height - (framed ? 4 : 0));
        }
    }
}

TEST_F(FormLayout, TabPagesFitIntoTheirStrip)
{
    const FormControl& strip = forms.gui.Control("tabPDFMaker");
    std::int32_t captions = 0;
    for (const FormControl& control : forms.gui.Controls()) {
        if (control.kind != ControlKind::TabPage)
            continue;
        captions += static_cast<std::int32_t>(control.caption.size()) * kCharacter + 10;
        EXPECT_LE(control.place.width, strip.place.width - 8);
        EXPECT_LE(control.place.height, strip.place.height - 18);
    }
    EXPECT_LE(captions, strip.place.width);
}

std::int32_t RoomForCaption(const FormControl& control)
{
    switch (control.kind) {
    case ControlKind::Label:
        return control.place.width * (control.place.height / 8);
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
        return control.place.width - 12;
    case ControlKind::CommandButton:
    case ControlKind::Frame:
        return control.place.width - 8;
    case ControlKind::ToolButton:
        return control.place.width - 6;
    default:
        return 1000;
    }
}

TEST_F(FormLayout, CaptionsFit)
{
    for (const Form* form : forms.All()) {
        for (const FormControl& control : form->Controls())
            EXPECT_LE(static_cast<std::int32_t>(control.caption.size()) * kCharacter, RoomForCaption(control))
                << form->Name() << ": " << control.caption;
    }
}

TEST_F(FormLayout, TheKeyboardReachesEverything)
{
    for (const Form* form : forms.All()) {
        std::vector<std::int32_t> stops;
        for (const FormControl& control : form->Controls()) {
            if (control.tabIndex >= 0)
                stops.push_back(control.tabIndex);
        }
        for (std::size_t i = 0; i < stops.size(); ++i)
            EXPECT_EQ(stops[i], static_cast<std::int32_t>(i)) << form->Name();
    }
}

TEST_F(FormLayout, EveryDialogHasOneDefaultAndOneCancelButton)
{
    for (const Form* form : forms.All()) {
        const auto count = [&](bool FormControl::*flag) {
            return std::count_if(form->Controls().begin(), form->Controls().end(),
                                 [&](const FormControl& control) { return control.*flag; });
        };
        const long expected = form->Name() == "frmProgress" ? 0 : 1;
        EXPECT_EQ(count(&FormControl::isDefault), expected) << form->Name();
        EXPECT_EQ(count(&FormControl::isCancel), expected) << form->Name();
    }
}

TEST_F(FormLayout, NoMnemonicStandsForTwoButtons)
{
    for (const Form* form : forms.All()) {
        std::string keys;
        for (const FormControl& control : form->Controls()) {
            const std::size_t at = control.caption.find('&');
            if (at != std::string::npos)
                keys += static_cast<char>(std::tolower(static_cast<unsigned char>(control.caption.at(at + 1))));
        }
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end()) << form->Name() << " " << keys;
    }
}

TEST_F(FormLayout, OnlyTheFormsOwnNamesAreUsedTwice)
{
    for (const Form* form : forms.All()) {
        std::vector<std::string> names;
        for (const FormControl& control : form->Controls())
            names.push_back(control.name);
        std::sort(names.begin(), names.end());
        EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end()) << form->Name();
    }
}

TEST_F(FormLayout, FixedListsStartAsLaidDown)
{
    for (const Form* form : {static_cast<const Form*>(&forms.gui), static_cast<const Form*>(&forms.pageSetup)}) {
        EXPECT_EQ(form->Control("cmbPaperUnits").items, (Texts{"Inches", "Millimeters"}));
        EXPECT_EQ(form->Text("cmbPaperUnits"), "Inches");
        EXPECT_EQ(form->Control("cmbScale").items.size(), 33U);
        EXPECT_EQ(form->Text("cmbScale"), "Custom");
    }
}

} // namespace
} // namespace sm
