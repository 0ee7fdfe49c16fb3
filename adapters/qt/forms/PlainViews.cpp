// SPDX-License-Identifier: GPL-3.0-or-later
// What only shows or holds other controls: frames, tabs, labels, pictures, toolbars, progress bars.
#include "forms/ControlView.h"

#include "forms/Pictures.h"
#include "screen/QtText.h"

#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTabWidget>

namespace sm::qt {
namespace {

constexpr std::int32_t kTextLine = 8; ///< dialog units

/// A group box that lets its style be asked where its inside is.
class CaptionedFrame final : public QGroupBox {
public:
    using QGroupBox::QGroupBox;
    [[nodiscard]] QMargins Border() const
    {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        option.rect = QRect(0, 0, 1000, 1000);
        const QRect inside = style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxContents, this);
        return {inside.left(), inside.top(), 999 - inside.right(), 999 - inside.bottom()};
    }
};

class FrameView final : public ControlView {
public:
    explicit FrameView(const ControlSite& site) : m_frame(new CaptionedFrame(site.parent))
    {
        Use(m_frame, site.control);
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.caption != last.caption)
            m_frame->setTitle(ToQt(control.caption));
    }
    [[nodiscard]] QSize Needed() const override { return {m_frame->minimumSizeHint().width(), 0}; }
    [[nodiscard]] QMargins Border() const override { return m_frame->Border(); }
    CaptionedFrame* m_frame;
};

class StripView final : public ControlView {
public:
    explicit StripView(const ControlSite& site) : m_tabs(new QTabWidget(site.parent))
    {
        Use(m_tabs, site.control);
        m_tabs->tabBar()->setUsesScrollButtons(false); // there is always room for all, see Needed
        m_tabs->tabBar()->setElideMode(Qt::ElideNone);
        QObject::connect(
            m_tabs, &QTabWidget::currentChanged, m_tabs,
            [&reporter = site.reporter, position = site.position](int page) { reporter.Selected(position, page); });
    }

private:
    void Apply(const FormControl& control, const FormControl&) override
    {
        if (m_tabs->currentIndex() != control.selection)
            m_tabs->setCurrentIndex(control.selection);
    }
    [[nodiscard]] QSize Needed() const override { return {m_tabs->tabBar()->sizeHint().width() + 2 * Line(), 0}; }
    [[nodiscard]] QMargins Border() const override
    {
        return {Line(), m_tabs->tabBar()->sizeHint().height() + Line(), Line(), Line()};
    }
    [[nodiscard]] int Line() const
    {
        return m_tabs->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, m_tabs);
    }
    QTabWidget* m_tabs;
};

class PageView final : public ControlView {
public:
    explicit PageView(const ControlSite& site) : m_tabs(dynamic_cast<QTabWidget*>(site.parent))
    {
        auto* const page = new QWidget;
        Use(page, site.control);
        page->setAccessibleName(ToQt(site.control.caption));
        if (m_tabs != nullptr)
            m_tabs->addTab(page, QString());
        else
            page->setParent(site.parent);
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (m_tabs == nullptr)
            return;
        const int position = m_tabs->indexOf(Widget());
        if (control.caption != last.caption)
            m_tabs->setTabText(position, ToQt(control.caption));
        m_tabs->setTabVisible(position, control.visible);
    }
    QTabWidget* m_tabs;
};

class LabelView final : public ControlView {
public:
    explicit LabelView(const ControlSite& site)
        : m_label(new QLabel(site.parent)), m_wraps(site.control.place.height >= 2 * kTextLine)
    {
        Use(m_label, site.control);
        m_label->setTextFormat(Qt::PlainText);
        m_label->setWordWrap(m_wraps);
        m_label->setAlignment(Qt::AlignLeft | (m_wraps ? Qt::AlignTop : Qt::AlignVCenter));
    }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.caption != last.caption)
            m_label->setText(ToQt(control.caption));
    }
    [[nodiscard]] QSize Needed() const override
    {
        const QSize text = m_label->fontMetrics().size(Qt::TextShowMnemonic, m_label->text());
        return m_wraps ? QSize(0, 0) : text;
    }
    [[nodiscard]] bool WrapsInto(const QSize& size) const override
    {
        if (!m_wraps)
            return true;
        const QRect room(QPoint(0, 0), QSize(size.width(), 100000));
        return m_label->fontMetrics().boundingRect(room, Qt::TextWordWrap, m_label->text()).height() <= size.height();
    }
    QLabel* m_label;
    bool m_wraps;
};

class PictureView final : public ControlView {
public:
    explicit PictureView(const ControlSite& site) : m_box(new QFrame(site.parent))
    {
        Use(m_box, site.control);
        m_box->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    }

private:
    void Apply(const FormControl&, const FormControl&) override {}
    QFrame* m_box;
};

/// A label, for its role; what it shows is drawn at its own size.
class ImageLabel final : public QLabel {
public:
    using QLabel::QLabel;
    std::string picture;

private:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        PaintPicture(painter, picture, rect(), *this);
    }
};

class ImageView final : public ControlView {
public:
    explicit ImageView(const ControlSite& site)
    {
        auto* const image = new ImageLabel(site.parent);
        Use(image, site.control);
        image->picture = site.control.picture;
        image->setAccessibleName(PictureName(site.control.picture));
    }

private:
    void Apply(const FormControl&, const FormControl&) override {}
};

class ToolbarView final : public ControlView {
public:
    explicit ToolbarView(const ControlSite& site) { Use(new QWidget(site.parent), site.control); }

private:
    void Apply(const FormControl&, const FormControl&) override {}
};

class ProgressView final : public ControlView {
public:
    explicit ProgressView(const ControlSite& site) : m_bar(new QProgressBar(site.parent))
    {
        Use(m_bar, site.control);
        m_bar->setRange(0, 100);
    }

private:
    void Apply(const FormControl& control, const FormControl&) override { m_bar->setValue(control.value); }
    [[nodiscard]] QSize Needed() const override { return {0, m_bar->fontMetrics().height()}; }
    QProgressBar* m_bar;
};

} // namespace

std::unique_ptr<ControlView> MakePlainView(const ControlSite& site)
{
    switch (site.control.kind) {
    case ControlKind::Frame:
        return std::make_unique<FrameView>(site);
    case ControlKind::TabStrip:
        return std::make_unique<StripView>(site);
    case ControlKind::TabPage:
        return std::make_unique<PageView>(site);
    case ControlKind::Label:
        return std::make_unique<LabelView>(site);
    case ControlKind::Picture:
        return std::make_unique<PictureView>(site);
    case ControlKind::Image:
        return std::make_unique<ImageView>(site);
    case ControlKind::Toolbar:
        return std::make_unique<ToolbarView>(site);
    case ControlKind::ProgressBar:
        return std::make_unique<ProgressView>(site);
    default:
        return nullptr;
    }
}

} // namespace sm::qt
