#include "beside/PagePane.h"

#include "picture/DisplayRecorder.h"
#include "screen/QtText.h"

#include <QLabel>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace sm::qt {
namespace {

using beside::PageMark;
using beside::PageMarkKind;

/// Families that stand for the fonts that every PDF reader brings along.
QFont StampFont(const std::string& name)
{
    const QString font = ToQt(name);
    QFont result(font.startsWith("Courier") ? "Liberation Mono"
                 : font.startsWith("Times") ? "Liberation Serif"
                                            : "Liberation Sans");
    result.setStyleHint(font.startsWith("Courier") ? QFont::Monospace
                        : font.startsWith("Times") ? QFont::Serif
                                                   : QFont::SansSerif);
    result.setBold(font.contains("Bold"));
    result.setItalic(font.contains("Oblique") || font.contains("Italic"));
    return result;
}

void PaintStamp(QPainter& painter, const PageMark& mark, QPointF at, double scale)
{
    constexpr double kEm = 100; // pixels that the text is set in, before it is scaled
    QFont font = StampFont(mark.font);
    font.setPixelSize(static_cast<int>(kEm));
    painter.save();
    painter.translate(at);
    painter.rotate(-mark.turn);
    painter.scale(mark.size * scale / kEm, mark.size * scale / kEm);
    painter.setFont(font);
    painter.setPen(QColor(mark.color & 0xFF, (mark.color >> 8) & 0xFF, (mark.color >> 16) & 0xFF));
    const QString text = ToQt(mark.text);
    const double width = QFontMetricsF(font).horizontalAdvance(text);
    painter.drawText(QPointF(-width * mark.justification / 2, 0), text);
    painter.restore();
}

void PaintFrame(QPainter& painter, const PageMark& mark, const QRectF& box, QColor color, Qt::PenStyle style)
{
    painter.setPen(QPen(color, 1, style));
    color.setAlpha(0x20);
    painter.fillRect(box, color);
    painter.drawRect(box);
    if (mark.kind == PageMarkKind::Field)
        painter.drawText(box, Qt::AlignCenter, ToQt(mark.text));
}

void PaintClip(QPainter& painter, QPointF at)
{
    const QRectF sheet(at + QPointF(0, -12), QSizeF(9, 12));
    painter.fillRect(sheet, QColor(0xFF, 0xF0, 0xA0));
    painter.setPen(QColor(0x60, 0x50, 0x00));
    painter.drawRect(sheet);
    for (const int line : {3, 6, 9})
        painter.drawLine(sheet.topLeft() + QPointF(2, line), sheet.topLeft() + QPointF(7, line));
}

} // namespace

void PaintPageMarks(QPainter& painter, const std::vector<PageMark>& marks, const ViewMap& map)
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PageMark& mark : marks) {
        const Vec2 from = map.ToPixel(mark.from), to = map.ToPixel(mark.to);
        const QRectF box = QRectF(QPointF(from.x, from.y), QPointF(to.x, to.y)).normalized();
        switch (mark.kind) {
        case PageMarkKind::Stamp:
            PaintStamp(painter, mark, {from.x, from.y}, map.scale);
            break;
        case PageMarkKind::Attachment:
            PaintClip(painter, {from.x, from.y});
            break;
        case PageMarkKind::Field:
            PaintFrame(painter, mark, box, QColor(0x20, 0x60, 0xC0), Qt::SolidLine);
            break;
        case PageMarkKind::Link:
            PaintFrame(painter, mark, box, QColor(0x00, 0x80, 0x60), Qt::DotLine);
            break;
        }
    }
}

DrawnPreview DrawPreview(beside::IPageSource& source, const std::atomic<bool>& stop)
{
    DisplayRecorder recorder;
    DrawnPreview drawn{nullptr, source.Draw(recorder, stop)};
    if (stop || drawn.page.width <= 0 || drawn.page.height <= 0)
        return drawn;
    auto picture = std::make_shared<LayoutPicture>();
    picture->list = recorder.TakeList();
    picture->paper = Box2{{0, 0}, {drawn.page.width, drawn.page.height}};
    picture->home = *picture->paper;
    drawn.picture = std::move(picture);
    return drawn;
}

PagePane::PagePane(beside::IPageSource& source) : m_source(source), m_view(new DrawingView), m_trouble(new QLabel)
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

PagePane::~PagePane()
{
    Stop();
}

void PagePane::Renew()
{
    if (!m_source.Renew())
        return;
    m_again = IsBusy();
    if (m_again)
        m_stop = true;
    else
        Begin();
}

void PagePane::Begin()
{
    m_again = false;
    m_stop = false;
    m_thread = std::thread([this] {
        auto drawn = std::make_shared<DrawnPreview>(DrawPreview(m_source, m_stop));
        QMetaObject::invokeMethod(
            this, [this, drawn] { Take(std::move(*drawn)); }, Qt::QueuedConnection);
    });
}

void PagePane::Take(DrawnPreview drawn)
{
    m_thread.join();
    if (m_again)
        return Begin();
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
                          ? m_view->OwnMap()
                          : std::nullopt;
    m_size = m_shown.page.width * m_shown.page.height;
    m_view->SetPicture(m_shown.picture);
    if (view)
        m_view->SetMap(*view); // the user looks at a part of it
}

void PagePane::Stop()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace sm::qt
