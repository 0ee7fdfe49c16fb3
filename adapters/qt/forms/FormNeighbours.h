// SPDX-License-Identifier: GPL-3.0-or-later
// What stands beside one form and holds none of its rules: the list of sheets, the way to another drawing, files that
// are dropped on it.
#pragma once

#include "beside/SheetsWindow.h"
#include "scene/RowFiles.h"
#include "scene/WaysFromForm.h"
#include "screen/ScreenState.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::qt {

class FormNeighbours final : public QObject {
public:
    /// What the form's view does for its neighbours.
    struct Site {
        QWidget& window; ///< the form's
        IForm& form;
        std::function<std::size_t(const QWidget*)> controlOf;    ///< 0: none, or the form itself
        std::function<void(std::size_t control)> press;          ///< a button, if the user could
        std::function<void(std::size_t control)> pressAddBeside; ///< "Add"
    };
    FormNeighbours(Site site, ScreenState& state);
    ~FormNeighbours() override;
    FormNeighbours(const FormNeighbours&) = delete;
    FormNeighbours& operator=(const FormNeighbours&) = delete;

    /// The form has been shown, or goes.
    void Appear();
    void Leave();
    void FormChanged();

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] beside::IDrawings* Drawings() const;
    void MakeSheets();
    bool TakeDrag(const QWidget& widget, QEvent& event);
    [[nodiscard]] bool IsOnFileList(const QWidget& widget, QPoint at) const;
    void AddFiles(const std::vector<std::string>& paths);
    void AddNextFile();
    void GoOnAfterRow();
    [[nodiscard]] std::size_t RowsOfFileList() const;

    Site m_site;
    ScreenState& m_state;
    beside::ISheetList* m_list = nullptr;        ///< that belongs to the form, while it is up
    SheetsWindow* m_sheets = nullptr;            ///< belongs to the form's window
    std::unique_ptr<scene::WaysFromForm> m_ways; ///< null: there are none
    scene::RowFiles m_files;
};

} // namespace sm::qt
