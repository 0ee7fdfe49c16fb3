// SPDX-License-Identifier: GPL-3.0-or-later
// A form at run time: the state of its controls, and the handlers of what the user does.
//
// Code changes controls by name; no handler runs for that, the view is only told. What the user does runs the handler.
#pragma once

#include "ui/form/FormSession.h"
#include "ui/form/FormTable.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace sm {

/// Operations that take a name throw HostError when the form has no such control. A handler that throws is told to the
/// run's observer; nothing leaves the reports.
class Form : public IForm {
public:
    using Handler = std::function<void()>;

    /// `session` outlives the form.
    Form(FormSession& session, const FormTable& table);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] const std::string& Name() const { return m_controls.front().name; }
    [[nodiscard]] FormSession& Session() const { return m_session; }

    /// Makes the window without showing it and runs the Load handler; a second call does nothing.
    void Load();
    /// Loads and shows the form; returns when it is hidden. False when there is no window to show.
    bool ShowModal();
    void Hide();
    void PumpEvents();

    void On(const std::string& name, FormEvent event, Handler handler);

    [[nodiscard]] bool Has(const std::string& name) const;
    [[nodiscard]] const FormControl& Control(const std::string& name) const;
    /// Text of a text box, or of the entry chosen in a combo or list box; empty when none is.
    [[nodiscard]] std::string Text(const std::string& name) const;
    [[nodiscard]] bool IsTicked(const std::string& name) const;
    [[nodiscard]] std::int32_t Selection(const std::string& name) const;
    /// The chosen row of a list view, or null.
    [[nodiscard]] const ListRow* SelectedRow(const std::string& name) const;
    [[nodiscard]] std::vector<std::string> Tagged(const std::string& tag) const;

    void SetCaption(const std::string& name, const std::string& caption);
    void SetText(const std::string& name, const std::string& text, std::size_t caret = 0);
    /// A ticked option unticks the others of its group.
    void SetTicked(const std::string& name, bool ticked);
    /// Per cent, 0 to 100.
    void SetProgress(const std::string& name, std::int32_t perCent);
    /// Nothing is chosen afterwards.
    void SetItems(const std::string& name, std::vector<std::string> items);
    void AddItem(const std::string& name, const std::string& item);
    void ReplaceItem(const std::string& name, std::int32_t position, const std::string& item);
    /// A position that the list hasn't chooses nothing.
    void Select(const std::string& name, std::int32_t position);
    /// What a combo box tells while none of its entries is chosen; empty: nothing.
    void SetNotice(const std::string& name, const std::string& notice);
    /// False, and nothing chosen anew, when no entry has that text.
    bool SelectText(const std::string& name, const std::string& text);
    /// Nothing is chosen afterwards.
    void SetRows(const std::string& name, std::vector<ListRow> rows);
    void AddRow(const std::string& name, ListRow row);
    void ReplaceRow(const std::string& name, std::int32_t position, ListRow row);
    void RemoveRow(const std::string& name, std::int32_t position);
    void SetEnabled(const std::string& name, bool enabled);
    void SetVisible(const std::string& name, bool visible);
    void SetPlace(const std::string& name, const ControlPlace& place);
    void SetBackColor(const std::string& name, const ControlColor& color);
    void SetMaskColor(const std::string& name, const ControlColor& color);

    [[nodiscard]] const std::vector<FormControl>& Controls() const override { return m_controls; }
    [[nodiscard]] bool Handles(std::size_t control, FormEvent event) const override;
    void UserActivated() override;
    void UserTyped(std::size_t control, const std::string& text, std::size_t caret) override;
    void UserMovedCaret(std::size_t control, std::size_t caret) override;
    void UserClicked(std::size_t control) override;
    void UserSelected(std::size_t control, std::int32_t position) override;
    void UserDoubleClicked(std::size_t control, std::int32_t position) override;
    void UserLeft(std::size_t control) override;
    bool UserPressedEnter(std::size_t control) override;
    bool UserPressedEscape() override;
    void UserClosed() override;

private:
    [[nodiscard]] std::size_t Position(const std::string& name) const;
    /// The control at that position, when the user can reach it; else null.
    [[nodiscard]] FormControl* Reachable(std::size_t control);
    void Changed(std::size_t control);
    template <class Edit> void Change(const std::string& name, const Edit& edit);
    void Tick(std::size_t option);
    void BringForward(std::size_t strip, std::int32_t page);
    void Run(std::size_t control, FormEvent event) noexcept;
    /// Presses the first button that the user can reach and for which `isMeant` holds.
    bool Press(bool FormControl::*isMeant);

    FormSession& m_session;
    std::vector<FormControl> m_controls;
    std::map<std::pair<std::size_t, FormEvent>, Handler> m_handlers;
    std::unique_ptr<IFormView> m_view;
    bool m_loaded = false;
};

} // namespace sm
