// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/ProgressWindow.h"

#include "screen/QtText.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace sm::qt {

QString TimeLeft(std::int32_t index, std::int32_t count, qint64 elapsedMilliseconds)
{
    if (index < 2 || count < index)
        return {};
    const qint64 seconds = elapsedMilliseconds * (count - index + 1) / (index - 1) / 1000;
    constexpr qint64 kMinute = 60, kRound = 5;
    if (seconds >= 2 * kMinute)
        return QStringLiteral("about %1 minutes left").arg((seconds + kMinute / 2) / kMinute);
    return QStringLiteral("about %1 seconds left").arg((seconds / kRound + 1) * kRound);
}

ProgressWindow::ProgressWindow()
    : m_sheet(new QLabel), m_left(new QLabel), m_bar(new QProgressBar), m_cancel(new QPushButton("Cancel"))
{
    setObjectName("ProgressWindow");
    setWindowTitle("Making PDF");
    setWindowModality(Qt::ApplicationModal);
    auto* const column = new QVBoxLayout(this);
    m_sheet->setObjectName("sheet");
    m_sheet->setMinimumWidth(60 * fontMetrics().averageCharWidth());
    column->addWidget(m_sheet);
    m_bar->setObjectName("bar");
    m_bar->setAccessibleName("Sheets");
    m_bar->setFormat("%v of %m");
    column->addWidget(m_bar);
    auto* const row = new QHBoxLayout;
    m_left->setObjectName("left");
    row->addWidget(m_left, 1);
    m_cancel->setObjectName("cancel");
    connect(m_cancel, &QPushButton::clicked, this, [this] { reject(); });
    row->addWidget(m_cancel);
    column->addLayout(row);
}

void ProgressWindow::Tell(const beside::RunProgress& progress)
{
    if (!m_since.isValid())
        m_since.start();
    const QString name = ToQt(progress.sheet);
    m_sheet->setText(QStringLiteral("Sheet %1 of %2: %3").arg(progress.index).arg(progress.count).arg(name));
    m_bar->setRange(0, progress.count);
    m_bar->setValue(progress.index - 1);
    if (!m_isCancelled)
        m_left->setText(TimeLeft(progress.index, progress.count, m_since.elapsed()));
    if (!isVisible())
        show();
    constexpr int kLongest = 100; // ms, that painting may take from the run
    QApplication::processEvents(QEventLoop::AllEvents, kLongest);
}

void ProgressWindow::reject()
{
    m_isCancelled = true;
    m_cancel->setEnabled(false);
    m_left->setText("Cancelled: the former PDF stays");
}

} // namespace sm::qt
