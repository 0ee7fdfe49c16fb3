// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/SheetsWindow.h"

#include "beside/OpenButton.h"
#include "screen/QtText.h"
#include "screen/WindowSize.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace sm::qt {
namespace {

constexpr int kLeastWidth = 44, kMostWidth = 90; // average characters
constexpr int kBetween = 8;                      // pixels
constexpr const char* kSheetsSize = "Sheets";

} // namespace

SheetsWindow::SheetsWindow(beside::ISheetList& sheets, const IForm& form, QWidget* owner, beside::IWindowMemory* memory)
    : QWidget(owner, Qt::Tool), m_sheets(sheets), m_form(form), m_memory(memory), m_headline(new QLabel),
      m_list(new QListWidget), m_reason(new QLabel)
{
    setObjectName("SheetsWindow");
    setWindowTitle("Sheets");
    auto* const column = new QVBoxLayout(this);
    m_headline->setObjectName("headline");
    m_headline->setWordWrap(true);
    column->addWidget(m_headline);
    m_list->setObjectName("sheets");
    m_list->setAccessibleName("Sheets");
    column->addWidget(m_list, 1);
    column->addWidget(MakeWords());
    m_reason->setObjectName("reason");
    m_reason->setWordWrap(true);
    m_reason->hide();
    column->addWidget(m_reason);
    column->addWidget(MakeButtons());
    AddOpenButton(*column);
    if (beside::IPageSource* const page = sheets.Page()) {
        m_page = new PagePane(*page);
        column->addWidget(m_page, 2);
    }
    connect(m_list, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) { TakeTick(*item); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { MakeCurrent(); });
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    m_soon.callOnTimeout(this, [this] { Renew(); });
    constexpr int kForFrame = 250; // ms
    m_framed.setSingleShot(true);
    m_framed.setInterval(kForFrame);
    m_framed.callOnTimeout(this, [this] { FindPlaceAgain(); });
}

QWidget* SheetsWindow::MakeWords()
{
    auto* const line = new QWidget;
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const label = new QLabel("&Tick:");
    m_words = new QLineEdit;
    m_words->setObjectName("words");
    m_words->setAccessibleName("Tick sheets by name");
    m_words->setPlaceholderText("A-1*, 3..5");
    m_words->setToolTip("Names, patterns with * and ?, FIRST..LAST or numbers, separated by commas; then Return");
    label->setBuddy(m_words);
    row->addWidget(label);
    row->addWidget(m_words, 1);
    connect(m_words, &QLineEdit::returnPressed, this, [this] { TakeWords(); });
    return line;
}

QWidget* SheetsWindow::MakeButtons()
{
    auto* const line = new QWidget;
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char* caption, const char* name, const char* tip, auto&& run) {
        auto* const button = new QPushButton(caption);
        button->setObjectName(name);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, run);
        row->addWidget(button);
        return button;
    };
    m_current = add("&Make Current", "current", "The chosen layout is the one that \"Current Tab\" means",
                    [this] { MakeCurrent(); });
    m_all = add("Tick &All", "all", "Every sheet becomes a page", [this] {
        m_sheets.TickAll();
        Tell({});
    });
    return line;
}

void SheetsWindow::AddOpenButton(QLayout& column)
{
    if (m_sheets.Drawings() == nullptr)
        return;
    auto* const open = new OpenButton(*m_sheets.Drawings());
    open->onOpen = [this](const std::optional<std::string>& path) {
        if (onOpen)
            onOpen(path);
    };
    column.addWidget(open);
    if (!m_sheets.Drawings()->CanEditMarks())
        return;
    auto* const marks = new QPushButton("&Edit Marks...");
    marks->setObjectName("editMarks");
    marks->setToolTip("Drag and edit the stored marks in the drawing; the dialog comes back afterwards");
    connect(marks, &QPushButton::clicked, this, [this] {
        if (onMarks)
            onMarks();
    });
    column.addWidget(marks);
}

void SheetsWindow::Appear()
{
    Renew();
    if (m_isWanted && FindPlace())
        show();
    m_soon.start();
    m_framed.start();
}

/// The windows have no frames yet when they are shown, and no manager says when they get them.
void SheetsWindow::FindPlaceAgain()
{
    if (isVisible() && parentWidget()->frameGeometry() != m_formStands)
        FindPlace();
}

bool SheetsWindow::FindPlace()
{
    QWidget* const owner = parentWidget();
    const QScreen* const on = owner->screen();
    if (on == nullptr)
        return false;
    const QRect room = on->availableGeometry();
    const QRect form = owner->frameGeometry();
    const int character = fontMetrics().averageCharWidth();
    const int least = std::max(minimumSizeHint().width(), kLeastWidth * character);
    const int most = m_page != nullptr ? std::max(least, kMostWidth * character) : least;
    const QSize size(std::clamp(room.width() - form.width() - 4 * kBetween, least, most),
                     std::min(owner->height(), room.height()));
    if (!m_given.isValid()) {
        const int free = room.width() - form.width() - kBetween;
        RecallSize(*this, kSheetsSize, m_memory) ? resize(std::min(width(), std::max(least, free)), height())
                                                 : resize(size);
        m_given = this->size();
    }
    const int frame = std::max(frameGeometry().width() - width(), form.width() - owner->width());
    const int wide = width() + frame;
    if (form.width() + kBetween + wide > room.width())
        return false;
    const int beyond = form.right() + kBetween + wide - room.right();
    if (beyond > 0)
        owner->move(owner->pos() - QPoint(beyond, 0));
    m_formStands = owner->frameGeometry();
    move(m_formStands.right() + kBetween, m_formStands.top());
    return true;
}

void SheetsWindow::Toggle()
{
    m_isWanted = !isVisible();
    if (!m_isWanted)
        return hide();
    Renew();
    if (!FindPlace() && parentWidget()->screen() != nullptr) {
        const QRect room = parentWidget()->screen()->availableGeometry();
        move(room.right() - width(), room.top());
    }
    show();
    m_soon.start();
    activateWindow();
    m_list->setFocus();
}

void SheetsWindow::closeEvent(QCloseEvent* event)
{
    m_isWanted = false;
    event->accept();
}

void SheetsWindow::hideEvent(QHideEvent*)
{
    if (m_given.isValid() && size() != m_given) // what follows from the screen isn't the user's wish
        RememberSize(*this, kSheetsSize, m_memory);
}

void SheetsWindow::keyPressEvent(QKeyEvent* event)
{
    event->key() == Qt::Key_Escape ? parentWidget()->activateWindow() : QWidget::keyPressEvent(event);
}

void SheetsWindow::Renew()
{
    if (m_page != nullptr && isVisible())
        m_page->Renew();
    beside::SheetsNow now = m_sheets.Now(m_form.Controls());
    if (now == m_now && m_list->count() > 0)
        return;
    m_isFilling = true;
    m_now = std::move(now);
    m_headline->setText(ToQt(m_now.headline));
    const int chosen = m_list->currentRow();
    while (m_list->count() > static_cast<int>(m_now.rows.size()))
        delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < static_cast<int>(m_now.rows.size()))
        m_list->addItem(new QListWidgetItem);
    int current = 0;
    for (std::size_t i = 0; i < m_now.rows.size(); ++i) {
        ShowRow(*m_list->item(static_cast<int>(i)), m_now.rows[i], m_now.ticksCount);
        if (m_now.rows[i].isCurrent)
            current = static_cast<int>(i);
    }
    m_list->setCurrentRow(chosen >= 0 && chosen < m_list->count() ? chosen : current);
    m_words->setEnabled(m_now.ticksCount);
    m_all->setEnabled(m_now.ticksCount);
    m_isFilling = false;
}

void SheetsWindow::ShowRow(QListWidgetItem& item, const beside::SheetRow& row, bool ticksCount)
{
    item.setText(ToQt(row.name));
    item.setToolTip(ToQt(row.name) + (row.isCurrent ? " (current tab)" : ""));
    item.setData(Qt::AccessibleTextRole, item.toolTip());
    QFont font = m_list->font();
    font.setBold(row.isCurrent);
    item.setFont(font);
    if (ticksCount && !row.isModel)
        item.setCheckState(row.isTicked ? Qt::Checked : Qt::Unchecked);
    else
        item.setData(Qt::CheckStateRole, QVariant()); // no box
}

void SheetsWindow::TakeTick(const QListWidgetItem& item)
{
    if (m_isFilling || !item.data(Qt::CheckStateRole).isValid())
        return;
    const auto row = static_cast<std::size_t>(m_list->row(&item));
    if (row >= m_now.rows.size())
        return;
    m_now.rows[row].isTicked = item.checkState() == Qt::Checked;
    Tell(m_sheets.Tick(m_now.rows[row].name, m_now.rows[row].isTicked));
}

void SheetsWindow::TakeWords()
{
    const std::string reason = m_sheets.TickMeant(m_words->text().toStdString());
    reason.empty() ? m_words->clear() : m_words->selectAll();
    Tell(reason);
}

void SheetsWindow::MakeCurrent()
{
    const int row = m_list->currentRow();
    if (row < 0 || static_cast<std::size_t>(row) >= m_now.rows.size())
        return;
    m_sheets.MakeCurrent(m_now.rows[static_cast<std::size_t>(row)].name);
    Tell({});
}

void SheetsWindow::Tell(const std::string& reason)
{
    m_reason->setText(ToQt(reason));
    m_reason->setVisible(!reason.empty());
    if (!reason.empty())
        QApplication::beep();
    m_soon.start(); // not from within the list's own notice
}

} // namespace sm::qt
