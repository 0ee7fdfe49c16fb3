// SPDX-License-Identifier: GPL-3.0-or-later
// The window with the list of sheets beside a form.
#pragma once

#include "beside/PagePane.h"
#include "beside/SheetList.h"
#include "beside/WindowMemory.h"
#include "ports/IFormToolkit.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace sm::qt {

/// Belongs to the form's window and stays in front of it.
class SheetsWindow final : public QWidget {
public:
    /// Null for a memory: no size is remembered.
    SheetsWindow(beside::ISheetList& sheets, const IForm& form, QWidget* owner, beside::IWindowMemory* memory);

    /// Shows the window at the right of its owner, which gives way to the left as far as it may. On a screen without
    /// room for both it stays away until the user asks for it; so it does once the user has closed it.
    void Appear();
    void Toggle();
    /// Something in the form has changed; what follows from it is shown soon.
    void FormChanged() { m_soon.start(); }
    /// The user wants another drawing: that one, or nothing when one is to be asked for.
    std::function<void(const std::optional<std::string>& path)> onOpen;
    /// The user wants to change marks where they stand.
    std::function<void()> onMarks;

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeWords();
    QWidget* MakeButtons();
    void AddOpenButton(QLayout& column);
    bool FindPlace();
    void FindPlaceAgain();
    void Renew();
    void ShowRow(QListWidgetItem& item, const beside::SheetRow& row, bool ticksCount);
    void TakeTick(const QListWidgetItem& item);
    void TakeWords();
    void MakeCurrent();
    void Tell(const std::string& reason);

    beside::ISheetList& m_sheets;
    const IForm& m_form;
    beside::IWindowMemory* m_memory;
    QLabel* m_headline;
    QListWidget* m_list;
    QLineEdit* m_words = nullptr;
    QLabel* m_reason;
    QPushButton* m_current = nullptr;
    QPushButton* m_all = nullptr;
    QTimer m_soon;
    bool m_isFilling = false, m_isWanted = true;
    QSize m_given;      ///< the size it appeared in
    QTimer m_framed;    ///< runs until the window manager has had time to draw frames
    QRect m_formStands; ///< the form's frame, when the place was found
    beside::SheetsNow m_now;
    PagePane* m_page = nullptr; ///< null: the list brings no preview
};

} // namespace sm::qt
