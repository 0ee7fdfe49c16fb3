// SPDX-License-Identifier: GPL-3.0-or-later
// What a form is made of, as a toolkit sees it: one table of controls, each with what is fixed and what may change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace sm {

enum class ControlKind {
    FormWindow, ///< the form itself
    Frame,
    TabStrip, ///< its children are TabPages, `selection` is the page in front
    TabPage,
    Label, ///< wraps when its place is higher than one line
    TextBox,
    CheckBox,
    OptionButton, ///< one of those with the same parent is ticked
    ComboBox,     ///< a drop-down list; nothing can be typed into it
    ListBox,
    ListView,
    CommandButton,
    Picture, ///< a sunken box that holds an Image
    Image,
    ColorButton, ///< shows `backColor`; `maskColor` lies behind its picture
    Toolbar,
    ToolButton,
    ProgressBar, ///< `value` is per cent
    Timer        ///< is never seen and never fires unless a form starts it; none does
};

/// In dialog units of the form's font (a quarter of its average character's width across, an eighth of its height
/// down), from the upper left corner of the parent's inside. A frame's inside includes its border and caption; a tab
/// page's inside is all of it. The form's own `left` and `top` have no meaning: it opens in the middle of its owner.
struct ControlPlace {
    std::int32_t left = 0, top = 0, width = 0, height = 0;
    friend bool operator==(const ControlPlace&, const ControlPlace&) = default;
};

enum class ColorRole { ButtonFace, Window, Explicit };

/// The toolkit's own colour of a role, or an explicit RGB with red in the low byte.
struct ControlColor {
    ColorRole role = ColorRole::ButtonFace;
    std::int32_t rgb = 0; ///< of Explicit alone
    friend bool operator==(const ControlColor&, const ControlColor&) = default;
};

struct ListColumn {
    std::string header;
    std::int32_t width = 0; ///< dialog units
    friend bool operator==(const ListColumn&, const ListColumn&) = default;
};

/// `subItems[0]` stands in the second column.
struct ListRow {
    std::string text;
    std::vector<std::string> subItems;
    friend bool operator==(const ListRow&, const ListRow&) = default;
};

inline constexpr std::int32_t kNothingSelected = -1;

struct FormControl {
    // Fixed for the life of the form.
    std::string name;
    ControlKind kind = ControlKind::Label;
    std::size_t parent = 0; ///< position in the table; the form itself stands at 0 and is its own parent
    std::string tag;
    std::string picture; ///< "logo" or "warning"; the toolkit brings the pictures along
    std::vector<ListColumn> columns;
    std::int32_t tabIndex = -1; ///< -1: the keyboard doesn't stop here
    bool isDefault = false;     ///< the button that Enter presses
    bool isCancel = false;      ///< the button that Escape presses

    // May change at any time; the view is told.
    ControlPlace place;
    std::string caption;                       ///< UTF-8, "&" before the mnemonic; of a form its title
    std::string text;                          ///< of a text box
    std::size_t caret = 0;                     ///< of a text box: bytes before the caret, on a character's boundary
    std::vector<std::string> items;            ///< of combo and list boxes
    std::string notice;                        ///< of a combo box: what is told in it while no entry is chosen
    std::vector<ListRow> rows;                 ///< of list views
    std::int32_t selection = kNothingSelected; ///< 0-based, of combos, lists and tab strips
    std::int32_t value = 0;                    ///< 1 ticked, 0 not; of a progress bar per cent
    bool enabled = true;
    bool visible = true;
    ControlColor backColor;
    ControlColor maskColor; ///< of a colour button
    friend bool operator==(const FormControl&, const FormControl&) = default;
};

} // namespace sm
