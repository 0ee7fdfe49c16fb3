// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/ControlView.h"

#include "screen/QtText.h"

#include <QApplication>
#include <QWidget>

namespace sm::qt {
namespace {

/// A control without a widget: a timer, or a kind that a later table may bring.
class NoView final : public ControlView {
    void Apply(const FormControl&, const FormControl&) override {}
};

} // namespace

void Reporter::Clicked(std::size_t control)
{
    Tell(control, [&](IForm& form) { form.UserClicked(control); });
}

void Reporter::Selected(std::size_t control, std::int32_t position)
{
    Tell(control, [&](IForm& form) { form.UserSelected(control, position); });
}

void ControlView::Use(QWidget* widget, const FormControl& control)
{
    m_widget = widget;
    widget->setObjectName(ToQt(control.name));
    if (control.tabIndex < 0)
        widget->setFocusPolicy(Qt::NoFocus);
}

bool ControlView::Show(const FormControl& control)
{
    if (m_widget == nullptr)
        return false;
    Apply(control, m_last);
    if (m_isNew || control.enabled != m_last.enabled)
        m_widget->setEnabled(control.enabled);
    if (control.kind != ControlKind::TabPage && (m_isNew || control.visible != m_last.visible))
        m_widget->setVisible(control.visible);
    const bool resize = m_isNew || control.caption != m_last.caption || control.place != m_last.place;
    const bool recolor = m_isNew || control.backColor != m_last.backColor || control.maskColor != m_last.maskColor;
    m_last = control;
    m_isNew = false;
    if (recolor)
        Recolor();
    return resize;
}

void ControlView::Place(const ControlPlace& place, const FormUnits& units, int further)
{
    if (m_widget == nullptr || m_last.kind == ControlKind::TabPage) // pages fill their strip
        return;
    m_widget->setGeometry(units.Rect(place).translated(further, 0));
    Placed(units);
}

void ControlView::Recolor()
{
    if (m_widget != nullptr)
        ApplyColors(m_last);
}

QColor ColorOf(const ControlColor& color, const QPalette& palette)
{
    switch (color.role) {
    case ColorRole::ButtonFace:
        return palette.color(QPalette::Active, QPalette::Button);
    case ColorRole::Window:
        return palette.color(QPalette::Active, QPalette::Base);
    case ColorRole::Explicit:
        break;
    }
    return {color.rgb & 0xFF, (color.rgb >> 8) & 0xFF, (color.rgb >> 16) & 0xFF};
}

std::unique_ptr<ControlView> MakeControlView(const ControlSite& site)
{
    for (const auto make : {MakeButtonView, MakeFieldView, MakeListView, MakePlainView}) {
        if (auto view = make(site))
            return view;
    }
    return std::make_unique<NoView>();
}

} // namespace sm::qt
