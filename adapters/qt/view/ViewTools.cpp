// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/ViewTools.h"

#include "scene/PickTexts.h"

#include <QAction>
#include <QLabel>

namespace sm::qt {
namespace {

constexpr double kStep = 1.5; // of zooming
constexpr const char* kBackdrop = "DrawingBackground";
constexpr const char* kDark = "dark";

QString KeysText()
{
    QString rows;
    for (const auto& [keys, meaning] : scene::WindowKeys())
        rows += QString("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>").arg(keys, meaning);
    return "<table cellpadding=\"1\">" + rows + "</table>";
}

QString SpokenKeys()
{
    QString text;
    for (const auto& [keys, meaning] : scene::WindowKeys())
        text += QString("%1: %2. ").arg(keys, meaning);
    return text;
}

QLabel* MakeKeys(QWidget& owner)
{
    auto* const keys = new QLabel(KeysText(), &owner);
    keys->setObjectName("keys");
    keys->setAccessibleName("Keys. " + SpokenKeys());
    keys->setAutoFillBackground(true);
    keys->setBackgroundRole(QPalette::ToolTipBase);
    keys->setForegroundRole(QPalette::ToolTipText);
    keys->setFrameShape(QFrame::Box);
    keys->setMargin(6);
    keys->setCursor(Qt::ArrowCursor);
    keys->move(12, 12);
    keys->adjustSize();
    keys->hide();
    return keys;
}

} // namespace

ViewTools::ViewTools(DrawingView& view, beside::IWindowMemory* memory) : m_view(view), m_memory(memory)
{
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setAccessibleName("View and snaps");
    Add("Zoom &In", "Zoom in (+)", [this] { m_view.Zoom(kStep); });
    Add("Zoom &Out", "Zoom out (-)", [this] { m_view.Zoom(1 / kStep); });
    Add("Zoom &All", "Show everything (Home, or double click with the middle button)", [this] { m_view.ShowAll(); });
    QAction* const frame = AddSwitch("&Window", "zoomWindow", "Zoom to a frame that is drawn next (W)", {});
    connect(frame, &QAction::triggered, this, [this, frame] { m_view.SetZoomWindow(frame->isChecked()); });
    m_view.onZoomWindow = [frame](bool isWanted) { frame->setChecked(isWanted); };
    addSeparator();
    m_snaps = AddSwitch("Object &Snaps", "snaps",
                        "Ends, middles, centres and intersections draw the cursor (F3; Shift suspends)", [this] {
                            if (onSnaps)
                                onSnaps();
                        });
    m_snaps->setChecked(true);
    m_snaps->setShortcut(Qt::Key_F3);
    addSeparator();
    m_dark = AddSwitch("&Dark", "dark", "The drawing on a dark background (B)",
                       [this] { ShowBackdrop(m_dark->isChecked()); });
    m_dark->setShortcut(Qt::Key_B);
    m_keys = MakeKeys(view);
    m_keysAction = AddSwitch("&Keys", "keysShown", "The keys of this window (F1)",
                             [this] { m_keys->setVisible(m_keysAction->isChecked()); });
    m_keysAction->setShortcut(Qt::Key_F1);
    if (memory != nullptr && memory->Recall(kBackdrop) == kDark)
        m_dark->trigger();
}

QAction* ViewTools::Add(const char* name, const char* tip, const std::function<void()>& run)
{
    QAction* const action = addAction(name);
    action->setToolTip(tip);
    if (run)
        connect(action, &QAction::triggered, this, run);
    return action;
}

QAction* ViewTools::AddSwitch(const char* name, const char* objectName, const char* tip,
                              const std::function<void()>& run)
{
    QAction* const action = Add(name, tip, run);
    action->setObjectName(objectName);
    action->setCheckable(true);
    return action;
}

bool ViewTools::SnapsAreOn() const
{
    return m_snaps->isChecked();
}

void ViewTools::ShowBackdrop(bool isDark)
{
    m_view.SetBackdrop(isDark ? Backdrop::Dark : Backdrop::Light);
    if (m_memory != nullptr)
        m_memory->Remember(kBackdrop, isDark ? kDark : "light");
}

} // namespace sm::qt
