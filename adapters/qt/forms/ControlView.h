// SPDX-License-Identifier: GPL-3.0-or-later
// One control of a form as a widget: shows the control's state, and reports what the user does.
#pragma once

#include "forms/FormUnits.h"
#include "ports/IFormToolkit.h"

#include <QColor>
#include <QMargins>
#include <QPalette>
#include <QSize>

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

class QWidget;

namespace sm::qt {

/// The way from the widgets to the form. Silent while the widgets are brought in step with the form.
class Reporter {
public:
    explicit Reporter(IForm& form) : m_form(form) {}

    /// Set by the view: shows a control anew, after each report of it, since the form may have refused what the widget
    /// has done already.
    std::function<void(std::size_t control)> showAnew;

    template <class Report> void Tell(std::size_t control, const Report& report)
    {
        if (m_silent > 0)
            return;
        report(m_form);
        showAnew(control);
    }
    void Clicked(std::size_t control);
    void Selected(std::size_t control, std::int32_t position);

    class Silence {
    public:
        explicit Silence(Reporter& reporter) : m_reporter(reporter) { ++m_reporter.m_silent; }
        ~Silence() { --m_reporter.m_silent; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        Reporter& m_reporter;
    };

private:
    IForm& m_form;
    int m_silent = 0;
};

/// A widget belongs to its parent widget, the view of it to the form's view.
class ControlView {
public:
    ControlView() = default;
    virtual ~ControlView() = default;
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    /// Null for a control that is never seen.
    [[nodiscard]] QWidget* Widget() const { return m_widget; }
    /// Brings the widget in step. True when it may need another size now.
    bool Show(const FormControl& control);
    /// Takes over the desktop's colours anew.
    void Recolor();
    /// Pixels without which something of the control could not be read; 0 in a direction that doesn't matter.
    [[nodiscard]] virtual QSize Needed() const { return {0, 0}; }
    /// Pixels at the edges that border and caption take from what lies inside.
    [[nodiscard]] virtual QMargins Border() const { return {}; }
    /// False when a caption of several lines needs more room than `size`.
    [[nodiscard]] virtual bool WrapsInto(const QSize&) const { return true; }
    /// `further` pixels to the right of its place.
    void Place(const ControlPlace& place, const FormUnits& units, int further);

protected:
    void Use(QWidget* widget, const FormControl& control);
    /// `last` is what was shown before. What the user can change is compared with the widget instead.
    virtual void Apply(const FormControl& control, const FormControl& last) = 0;
    virtual void ApplyColors(const FormControl&) {}
    /// The widget has got its place.
    virtual void Placed(const FormUnits&) {}

private:
    QWidget* m_widget = nullptr;
    FormControl m_last;
    bool m_isNew = true;
};

/// What a view is made from; `clickable` when something happens on a press.
struct ControlSite {
    const FormControl& control;
    std::size_t position;
    QWidget* parent;
    Reporter& reporter;
    bool clickable;
    bool isNumeric = false; ///< a text box that is brought into a number's form
};

std::unique_ptr<ControlView> MakeControlView(const ControlSite& site);

// One function for each family of kinds; null for a kind of another family.
std::unique_ptr<ControlView> MakeButtonView(const ControlSite& site);
std::unique_ptr<ControlView> MakeFieldView(const ControlSite& site);
std::unique_ptr<ControlView> MakeListView(const ControlSite& site);
std::unique_ptr<ControlView> MakePlainView(const ControlSite& site);

QColor ColorOf(const ControlColor& color, const QPalette& palette);

} // namespace sm::qt
