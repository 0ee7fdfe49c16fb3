// SPDX-License-Identifier: GPL-3.0-or-later
// All nine forms in the real toolkit, at the normal and at a doubled font: nothing is cut off, and what they look like
// is kept beside the build.
#include "qt/QtUser.h"

#include "doubles/TestHouse.h"
#include "ui/FilledForms.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPalette>
#include <QPixmap>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTreeWidget>

namespace sm::qt {
namespace {

std::string Plain(const QString& caption)
{
    return QString(caption).remove(QLatin1Char('&')).toStdString();
}

/// Pixels that the widget's own text takes, and those it has for it.
std::pair<int, int> TextRoom(const QWidget& widget)
{
    if (const auto* const label = dynamic_cast<const QLabel*>(&widget)) {
        if (label->wordWrap()) // height instead of width
            return {label->heightForWidth(label->width()), label->height()};
        return {label->sizeHint().width(), label->width()};
    }
    if (dynamic_cast<const QCheckBox*>(&widget) != nullptr || dynamic_cast<const QRadioButton*>(&widget) != nullptr)
        return {widget.sizeHint().width(), widget.width()};
    if (const auto* const button = dynamic_cast<const QAbstractButton*>(&widget))
        return {widget.fontMetrics().horizontalAdvance(QString::fromStdString(Plain(button->text()))) + 6,
                widget.width()};
    if (const auto* const frame = dynamic_cast<const QGroupBox*>(&widget))
        return {frame->minimumSizeHint().width(), frame->width()};
    if (const auto* const bar = dynamic_cast<const QTabBar*>(&widget))
        return {bar->sizeHint().width(), bar->parentWidget()->width()};
    return {0, 0};
}

/// How much of a picture is brighter than a middle grey.
double BrightShare(const QImage& image)
{
    int bright = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            bright += qGray(image.pixel(x, y)) > 127 ? 1 : 0;
    return static_cast<double>(bright) / std::max(1, image.width() * image.height());
}

/// White and yellow on black, as those choose it who see little.
QPalette HighContrast()
{
    QPalette palette(Qt::white, Qt::black, Qt::white, Qt::darkGray, Qt::gray, Qt::white, Qt::white, Qt::black,
                     Qt::black);
    palette.setColor(QPalette::Highlight, Qt::yellow);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    return palette;
}

/// Neither cut off by its parent nor too small for what is written on it.
void ExpectReadable(const QWidget& window, const FormControl& control)
{
    const auto* const widget = window.findChild<QWidget*>(QString::fromStdString(control.name));
    if (widget == nullptr) {
        EXPECT_EQ(control.kind, ControlKind::Timer) << control.name;
        return;
    }
    if (!widget->isVisible())
        return;
    SCOPED_TRACE(window.objectName().toStdString() + "." + control.name);
    const auto [needed, room] = TextRoom(*widget);
    EXPECT_LE(needed, room) << "its text is cut off";
    EXPECT_LE(widget->fontMetrics().height(), std::max(widget->height(), control.place.height == 0 ? 1000 : 0));
    if (control.kind != ControlKind::TabPage) {
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << "it reaches beyond its parent";
    }
}

class Screenshots : public TestHouse {
protected:
    Screenshots()
    {
        BeginCall();
        TheScreen();
    }
    ~Screenshots() override
    {
        QApplication::setFont(m_font);
        QApplication::setPalette(m_palette);
    }
    void Darken()
    {
        m_isDark = true;
        QApplication::setPalette(HighContrast());
    }
    void Double()
    {
        QFont font = m_font;
        font.setPointSizeF(font.pointSizeF() * 2);
        QApplication::setFont(font);
    }
    void Keep(const std::string& name)
    {
        const auto file =
            QStringLiteral(SM_SCREENS "/") + QString::fromStdString(name + ".png").remove(QLatin1Char(' '));
        const QPixmap picture = QtUser::Window()->grab();
        EXPECT_TRUE(picture.save(file));
        if (m_isDark) {
            const double bright = BrightShare(picture.toImage());
            EXPECT_LT(bright, 0.3) << name << ": something keeps its own light ground";
            EXPECT_GT(bright, 0.002) << name << ": nothing can be read";
        }
    }
    static void ExpectAllReadable(const Form& form)
    {
        for (const FormControl& control : form.Controls()) {
            if (control.kind != ControlKind::FormWindow)
                ExpectReadable(*QtUser::Window(), control);
        }
    }
    void Look(Form& form, const std::string& scale)
    {
        WhenShown([&] {
            ExpectAllReadable(form);
            if (auto* const tabs = QtUser::Window()->findChild<QTabWidget*>())
                LookAtTabs(form, *tabs, scale);
            else
                Keep(form.Name() + "-" + scale);
            form.Hide();
        });
        EXPECT_TRUE(form.ShowModal());
    }
    void LookAtTabs(Form& form, QTabWidget& tabs, const std::string& scale)
    {
        for (int i = 0; i < tabs.count(); ++i) {
            tabs.setCurrentIndex(i);
            QtUser::Rest();
            ExpectAllReadable(form);
            Keep(form.Name() + "-" + Plain(tabs.tabText(i)) + "-" + scale);
        }
    }
    void LookAtAll(const std::string& scale)
    {
        FormSession session{context, TheScreen().Toolkit(), {}};
        NineForms forms(session);
        FillForms(forms);
        forms.gui.OnceShown = nullptr;
        for (Form* form : forms.All()) {
            if (form != &forms.progress)
                Look(*form, scale);
        }
        forms.progress.Scan = [&] {
            forms.progress.Advance(42);
            Keep("frmProgress-" + scale);
        };
        EXPECT_TRUE(forms.progress.ShowModal());
    }

private:
    QFont m_font = (TheScreen(), QApplication::font());
    QPalette m_palette = QApplication::palette();
    bool m_isDark = false;
};

TEST_F(Screenshots, NothingIsCutOffAtTheNormalFont)
{
    LookAtAll("1x");
    (void)Log();
}

TEST_F(Screenshots, NothingIsCutOffAtADoubledFont)
{
    Double();
    LookAtAll("2x");
    (void)Log();
}

TEST_F(Screenshots, FollowTheColoursOfHighContrast)
{
    Darken();
    LookAtAll("contrast");
    (void)Log();
}

/// The program's own messages, with the texts that they have in use.
TEST_F(Screenshots, LongMessagesAreReadable)
{
    const std::pair<const char*, Message> rows[] = {
        {"reminder",
         {"To properly transfer block attributes to PDF file properties, the block names and attribute\r\ntag strings "
          "must only contain letters and numbers. All punctuation characters will be \r\nconverted to the '-' "
          "character "
          "and trailing punctuation will be removed.\r\n\r\nWould you like to be reminded of this in the future?",
          "Tarnwick Sheetmaker PDF", MessageButtons::YesNo, MessageIcon::Question, "", 410}},
        {"unknown",
         {"An unknown error occurred during Sheetmaker PDF execution. It is suggested that you send an email\r\nto "
          "Tarnwick Technical Support at support@tarnwick.example and attach the Log File that was created. "
          "\r\n\r\nWould you like to view the log file now?",
          "Tarnwick Sheetmaker PDF", MessageButtons::OkCancel, MessageIcon::Critical, "", 170}}};
    for (const auto& [name, message] : rows) {
        WhenShown([&, file = std::string("message-") + name + "-1x"] {
            const auto* const text = QtUser::Window()->findChild<QLabel*>("qt_msgbox_label");
            EXPECT_LE(text->heightForWidth(text->width()), text->height());
            EXPECT_GE(text->width(), text->fontMetrics().size(0, text->text()).width()) << "its own lines stay whole";
            Keep(file);
            QtUser::Key(Qt::Key_Return);
        });
        TheScreen().Desktop().ShowMessage(message);
    }
}

/// Styles of other desktops differ in margins, borders and the place of captions.
TEST_F(Screenshots, NothingIsCutOffInAnyStyle)
{
    const QString before = QApplication::style()->name();
    for (const QString& style : QStyleFactory::keys()) {
        SCOPED_TRACE(style.toStdString());
        QApplication::setStyle(style);
        LookAtAll(style.toLower().toStdString());
    }
    QApplication::setStyle(before);
    (void)Log();
}

} // namespace
} // namespace sm::qt
