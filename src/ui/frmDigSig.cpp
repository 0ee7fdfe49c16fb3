// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmDigSig.h"

#include "settings/mdlUtilities.h"
#include "ui/form/HostLists.h"
#include "ui/form/NumberFields.h"
#include "ui/settings/SettingsAction.h"

namespace sm {
namespace {

constexpr RowControls kDigSigRows{"lstDigSig",       "btnDigSigAdd",    "btnDigSigModify",
                                  "btnDigSigDelete", "cmbDigSigLayout", "btnDigSigPoints"};
constexpr const char* kCorners[] = {"txtDigSigX1", "txtDigSigY1", "txtDigSigX2", "txtDigSigY2"};

FormTable DigSigTable()
{
    using enum ControlKind;
    return {
        ControlRow(FormWindow, "frmDigSig", "Digital Signature Field", {0, 0, 320, 172}),
        ControlRow(Frame, "Frame1", "Step 1: Select Signature Role", {7, 7, 306, 46}),
        ControlRow(Label, "lblDigSigName", "Title:", {6, 14, 50, 8}, "Frame1"),
        ControlRow(TextBox, "txtDigSigName", "", {60, 12, 240, 12}, "Frame1"),
        ControlRow(Label, "lblDigSigDesc", "Description:", {6, 30, 50, 8}, "Frame1"),
        ControlRow(TextBox, "txtDigSigDesc", "", {60, 28, 240, 12}, "Frame1"),
        ControlRow(Frame, "Frame2", "Step 2: Select Signature Location", {7, 59, 306, 80}),
        ControlRow(Label, "lblDigSigLayout", "Layout Tab:", {6, 14, 50, 8}, "Frame2"),
        ControlRow(ComboBox, "cmbDigSigLayout", "", {60, 12, 166, 12}, "Frame2"),
        ControlRow(Label, "lblDigSigRectangle", "Signature Rectangle:", {6, 31, 100, 8}, "Frame2"),
        ControlRow(Label, "lblDigSigX1", "X1:", {40, 45, 16, 8}, "Frame2"),
        ControlRow(TextBox, "txtDigSigX1", "", {60, 43, 64, 12}, "Frame2"),
        ControlRow(Label, "lblDigSigY1", "Y1:", {142, 45, 16, 8}, "Frame2"),
        ControlRow(TextBox, "txtDigSigY1", "", {162, 43, 64, 12}, "Frame2"),
        ControlRow(Label, "lblDigSigX2", "X2:", {40, 61, 16, 8}, "Frame2"),
        ControlRow(TextBox, "txtDigSigX2", "", {60, 59, 64, 12}, "Frame2"),
        ControlRow(Label, "lblDigSigY2", "Y2:", {142, 61, 16, 8}, "Frame2"),
        ControlRow(TextBox, "txtDigSigY2", "", {162, 59, 64, 12}, "Frame2"),
        ControlRow(CommandButton, "btnDigSigPoints", "Get Rect >", {236, 58, 60, 14}, "Frame2"),
        ControlRow(CommandButton, "btnOK", "OK", {149, 151, 52, 14}).Default(),
        ControlRow(CommandButton, "btnCancel", "Cancel", {205, 151, 52, 14}).Cancel(),
        ControlRow(CommandButton, "btnHelp", "Help", {261, 151, 52, 14}),
    };
}

} // namespace

frmDigSig::frmDigSig(FormSession& session, Form& settings, std::int32_t& action)
    : RowDialog(session, DigSigTable(), settings, action, kActionPickDigSigRectangle, kDigSigRows)
{
    On("btnHelp", FormEvent::Click, [this] { Session().ShowHelp(kHelpDigSigs); });
    MakePointFields(*this, {std::begin(kCorners), std::end(kCorners)});
}

void frmDigSig::Prepare(const ListRow* row)
{
    SetText("txtDigSigName", row != nullptr ? row->text : "");
    SetText("txtDigSigDesc", row != nullptr ? row->subItems.at(0) : "");
    for (std::size_t i = 0; i < std::size(kCorners); ++i)
        SetText(kCorners[i], row != nullptr ? row->subItems.at(i + 1) : PointText(0));
    Select(kDigSigRows.layoutCombo, kNothingSelected);
    SelectLayout(row != nullptr ? row->subItems.at(5) : CurrentLayoutName(Session().context));
}

bool frmDigSig::IsNameTaken() const
{
    const FormControl& list = Settings().Control(kDigSigRows.list);
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        const bool isOwn = Mode() == RowMode::Modify && static_cast<std::int32_t>(i) == list.selection;
        if (!isOwn && list.rows[i].text == Text("txtDigSigName"))
            return true;
    }
    return false;
}

std::unique_ptr<ListRow> frmDigSig::Entered()
{
    if (IsNameTaken()) {
        Session().ShowMessage("This digital signature box already exists, please enter a unique Name to continue.",
                              MessageButtons::Ok, MessageIcon::Critical, kHelpDigSigName);
        return nullptr;
    }
    auto row = std::make_unique<ListRow>(ListRow{Text("txtDigSigName"), {Text("txtDigSigDesc")}});
    for (const char* corner : kCorners)
        row->subItems.push_back(PointText(Val(Text(corner))));
    row->subItems.push_back(Text(kDigSigRows.layoutCombo));
    const std::vector<std::string>& items = row->subItems;
    if (row->text.empty() || items[5].empty() || items[1] == items[3] || items[2] == items[4]) {
        Session().ShowMessage("You must enter a valid Name, Layout Tab and Rectangle.", MessageButtons::Ok,
                              MessageIcon::Critical, kHelpDigSigs);
        return nullptr;
    }
    return row;
}

} // namespace sm
