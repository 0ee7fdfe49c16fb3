// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/EndWindow.h"

#include "beside/TextWindow.h"
#include "screen/ClosesOnSignal.h"
#include "screen/QtText.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace sm::qt {
namespace {

using beside::EndKind;
using beside::NextStep;
using beside::RunEnd;

QStyle::StandardPixmap IconOf(EndKind kind)
{
    switch (kind) {
    case EndKind::MadeWithLoss:
        return QStyle::SP_MessageBoxWarning;
    case EndKind::Failed:
        return QStyle::SP_MessageBoxCritical;
    case EndKind::Made:
    case EndKind::Cancelled:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

class EndWindow final : public QDialog {
public:
    EndWindow(const RunEnd& end, IDesktop& desktop, beside::IWindowMemory* memory);
    [[nodiscard]] NextStep Next() const { return m_next; }

private:
    QWidget* MakeHead();
    QWidget* MakeLines();
    void AddOpeners(QHBoxLayout& row);
    void AddSteps(QHBoxLayout& row);
    QPushButton* Add(QHBoxLayout& row, const char* caption, const char* name, const std::function<void()>& run);
    void Open(const std::string& path);
    void ShowLog();
    void Leave(NextStep next)
    {
        m_next = next;
        accept();
    }
    void FindSize();

    const RunEnd& m_end;
    IDesktop& m_desktop;
    beside::IWindowMemory* m_memory;
    QLabel* m_reason = nullptr;
    NextStep m_next = NextStep::Close;
};

EndWindow::EndWindow(const RunEnd& end, IDesktop& desktop, beside::IWindowMemory* memory)
    : QDialog(QApplication::activeModalWidget()), m_end(end), m_desktop(desktop), m_memory(memory)
{
    setObjectName("EndWindow");
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle("Create PDF");
    auto* const column = new QVBoxLayout(this);
    column->addWidget(MakeHead());
    if (!end.lines.empty())
        column->addWidget(MakeLines(), 1);
    m_reason = new QLabel;
    m_reason->setObjectName("reason");
    m_reason->hide();
    column->addWidget(m_reason);
    auto* const buttons = new QHBoxLayout;
    AddOpeners(*buttons);
    buttons->addStretch(1);
    AddSteps(*buttons);
    column->addLayout(buttons);
    FindSize();
}

QWidget* EndWindow::MakeHead()
{
    auto* const head = new QWidget;
    auto* const row = new QHBoxLayout(head);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    icon->setPixmap(style()->standardIcon(IconOf(m_end.kind)).pixmap(size, size));
    row->addWidget(icon, 0, Qt::AlignTop);
    auto* const headline = new QLabel(ToQt(m_end.headline));
    headline->setObjectName("headline");
    headline->setTextFormat(Qt::PlainText);
    headline->setTextInteractionFlags(Qt::TextSelectableByMouse);
    headline->setWordWrap(true);
    row->addWidget(headline, 1);
    return head;
}

QWidget* EndWindow::MakeLines()
{
    auto* const list = new QListWidget;
    list->setObjectName("lines");
    list->setAccessibleName("What was not done or was done otherwise");
    list->setWordWrap(true);
    list->setTextElideMode(Qt::ElideNone);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const std::string& line : m_end.lines)
        list->addItem(ToQt(line));
    list->setSelectionMode(QAbstractItemView::NoSelection);
    return list;
}

QPushButton* EndWindow::Add(QHBoxLayout& row, const char* caption, const char* name, const std::function<void()>& run)
{
    auto* const button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, run);
    row.addWidget(button);
    return button;
}

void EndWindow::AddOpeners(QHBoxLayout& row)
{
    if (!m_end.pdfPath.empty())
        Add(row, "Show &PDF", "showPdf", [this] { Open(m_end.pdfPath); });
    if (!m_end.folder.empty())
        Add(row, "Show &Folder", "showFolder", [this] { Open(m_end.folder); });
    if (!m_end.logPath.empty())
        Add(row, "View &Log", "viewLog", [this] { ShowLog(); });
}

void EndWindow::AddSteps(QHBoxLayout& row)
{
    if (m_end.offersSave)
        Add(row, "&Save PDF...", "save", [this] { Leave(NextStep::SaveAgain); });
    Add(row, "S&ettings...", "settings", [this] { Leave(NextStep::SettingsAgain); });
    QPushButton* const close = Add(row, "&Close", "close", [this] { Leave(NextStep::Close); });
    close->setDefault(true);
    close->setFocus();
}

void EndWindow::Open(const std::string& path)
{
    const bool isOpen = m_desktop.OpenDocument(path);
    m_reason->setText(isOpen ? QString() : "There is no program for " + ToQt(path));
    m_reason->setVisible(!isOpen);
}

void EndWindow::ShowLog()
{
    const bool isRead = ShowTextFile(ToQt(m_end.logPath), "Conversion Log", this, m_memory);
    m_reason->setText(isRead ? QString() : "The log can't be read: " + ToQt(m_end.logPath));
    m_reason->setVisible(!isRead);
}

/// Lines are shown whole as far as the screen allows.
void EndWindow::FindSize()
{
    const int character = fontMetrics().averageCharWidth();
    std::size_t longest = m_end.headline.size();
    for (const std::string& line : m_end.lines)
        longest = std::max(longest, line.size());
    const int width = std::clamp(static_cast<int>(longest) + 12, 56, 96) * character;
    const int rows = std::min<int>(static_cast<int>(m_end.lines.size()), 12);
    const QSize wanted(std::max(width, minimumSizeHint().width()),
                       sizeHint().height() + (rows - 6) * (rows > 0 ? fontMetrics().height() : 0));
    resize(wanted.boundedTo(screen()->availableGeometry().size() * 9 / 10).expandedTo(minimumSizeHint()));
}

} // namespace

NextStep AskAtEnd(const RunEnd& end, IDesktop& desktop, beside::IWindowMemory* memory) noexcept
{
    try {
        const ClosesOnSignal closesOnSignal;
        EndWindow window(end, desktop, memory);
        window.exec();
        return window.Next();
    } catch (...) {
        return NextStep::Close;
    }
}

} // namespace sm::qt
