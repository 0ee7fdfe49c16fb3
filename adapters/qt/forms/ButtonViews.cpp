// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that is pressed: buttons, check boxes, options, tool buttons, the colour button, images to press.
#include "forms/ControlView.h"

#include "forms/Pictures.h"
#include "screen/QtText.h"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QToolButton>

namespace sm::qt {
namespace {

/// What all of them have in common. A mnemonic takes the keyboard along, so that the field it leaves is done with
/// before the button acts.
class PressView : public ControlView {
protected:
    void UseButton(QAbstractButton* button, const ControlSite& site)
    {
        Use(button, site.control);
        QObject::connect(button, &QAbstractButton::pressed, button, [button] {
            if (button->focusPolicy() == Qt::StrongFocus && !button->hasFocus())
                button->setFocus(Qt::ShortcutFocusReason);
        });
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [&reporter = site.reporter, position = site.position] { reporter.Clicked(position); });
    }
    void Apply(const FormControl& control, const FormControl& last) override
    {
        if (control.caption != last.caption)
            Button()->setText(ToQt(control.caption));
    }
    [[nodiscard]] QAbstractButton* Button() const { return static_cast<QAbstractButton*>(Widget()); }
    [[nodiscard]] QSize Needed() const override { return Widget()->sizeHint(); }
};

class CheckView final : public PressView {
public:
    explicit CheckView(const ControlSite& site) { UseButton(new QCheckBox(site.parent), site); }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        PressView::Apply(control, last);
        Button()->setChecked(control.value != 0);
    }
};

/// Options with the same parent belong together, for the arrow keys as well.
class OptionView final : public PressView {
public:
    explicit OptionView(const ControlSite& site) { UseButton(new QRadioButton(site.parent), site); }

private:
    void Apply(const FormControl& control, const FormControl& last) override
    {
        PressView::Apply(control, last);
        if (Button()->isChecked() == (control.value != 0))
            return;
        Button()->setAutoExclusive(false); // else the last ticked one of a group can't be unticked
        Button()->setChecked(control.value != 0);
        Button()->setAutoExclusive(true);
    }
};

/// Room that a style's push button takes round its text.
QSize ButtonPadding(const QPushButton& button)
{
    constexpr QSize kWide{500, 100}; // beyond any least size that a style has
    QStyleOptionButton option;
    option.initFrom(&button);
    if (button.isDefault())
        option.features |= QStyleOptionButton::DefaultButton;
    return button.style()->sizeFromContents(QStyle::CT_PushButton, &option, kWide, &button) - kWide;
}

class CommandView final : public PressView {
public:
    explicit CommandView(const ControlSite& site) : m_button(new QPushButton(site.parent))
    {
        UseButton(m_button, site);
        m_button->setAutoDefault(false); // Enter is the form's to understand
        m_button->setDefault(site.control.isDefault);
    }

private:
    [[nodiscard]] QSize Needed() const override
    {
        return m_button->fontMetrics().size(Qt::TextShowMnemonic, m_button->text()) + ButtonPadding(*m_button);
    }
    QPushButton* m_button;
};

/// A button whose face is a patch of its colour.
class ColorButton final : public QPushButton {
public:
    using QPushButton::QPushButton;
    QColor patch, mask;

private:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
        const int margin = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this) + 3;
        const QRect inside = rect().adjusted(margin, margin, -margin, -margin);
        painter.fillRect(inside, mask);
        painter.setOpacity(isEnabled() ? 1.0 : 0.3);
        painter.setPen(palette().color(QPalette::Shadow));
        painter.setBrush(patch);
        painter.drawRect(inside.adjusted(0, 0, -1, -1));
        painter.setOpacity(1.0);
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = inside.adjusted(2, 2, -2, -2);
            focus.backgroundColor = patch;
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
    }
};

class ColorView final : public PressView {
public:
    explicit ColorView(const ControlSite& site) : m_button(new ColorButton(site.parent))
    {
        UseButton(m_button, site);
        m_button->setAutoDefault(false);
    }

private:
    void ApplyColors(const FormControl& control) override
    {
        m_button->patch = ColorOf(control.backColor, QApplication::palette());
        m_button->mask = ColorOf(control.maskColor, QApplication::palette());
        m_button->setAccessibleDescription(m_button->patch.name());
        m_button->update();
    }
    [[nodiscard]] QSize Needed() const override { return {0, 0}; }
    ColorButton* m_button;
};

/// The text box keeps the keyboard while tool buttons are pressed with the mouse.
class ToolView final : public PressView {
public:
    explicit ToolView(const ControlSite& site)
    {
        auto* const button = new QToolButton(site.parent);
        UseButton(button, site);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        if (site.control.tabIndex >= 0)
            button->setFocusPolicy(Qt::TabFocus);
    }
};

/// An image on which something happens when it is pressed; the keyboard gets there, too.
class PictureButton final : public QPushButton {
public:
    using QPushButton::QPushButton;
    std::string picture;

private:
    void paintEvent(QPaintEvent*) override
    {
        QStylePainter painter(this);
        PaintPicture(painter, picture, rect(), *this);
        if (!hasFocus())
            return;
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(1, 1, -1, -1);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
};

class PictureButtonView final : public PressView {
public:
    explicit PictureButtonView(const ControlSite& site)
    {
        auto* const button = new PictureButton(site.parent);
        UseButton(button, site);
        button->picture = site.control.picture;
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setCursor(Qt::PointingHandCursor);
        button->setAccessibleName(PictureName(site.control.picture));
    }

private:
    [[nodiscard]] QSize Needed() const override { return {0, 0}; }
};

} // namespace

std::unique_ptr<ControlView> MakeButtonView(const ControlSite& site)
{
    switch (site.control.kind) {
    case ControlKind::CheckBox:
        return std::make_unique<CheckView>(site);
    case ControlKind::OptionButton:
        return std::make_unique<OptionView>(site);
    case ControlKind::CommandButton:
        return std::make_unique<CommandView>(site);
    case ControlKind::ColorButton:
        return std::make_unique<ColorView>(site);
    case ControlKind::ToolButton:
        return std::make_unique<ToolView>(site);
    case ControlKind::Image:
        return site.clickable ? std::make_unique<PictureButtonView>(site) : nullptr;
    default:
        return nullptr;
    }
}

} // namespace sm::qt
