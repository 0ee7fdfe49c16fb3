// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form/NumberFields.h"

#include "ui/UiStand.h"

#include <limits>

namespace sm {
namespace {

struct FixedRow {
    const char* name;
    double value;
    int decimals;
    const char* text;
};

TEST(FixedText, GivesThePlacesAskedFor)
{
    const FixedRow rows[] = {
        {"zero", 0, 2, "0.00"},
        {"zero with one place", 0, 1, "0.0"},
        {"whole", 3, 2, "3.00"},
        {"half of the last place goes up", 0.125, 2, "0.13"},
        {"the half that was meant goes up, though the double lies below it", 1.005, 2, "1.01"},
        {"the half with one place", 0.25, 1, "0.3"},
        {"half goes away from zero below it", -0.125, 2, "-0.13"},
        {"below the half", 0.124999, 2, "0.12"},
        {"carries through nines", 9.999, 2, "10.00"},
        {"carries to a new digit", 0.999, 2, "1.00"},
        {"never minus zero", -0.004, 2, "0.00"},
        {"minus zero", -0.0, 2, "0.00"},
        {"tiny", 1e-300, 2, "0.00"},
        {"negative", -12.3456, 2, "-12.35"},
        {"fifteen digits", 1234567890123.45, 2, "1234567890123.45"},
        {"large", 1e20, 2, "100000000000000000000.00"},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), 2, "0.00"},
        {"infinite", std::numeric_limits<double>::infinity(), 1, "0.0"},
    };
    for (const FixedRow& row : rows)
        EXPECT_EQ(FixedText(row.value, row.decimals), row.text) << row.name;
    EXPECT_EQ(PointText(2.345), "2.35");
    EXPECT_EQ(FixedText(std::numeric_limits<double>::max(), 2).size(), 312U);
}

FormTable NumberForm()
{
    return {ControlRow(ControlKind::FormWindow, "frmNumbers", "", {}),
            ControlRow(ControlKind::TextBox, "txtLength", "", {}), ControlRow(ControlKind::TextBox, "txtPoint", "", {}),
            ControlRow(ControlKind::ComboBox, "cmbUnits", "", {}).Items({"Inches", "Millimeters", "Pixels"})};
}

class NumberBoxes : public UiStand {
protected:
    NumberBoxes()
    {
        FormatOnLeaving(form, "txtLength", [this] { FormatUnitField(form, "txtLength", "cmbUnits"); });
        MakePointFields(form, {"txtPoint"});
    }
    Form form{session, NumberForm()};
    FormDriver user{form};
};

TEST_F(NumberBoxes, LengthsFollowTheUnits)
{
    const struct {
        const char* units;
        const char* typed;
        const char* shown;
    } rows[] = {
        {"Inches", "1", "1.00"},          {"Inches", "1.238", "1.24"}, {"Millimeters", "25.44", "25.4"},
        {"Millimeters", "25.45", "25.5"}, {"Pixels", "3.456", "3.46"}, {"Inches", "abc", "0.00"},
        {"Inches", "", "0.00"},           {"Inches", "1,5", "1.00"},   {"Inches", " - 2 . 5 mm", "-2.50"},
        {"Millimeters", "1e2", "100.0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.units) + " " + row.typed);
        user.Choose("cmbUnits", row.units);
        user.TypeAndLeave("txtLength", row.typed);
        EXPECT_EQ(user.Text("txtLength"), row.shown);
    }
}

TEST_F(NumberBoxes, ACommaLocaleChangesNothing)
{
    locale.decimalSeparator = ',';
    user.Choose("cmbUnits", "Inches");
    user.TypeAndLeave("txtLength", "1.5");
    user.TypeAndLeave("txtPoint", "2.5");
    user.Leave("txtPoint");
    EXPECT_EQ(user.Text("txtLength"), "1.50");
    EXPECT_EQ(user.Text("txtPoint"), "2.50");
}

TEST_F(NumberBoxes, EnterFormatsAndIsUsedUp)
{
    user.Choose("cmbUnits", "Millimeters");
    user.Type("txtLength", "7.77");
    EXPECT_TRUE(user.Enter("txtLength"));
    EXPECT_EQ(user.Text("txtLength"), "7.8");
    user.Type("txtPoint", "3");
    EXPECT_TRUE(user.Enter("txtPoint"));
    EXPECT_EQ(user.Text("txtPoint"), "3.00");
}

} // namespace
} // namespace sm
