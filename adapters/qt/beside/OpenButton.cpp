// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/OpenButton.h"

#include "screen/QtText.h"

#include <QFileInfo>
#include <QMenu>

namespace sm::qt {

OpenButton::OpenButton(beside::IDrawings& drawings) : m_drawings(drawings)
{
    setObjectName("open");
    setText("&Open Drawing...");
    setAccessibleName("Open Drawing...");
    setToolTip("Goes on with another drawing (Ctrl+O, or drop one on the window); the arrow lists recent ones");
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setPopupMode(QToolButton::MenuButtonPopup);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setMenu(new QMenu(this));
    menu()->setObjectName("recent");
    menu()->setToolTipsVisible(true);
    connect(menu(), &QMenu::aboutToShow, this, [this] { FillMenu(); });
    connect(this, &QToolButton::clicked, this, [this] {
        if (onOpen)
            onOpen(std::nullopt);
    });
}

void OpenButton::FillMenu()
{
    menu()->clear();
    int number = 0;
    for (const std::string& path : m_drawings.Recent()) {
        const QString name = QFileInfo(ToQt(path)).fileName().replace('&', "&&");
        ++number;
        const QString caption = number < 10 ? QString("&%1  %2").arg(number).arg(name) : name;
        QAction* const action = menu()->addAction(caption);
        action->setToolTip(ToQt(path));
        connect(action, &QAction::triggered, this, [this, path] {
            if (onOpen)
                onOpen(path);
        });
    }
    if (menu()->isEmpty())
        menu()->addAction("No other drawing was opened lately")->setEnabled(false);
}

} // namespace sm::qt
