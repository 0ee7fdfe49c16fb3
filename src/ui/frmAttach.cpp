// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frmAttach.h"

#include "ports/IFileSystem.h"
#include "settings/mdlUtilities.h"
#include "ui/form/HostLists.h"
#include "ui/form/NumberFields.h"
#include "ui/settings/SettingsAction.h"

namespace sm {
namespace {

constexpr RowControls kAttachRows{"lstAttach",       "btnAttachAdd",    "btnAttachModify",
                                  "btnAttachDelete", "cmbAttachLayout", "btnAttachPoints"};

FormTable AttachTable()
{
    using enum ControlKind;
    return {
        ControlRow(FormWindow, "frmAttach", "File Attachment", {0, 0, 292, 140}),
        ControlRow(Frame, "Frame1", "Step 1: Select File", {7, 7, 278, 32}),
        ControlRow(Label, "lblAttachFile", "File Name:", {6, 14, 46, 8}, "Frame1"),
        ControlRow(TextBox, "txtAttachFile", "", {56, 12, 152, 12}, "Frame1"),
        ControlRow(CommandButton, "btnAttachBrowse", "Browse...", {212, 11, 60, 14}, "Frame1"),
        ControlRow(Frame, "Frame2", "Step 2: Select File Icon Location", {7, 45, 278, 62}),
        ControlRow(Label, "lblAttachLayout", "Layout Tab:", {6, 14, 46, 8}, "Frame2"),
        ControlRow(ComboBox, "cmbAttachLayout", "", {56, 12, 152, 12}, "Frame2"),
        ControlRow(Label, "lblAttachX", "X:", {44, 36, 10, 8}, "Frame2"),
        ControlRow(TextBox, "txtAttachX", "", {56, 34, 60, 12}, "Frame2"),
        ControlRow(Label, "lblAttachY", "Y:", {136, 36, 10, 8}, "Frame2"),
        ControlRow(TextBox, "txtAttachY", "", {148, 34, 60, 12}, "Frame2"),
        ControlRow(CommandButton, "btnAttachPoints", "Get Point >", {212, 33, 60, 14}, "Frame2"),
        ControlRow(CommandButton, "btnOK", "OK", {121, 119, 52, 14}).Default(),
        ControlRow(CommandButton, "btnCancel", "Cancel", {177, 119, 52, 14}).Cancel(),
        ControlRow(CommandButton, "btnHelp", "Help", {233, 119, 52, 14}),
    };
}

} // namespace

frmAttach::frmAttach(FormSession& session, Form& settings, std::int32_t& action)
    : RowDialog(session, AttachTable(), settings, action, kActionPickAttachPoint, kAttachRows)
{
    On("btnAttachBrowse", FormEvent::Click, [this] { Browse(); });
    On("btnHelp", FormEvent::Click, [this] { Session().ShowHelp(kHelpAttachments); });
    MakePointFields(*this, {"txtAttachX", "txtAttachY"});
}

void frmAttach::Prepare(const ListRow* row)
{
    SetText("txtAttachFile", row != nullptr ? row->subItems.at(0) : "");
    SetText("txtAttachX", row != nullptr ? row->subItems.at(1) : PointText(0));
    SetText("txtAttachY", row != nullptr ? row->subItems.at(2) : PointText(0));
    Select(kAttachRows.layoutCombo, kNothingSelected);
    SelectLayout(row != nullptr ? row->subItems.at(3) : CurrentLayoutName(Session().context));
}

void frmAttach::Browse()
{
    Surroundings& surroundings = Session().context.surroundings;
    FileDialog dialog;
    dialog.title = "Select File";
    dialog.filterName = "All Files (*.*)";
    dialog.filterExtension = "*";
    const std::string folder = FolderPart(surroundings.locale, Text("txtAttachFile"));
    if (!folder.empty() && surroundings.files.FolderExists(folder))
        dialog.defaultName = JoinPath(surroundings.locale, folder, "*.*");
    if (const auto path = surroundings.desktop.AskOpenFile(dialog))
        SetText("txtAttachFile", *path, path->size());
}

std::unique_ptr<ListRow> frmAttach::Entered()
{
    const std::string path = Text("txtAttachFile"), layout = Text(kAttachRows.layoutCombo);
    if (path.empty() || layout.empty() || Text("txtAttachX").empty() || Text("txtAttachY").empty()) {
        Session().ShowMessage("Please enter a valid Filename, Layout Tab and Icon Location.", MessageButtons::Ok,
                              MessageIcon::Critical, kHelpAttachments);
        return nullptr;
    }
    return std::make_unique<ListRow>(
        ListRow{FileNamePart(Session().context.surroundings.locale, path),
                {path, PointText(Val(Text("txtAttachX"))), PointText(Val(Text("txtAttachY"))), layout}});
}

} // namespace sm
