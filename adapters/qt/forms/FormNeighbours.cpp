// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FormNeighbours.h"

#include "screen/DroppedFiles.h"

#include <QApplication>
#include <QDropEvent>
#include <QShortcut>
#include <QTimer>

#include <utility>

namespace sm::qt {
namespace {

QShortcut* ShortcutEverywhere(const QKeySequence& keys, QWidget& window)
{
    return new QShortcut(keys, &window, nullptr, nullptr, Qt::ApplicationShortcut);
}

} // namespace

FormNeighbours::FormNeighbours(Site site, ScreenState& state) : m_site(std::move(site)), m_state(state) {}

FormNeighbours::~FormNeighbours()
{
    if (m_files.IsAdding())
        m_state.rowEnded = nullptr;
}

beside::IDrawings* FormNeighbours::Drawings() const
{
    return m_list != nullptr ? m_list->Drawings() : nullptr;
}

void FormNeighbours::Appear()
{
    const std::string& name = m_site.form.Controls().front().name;
    beside::ISheetList* const listed = m_state.sheets;
    m_list = listed != nullptr && listed->StandsBeside(name) ? listed : nullptr;
    if (m_list != nullptr) {
        if (m_sheets == nullptr)
            MakeSheets();
        if (m_ways != nullptr)
            m_ways->FormIsUp(true);
        m_sheets->Appear();
        qApp->removeEventFilter(this);
        qApp->installEventFilter(this);
    }
    const beside::FileList files = listed != nullptr ? listed->Files() : beside::FileList{};
    if (m_state.dropped && name == files.form)
        QTimer::singleShot(0, this,
                           [this, browse = scene::ControlNamed(m_site.form, files.browse)] { m_site.press(browse); });
}

void FormNeighbours::MakeSheets()
{
    m_site.window.setAcceptDrops(Drawings() != nullptr || !m_list->Files().list.empty());
    m_sheets = new SheetsWindow(*m_list, m_site.form, &m_site.window, m_state.memory);
    connect(ShortcutEverywhere(Qt::Key_F6, m_site.window), &QShortcut::activated, m_sheets,
            [this] { m_sheets->Toggle(); });
    if (Drawings() == nullptr || m_state.desktop == nullptr)
        return;
    m_ways = std::make_unique<scene::WaysFromForm>(m_site.form, *Drawings(), *m_state.desktop,
                                                   [this] { m_site.form.UserClosed(); });
    m_sheets->setAcceptDrops(true);
    m_sheets->onOpen = [this](const std::optional<std::string>& path) { m_ways->Open(path); };
    m_sheets->onMarks = [this] { m_ways->EditMarks(); };
    connect(ShortcutEverywhere(QKeySequence::Open, m_site.window), &QShortcut::activated, this, [this] {
        if (QApplication::activeModalWidget() == &m_site.window)
            m_ways->Open(std::nullopt);
    });
}

void FormNeighbours::Leave()
{
    qApp->removeEventFilter(this);
    m_list = nullptr;
    if (m_ways != nullptr)
        m_ways->FormIsUp(false);
    if (m_sheets != nullptr)
        m_sheets->hide();
    else if (m_state.rowEnded)
        QTimer::singleShot(0, qApp, [&state = m_state] {
            if (state.rowEnded)
                state.rowEnded();
        });
}

void FormNeighbours::FormChanged()
{
    if (m_sheets != nullptr)
        m_sheets->FormChanged();
}

bool FormNeighbours::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return false;
    const auto* const widget = qobject_cast<QWidget*>(object);
    const QWidget* const window = widget != nullptr ? widget->window() : nullptr;
    const bool isOurs = window == &m_site.window || (window != nullptr && window == m_sheets);
    return isOurs && QApplication::activeModalWidget() == &m_site.window && TakeDrag(*widget, *event);
}

/// Files on the list of files become rows of it; a drawing anywhere else is opened.
bool FormNeighbours::TakeDrag(const QWidget& widget, QEvent& event)
{
    auto& drag = static_cast<QDropEvent&>(event);
    std::vector<std::string> paths = FilesIn(drag.mimeData());
    const bool isList = IsOnFileList(widget, drag.position().toPoint());
    const bool isTaken =
        !paths.empty() && (isList || (paths.size() == 1 && scene::IsDrawingFile(paths.front()) && m_ways != nullptr));
    if (paths.empty())
        return false; // text for a box
    drag.setAccepted(isTaken);
    if (!isTaken)
        return true;
    drag.setDropAction(Qt::CopyAction);
    if (event.type() == QEvent::Drop) // whoever drags waits until this returns
        QTimer::singleShot(0, this, [this, isList, paths = std::move(paths)] {
            isList ? AddFiles(paths) : m_ways->Open(paths.front());
        });
    return true;
}

bool FormNeighbours::IsOnFileList(const QWidget& widget, QPoint at) const
{
    const std::size_t list = m_list != nullptr ? scene::ControlNamed(m_site.form, m_list->Files().list) : 0;
    if (list == 0 || widget.window() != &m_site.window)
        return false;
    return m_site.controlOf(m_site.window.childAt(widget.mapTo(&m_site.window, at))) == list;
}

std::size_t FormNeighbours::RowsOfFileList() const
{
    const std::size_t list = m_list != nullptr ? scene::ControlNamed(m_site.form, m_list->Files().list) : 0;
    return m_site.form.Controls()[list].rows.size();
}

void FormNeighbours::AddFiles(const std::vector<std::string>& paths)
{
    m_files.Begin(paths);
    m_state.rowEnded = [this] { GoOnAfterRow(); };
    AddNextFile();
}

void FormNeighbours::AddNextFile()
{
    m_state.dropped = m_list != nullptr ? m_files.Next(RowsOfFileList()) : std::nullopt;
    if (m_state.dropped)
        m_site.pressAddBeside(scene::ControlNamed(m_site.form, m_list->Files().list));
    else
        m_state.rowEnded = nullptr;
    m_state.dropped.reset();
}

/// While a place is picked for the row, the form is away.
void FormNeighbours::GoOnAfterRow()
{
    if (m_list == nullptr || QApplication::activeModalWidget() != &m_site.window)
        return;
    m_files.RowEnded(RowsOfFileList());
    AddNextFile();
}

} // namespace sm::qt
