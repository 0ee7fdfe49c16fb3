// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MarkPane.h"

#include "marks/PageMarks.h"
#include "screen/QtText.h"
#include "view/MarkDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

namespace sm::qt {

MarkPane::MarkPane(DrawingView& view)
    : m_view(view), m_list(new QComboBox), m_edit(new QPushButton("&Edit...")), m_hint(new QLabel)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    m_list->setObjectName("marks");
    m_list->setAccessibleName("Marks");
    m_list->setPlaceholderText("No mark is chosen");
    m_list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_list->setMinimumWidth(30 * fontMetrics().averageCharWidth());
    m_edit->setObjectName("edit");
    m_hint->setObjectName("markHint");
    m_hint->setWordWrap(true);
    row->addWidget(m_list);
    row->addWidget(m_edit);
    row->addWidget(m_hint, 1);
    connect(m_list, &QComboBox::currentIndexChanged, this, [this](int mark) {
        if (onChoose)
            onChoose(mark >= 0 ? std::optional(static_cast<std::size_t>(mark)) : std::nullopt);
    });
    connect(m_edit, &QPushButton::clicked, this, [this] {
        if (onEdit)
            onEdit();
    });
    hide();
}

Box2 MarkPane::BoxOf(const beside::PageMark& mark) const
{
    const QRectF box = MarkBox(mark, m_view.Map());
    return {{box.left(), box.top()}, {box.right(), box.bottom()}};
}

void MarkPane::ListMarks(const std::vector<std::string>& titles)
{
    const QSignalBlocker silent(m_list);
    m_list->clear();
    for (const std::string& title : titles)
        m_list->addItem(ToQt(title));
}

void MarkPane::ShowChosen(std::optional<std::size_t> mark)
{
    const QSignalBlocker silent(m_list);
    m_list->setCurrentIndex(mark ? static_cast<int>(*mark) : -1);
    m_edit->setEnabled(mark.has_value());
}

void MarkPane::ShowHint(const std::string& text)
{
    m_hint->setText(ToQt(text));
}

void MarkPane::Beep()
{
    QApplication::beep();
}

bool MarkPane::EditMark(beside::IMarkBoard& board, const std::string& layout, std::size_t mark)
{
    const bool isChanged = qt::EditMark(board, layout, mark, window());
    m_view.setFocus();
    return isChanged;
}

} // namespace sm::qt
