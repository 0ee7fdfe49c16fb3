// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/MarkEditor.h"

#include "marks/PageMarks.h"
#include "view/MarkDialog.h"

#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

#include <cmath>

namespace sm::qt {
namespace {

constexpr const char* kHowTo = "Drag a mark to its place; double-click it, or press Edit, to change it. Escape ends.";
constexpr double kMoved = 3; // pixels, below which a press is no drag

QString TitleOf(const beside::PageMark& mark)
{
    switch (mark.kind) {
    case beside::PageMarkKind::Stamp:
        return "Stamp " + QString::fromStdString(mark.text);
    case beside::PageMarkKind::Attachment:
        return "Attachment " + QFileInfo(QString::fromStdString(mark.text)).fileName();
    case beside::PageMarkKind::Field:
        return "Signature field " + QString::fromStdString(mark.text);
    case beside::PageMarkKind::Link:
        break;
    }
    return QString::fromStdString(mark.text);
}

} // namespace

MarkEditor::MarkEditor(DrawingView& view)
    : m_view(view), m_list(new QComboBox), m_edit(new QPushButton("&Edit...")), m_hint(new QLabel(kHowTo))
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
        m_edit->setEnabled(mark >= 0);
        m_view.update();
    });
    connect(m_edit, &QPushButton::clicked, this, [this] { Edit(); });
    hide();
}

void MarkEditor::Use(beside::IMarkBoard* board)
{
    m_board = board;
    setVisible(board != nullptr);
    m_view.marks = {};
    m_marks.clear();
    if (board == nullptr)
        return;
    m_view.marks.press = [this](Vec2 pixel) { Grab(pixel); };
    m_view.marks.move = [this](Vec2 pixel) { Drag(pixel); };
    m_view.marks.release = [this](Vec2 pixel) { Drop(pixel); };
    m_view.marks.twice = [this](Vec2 pixel) {
        Grab(pixel);
        m_from.reset();
        Edit();
    };
}

void MarkEditor::ShowLayout(const std::string& layout, std::shared_ptr<const LayoutPicture> picture)
{
    m_layout = layout;
    m_picture = std::move(picture);
    m_from.reset();
    if (m_board != nullptr)
        Fill();
}

void MarkEditor::Fill()
{
    const int chosen = m_list->currentIndex();
    m_marks = m_board->MarksOn(m_layout);
    {
        const QSignalBlocker silent(m_list);
        m_list->clear();
        for (const beside::PageMark& mark : m_marks)
            m_list->addItem(TitleOf(mark));
        m_list->setCurrentIndex(chosen < m_list->count() ? chosen : -1);
    }
    m_edit->setEnabled(m_list->currentIndex() >= 0);
    m_hint->setText(m_marks.empty() ? "This layout has no marks." : kHowTo);
    m_view.update();
}

std::vector<beside::PageMark> MarkEditor::Marks() const
{
    std::vector<beside::PageMark> marks = m_marks;
    const int held = m_list->currentIndex();
    if (m_from && held >= 0) {
        beside::PageMark& mark = marks[static_cast<std::size_t>(held)];
        mark.from = mark.from + m_by;
        mark.to = mark.to + m_by;
    }
    return marks;
}

beside::PageMark MarkEditor::InScene(const beside::PageMark& mark) const
{
    beside::PageMark there = mark;
    there.from = m_picture->map.ToScene(mark.from);
    there.to = m_picture->map.ToScene(mark.to);
    return there;
}

std::optional<std::size_t> MarkEditor::MarkAt(Vec2 pixel) const
{
    for (std::size_t i = m_marks.size(); m_picture != nullptr && i-- > 0;)
        if (MarkBox(InScene(m_marks[i]), m_view.Map(), m_picture->paper.has_value())
                .adjusted(-2, -2, 2, 2)
                .contains(pixel.x, pixel.y))
            return i;
    return std::nullopt;
}

void MarkEditor::Grab(Vec2 pixel)
{
    const auto mark = MarkAt(pixel);
    m_list->setCurrentIndex(mark ? static_cast<int>(*mark) : -1);
    m_from = mark ? std::optional(m_view.Map().ToScene(pixel)) : std::nullopt;
    m_by = {};
}

void MarkEditor::Drag(Vec2 pixel)
{
    if (!m_from)
        return;
    const Vec2 to = m_view.Map().ToScene(pixel);
    m_by = m_picture->map.ToDrawing(to) - m_picture->map.ToDrawing(*m_from);
    m_view.update();
}

void MarkEditor::Drop(Vec2 pixel)
{
    if (!m_from || m_board == nullptr)
        return;
    const Vec2 from = m_view.Map().ToPixel(*m_from);
    Drag(pixel);
    m_from.reset();
    const bool isMoved = std::hypot(pixel.x - from.x, pixel.y - from.y) >= kMoved;
    if (isMoved)
        Tell(m_board->Move(m_layout, static_cast<std::size_t>(m_list->currentIndex()), m_by));
}

void MarkEditor::Edit()
{
    const int mark = m_list->currentIndex();
    if (m_board != nullptr && mark >= 0 && EditMark(*m_board, m_layout, static_cast<std::size_t>(mark), window()))
        Tell({});
    m_view.setFocus();
}

void MarkEditor::Tell(const std::string& reason)
{
    Fill();
    if (reason.empty())
        return;
    m_hint->setText(QString::fromStdString(reason));
    QApplication::beep();
}

void MarkEditor::Paint(QPainter& painter) const
{
    const int chosen = m_list->currentIndex();
    if (m_board == nullptr || m_picture == nullptr || chosen < 0)
        return;
    const beside::PageMark mark = Marks()[static_cast<std::size_t>(chosen)];
    painter.setPen(QPen(QColor(0xD0, 0x30, 0x00), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(MarkBox(InScene(mark), m_view.Map(), m_picture->paper.has_value()).adjusted(-3, -3, 3, 3));
}

} // namespace sm::qt
