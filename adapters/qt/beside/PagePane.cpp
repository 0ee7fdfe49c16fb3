// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/PagePane.h"

#include "marks/PageMarks.h"
#include "screen/QtText.h"

#include <QLabel>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace sm::qt {

PagePane::PagePane(beside::IPageSource& source)
    : m_view(new DrawingView), m_trouble(new QLabel),
      m_drawer(
          source,
          [this](std::function<void()> work) {
              QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
          },
          [this](DrawnPreview drawn) { Show(std::move(drawn)); })
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    m_view->setObjectName("page");
    m_view->setMinimumSize(160, 120);
    m_view->setAccessibleName("Preview");
    m_view->setAccessibleDescription("The page that would come out of the current tab");
    m_view->paintOver = [this](QPainter& painter) {
        if (m_shown.picture != nullptr)
            PaintPageMarks(painter, m_shown.page.marks, m_view->Map());
    };
    column->addWidget(m_view, 1);
    m_trouble->setObjectName("trouble");
    m_trouble->setWordWrap(true);
    m_trouble->hide();
    column->addWidget(m_trouble);
}

void PagePane::Show(DrawnPreview drawn)
{
    m_shown = std::move(drawn);
    m_view->setAccessibleDescription(m_shown.picture == nullptr ? QStringLiteral("No page")
                                                                : QStringLiteral("A page of %1 x %2 mm with %3 mark%4")
                                                                      .arg(std::lround(m_shown.page.width))
                                                                      .arg(std::lround(m_shown.page.height))
                                                                      .arg(m_shown.page.marks.size())
                                                                      .arg(m_shown.page.marks.size() == 1 ? "" : "s"));
    m_trouble->setText(ToQt(m_shown.page.trouble));
    m_trouble->setVisible(!m_shown.page.trouble.empty());
    const auto view = m_shown.picture != nullptr && m_size == m_shown.page.width * m_shown.page.height
                          ? (m_left ? std::exchange(m_left, std::nullopt) : m_view->OwnMap())
                          : std::nullopt;
    m_size = m_shown.page.width * m_shown.page.height;
    m_view->SetPicture(m_shown.picture);
    if (view)
        m_view->SetMap(*view); // the user looks at a part of it
}

/// While a point is picked, the drawing's window needs the memory.
void PagePane::hideEvent(QHideEvent*)
{
    m_drawer.Forget();
    m_left = m_view->OwnMap();
    m_shown = {};
    m_view->SetPicture(nullptr);
}

} // namespace sm::qt
