// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/TextWindow.h"

#include "screen/WindowSize.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScreen>
#include <QVBoxLayout>

namespace sm::qt {

bool ShowTextFile(const QString& path, const QString& title, QWidget* owner, beside::IWindowMemory* memory)
{
    constexpr qint64 kMost = qint64{4} << 20; // bytes, from the end on
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (file.size() > kMost)
        file.seek(file.size() - kMost);
    QDialog window(owner);
    window.setObjectName("TextWindow");
    window.setWindowTitle(title);
    auto* const column = new QVBoxLayout(&window);
    auto* const text = new QPlainTextEdit(QString::fromUtf8(file.readAll()));
    text->setObjectName("text");
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->moveCursor(QTextCursor::End);
    column->addWidget(text, 1);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
    column->addWidget(buttons);
    const QSize wanted(90 * window.fontMetrics().averageCharWidth(), 32 * window.fontMetrics().height());
    window.resize(wanted.boundedTo(window.screen()->availableGeometry().size() * 9 / 10));
    RecallSize(window, "Text", memory);
    window.exec();
    RememberSize(window, "Text", memory);
    return true;
}

} // namespace sm::qt
