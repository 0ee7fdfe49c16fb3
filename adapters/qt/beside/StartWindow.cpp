// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/StartWindow.h"

#include "scene/WaysFromForm.h"
#include "screen/ClosesOnSignal.h"
#include "screen/DroppedFiles.h"
#include "screen/QtText.h"
#include "screen/WindowSize.h"

#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace sm::qt {
namespace {

constexpr const char* kStartSize = "RecentDrawings";

class StartWindow final : public QDialog {
public:
    StartWindow(const std::vector<std::string>& recent, const ScreenState& state);
    ~StartWindow() override { RememberSize(*this, kStartSize, m_state.memory); }
    StartWindow(const StartWindow&) = delete;
    StartWindow& operator=(const StartWindow&) = delete;
    [[nodiscard]] const std::optional<std::string>& Chosen() const { return m_chosen; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        if (DrawingIn(event->mimeData()))
            event->acceptProposedAction();
    }
    void dropEvent(QDropEvent* event) override
    {
        if (const auto path = DrawingIn(event->mimeData())) {
            event->acceptProposedAction();
            Take(*path);
        }
    }

private:
    static std::optional<std::string> DrawingIn(const QMimeData* dragged)
    {
        const auto paths = FilesIn(dragged);
        return paths.size() == 1 && scene::IsDrawingFile(paths.front()) ? std::optional(paths.front()) : std::nullopt;
    }
    QHBoxLayout* MakeButtons();
    void List(const std::vector<std::string>& recent);
    void Take(const std::string& path)
    {
        m_chosen = path;
        accept();
    }
    void TakeRow()
    {
        if (const QListWidgetItem* const row = m_list->currentItem())
            Take(FromQt(row->data(Qt::UserRole).toString()));
    }
    void AskOther()
    {
        if (m_state.desktop == nullptr)
            return;
        if (const auto path = scene::AskForDrawing(*m_state.desktop))
            Take(*path);
        else
            activateWindow(); // not every window system gives the keyboard back
    }

    const ScreenState& m_state;
    QListWidget* m_list;
    std::optional<std::string> m_chosen;
};

StartWindow::StartWindow(const std::vector<std::string>& recent, const ScreenState& state)
    : m_state(state), m_list(new QListWidget)
{
    setObjectName("StartWindow");
    setWindowTitle("Recent Drawings");
    setAcceptDrops(true);
    auto* const column = new QVBoxLayout(this);
    auto* const label = new QLabel("&Drawings that were opened lately; another one may be dropped here:");
    label->setBuddy(m_list);
    label->setWordWrap(true);
    column->addWidget(label);
    m_list->setObjectName("recent");
    m_list->setAccessibleName("Recent drawings");
    m_list->setTextElideMode(Qt::ElideMiddle);
    List(recent);
    column->addWidget(m_list, 1);
    column->addLayout(MakeButtons());
    connect(m_list, &QListWidget::itemActivated, this, [this] { TakeRow(); });
    connect(new QShortcut(QKeySequence::Open, this), &QShortcut::activated, this, [this] { AskOther(); });
    resize(72 * fontMetrics().averageCharWidth(), 18 * fontMetrics().height());
    RecallSize(*this, kStartSize, state.memory);
    m_list->setFocus();
}

void StartWindow::List(const std::vector<std::string>& recent)
{
    for (const std::string& path : recent) {
        const QFileInfo file(ToQt(path));
        const QString folder = QDir::toNativeSeparators(file.absolutePath());
        auto* const row = new QListWidgetItem(file.fileName() + "\n" + folder, m_list);
        row->setData(Qt::UserRole, ToQt(path));
        row->setData(Qt::AccessibleTextRole, QString(file.fileName() + ", " + folder));
        row->setToolTip(ToQt(path));
    }
    m_list->setCurrentRow(0);
}

QHBoxLayout* StartWindow::MakeButtons()
{
    auto* const row = new QHBoxLayout;
    const auto add = [&](const char* caption, const char* name, auto&& run) {
        auto* const button = new QPushButton(caption);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, run);
        row->addWidget(button);
        return button;
    };
    add("O&ther Drawing...", "other", [this] { AskOther(); })->setToolTip("Ctrl+O");
    row->addStretch(1);
    QPushButton* const open = add("&Open", "open", [this] { TakeRow(); });
    open->setDefault(true);
    open->setEnabled(m_list->count() > 0);
    add("Cancel", "cancel", [this] { reject(); });
    return row;
}

} // namespace

std::optional<std::string> AskAmongRecent(const std::vector<std::string>& recent, const ScreenState& state) noexcept
{
    try {
        const ClosesOnSignal closesOnSignal;
        StartWindow window(recent, state);
        window.exec();
        return window.Chosen();
    } catch (...) {
        return std::nullopt;
    }
}

} // namespace sm::qt
