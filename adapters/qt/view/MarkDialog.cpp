// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MarkDialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace sm::qt {

bool EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark, QWidget* owner)
{
    QDialog window(owner);
    window.setObjectName("MarkDialog");
    window.setWindowTitle("Edit Mark");
    auto* const column = new QVBoxLayout(&window);
    auto* const form = new QFormLayout;
    column->addLayout(form);
    std::vector<QLineEdit*> lines;
    for (const beside::MarkField& field : board.Fields(layout, mark)) {
        auto* const line = new QLineEdit(QString::fromStdString(field.value));
        line->setMinimumWidth(36 * line->fontMetrics().averageCharWidth());
        line->setAccessibleName(QString::fromStdString(field.label));
        form->addRow(QString::fromStdString(field.label) + ":", line);
        lines.push_back(line);
    }
    auto* const reason = new QLabel;
    reason->setObjectName("reason");
    reason->setWordWrap(true);
    reason->hide();
    column->addWidget(reason);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    column->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &window, [&] {
        std::vector<std::string> values;
        for (const QLineEdit* const line : lines)
            values.push_back(line->text().toStdString());
        const std::string why = board.Change(layout, mark, values);
        if (why.empty())
            return window.accept();
        reason->setText(QString::fromStdString(why));
        reason->show();
        QApplication::beep();
    });
    return window.exec() == QDialog::Accepted;
}

} // namespace sm::qt
