// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/QtFormView.h"

#include "forms/QtForms.h"
#include "forms/SpokenNames.h"
#include "screen/ClosesOnSignal.h"
#include "screen/QtText.h"

#include <QApplication>
#include <QLabel>
#include <QTabWidget>

#include <algorithm>

namespace sm::qt {
namespace {

bool HasCaption(ControlKind kind)
{
    return kind == ControlKind::CheckBox || kind == ControlKind::OptionButton || kind == ControlKind::CommandButton ||
           kind == ControlKind::ToolButton || kind == ControlKind::Label || kind == ControlKind::Frame ||
           kind == ControlKind::TabPage || kind == ControlKind::Image || kind == ControlKind::FormWindow;
}

/// The part of a widget that takes the keyboard.
QWidget* FocusPart(QWidget* widget)
{
    return widget != nullptr && widget->focusProxy() != nullptr ? widget->focusProxy() : widget;
}

/// Nothing leaves the view's operations: what a library throws here is a want of memory, and the form goes on.
template <class Body> bool Guarded(const Body& body) noexcept
{
    try {
        body();
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace

QtFormView::QtFormView(IForm& form, ScreenState& state)
    : m_form(form), m_reporter(form),
      m_window({[this] { m_form.UserActivated(); }, [this] { m_form.UserClosed(); }, [this] { LayOut(); },
                [this](QWidget* widget, bool isEnter) { OnKey(widget, isEnter); },
                [this](QWidget* widget, int key) { return OnOtherKey(widget, key); }}),
      m_neighbours({m_window, form, [this](const QWidget* widget) { return ControlOf(widget); },
                    [this](std::size_t control) { m_reporter.Clicked(control); },
                    [this](std::size_t list) { PressBeside(list, "Add"); }},
                   state)
{
    m_reporter.showAnew = [this](std::size_t control) { ControlChanged(control); };
    const Reporter::Silence silence(m_reporter);
    m_window.setObjectName(ToQt(form.Controls().front().name));
    MakeControls();
    OrderKeyboard();
    StopAtTickedOptions();
    NameControls();
    ShowForm();
    LayOut();
    m_focus = QObject::connect(qApp, &QApplication::focusChanged, &m_window,
                               [this](QWidget* from, QWidget* to) { OnFocus(from, to); });
}

QtFormView::~QtFormView()
{
    QObject::disconnect(m_focus);
    m_lastSilence.emplace(m_reporter); // widgets that go away change once more
}

void QtFormView::MakeControls()
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const bool clickable = m_form.Handles(i, FormEvent::Click);
        const bool isNumeric = m_form.Handles(i, FormEvent::LostFocus);
        m_views.push_back(MakeControlView({controls[i], i, ParentOf(i), m_reporter, clickable, isNumeric}));
        QWidget* const widget = m_views.back()->Widget();
        if (widget == nullptr)
            continue;
        m_positions[widget] = i;
        m_window.Watch(FocusPart(widget));
        m_views.back()->Show(controls[i]);
    }
}

QWidget* QtFormView::ParentOf(std::size_t control) const
{
    const std::size_t parent = m_form.Controls()[control].parent;
    QWidget* const widget = parent < m_views.size() ? m_views[parent]->Widget() : nullptr;
    return widget != nullptr ? widget : m_window.Content();
}

void QtFormView::OrderKeyboard()
{
    const auto& controls = m_form.Controls();
    std::vector<std::pair<std::int32_t, QWidget*>> stops;
    std::int32_t last = 0;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        last = std::max(last, controls[i].tabIndex);
        QWidget* const part = FocusPart(m_views[i]->Widget());
        if (part != nullptr && part->focusPolicy() != Qt::NoFocus) // an image to press follows what stands before it
            stops.emplace_back(controls[i].tabIndex >= 0 ? controls[i].tabIndex : last, part);
    }
    std::stable_sort(stops.begin(), stops.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (std::size_t i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops[i - 1].second, stops[i].second);
}

void QtFormView::NameControls()
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = 1; i < controls.size(); ++i) {
        QWidget* const widget = m_views[i]->Widget();
        if (widget == nullptr)
            continue;
        if (!HasCaption(controls[i].kind))
            FocusPart(widget)->setAccessibleName(ToQt(SpokenName(controls, i)));
        auto* const label = dynamic_cast<QLabel*>(widget);
        if (label != nullptr && controls[i].caption.find('&') != std::string::npos)
            label->setBuddy(FocusPart(m_views[BuddyOf(controls, i)]->Widget()));
    }
}

/// What lies on a tab page stands in its middle: the strip is wider than its pages ask for.
int QtFormView::PageMargin(std::size_t page, const FormUnits& units) const
{
    const auto& controls = m_form.Controls();
    if (controls[page].kind != ControlKind::TabPage)
        return 0;
    const std::size_t strip = controls[page].parent;
    const int room = units.Across(controls[strip].place.width) - units.Across(controls[page].place.width);
    return std::max(0, room / 2 - m_views[strip]->Border().left());
}

void QtFormView::LayOut()
{
    const auto& controls = m_form.Controls();
    const FormUnits units = MeasureUnits(controls, m_views, m_window.font());
    const int footerTop = FooterTop(units);
    m_window.Resize(units.Rect(controls.front().place).size(), footerTop);
    for (std::size_t i = 1; i < controls.size(); ++i) {
        m_views[i]->Place(controls[i].place, units, PageMargin(controls[i].parent, units));
        m_views[i]->Recolor();
    }
    FillFooter(footerTop);
}

/// Where the row of buttons at the form's lower edge begins, pixels; 0 when there is none.
int QtFormView::FooterTop(const FormUnits& units) const
{
    const auto& controls = m_form.Controls();
    std::int32_t others = 0, buttons = 0;
    for (std::size_t i = 1; i < controls.size(); ++i) {
        const ControlPlace& place = controls[i].place;
        if (controls[i].parent == 0 && controls[i].kind != ControlKind::CommandButton)
            others = std::max(others, place.top + place.height);
    }
    for (std::size_t i = 1; i < controls.size(); ++i)
        if (controls[i].parent == 0 && controls[i].kind == ControlKind::CommandButton &&
            controls[i].place.top >= others && (buttons == 0 || controls[i].place.top < buttons))
            buttons = controls[i].place.top;
    return buttons > 0 && others > 0 ? units.Down((others + buttons) / 2) : 0;
}

/// The buttons below `footerTop` go where they stay in view, or back.
void QtFormView::FillFooter(int footerTop)
{
    const auto& controls = m_form.Controls();
    QWidget* const parent = m_window.Footer() != nullptr ? m_window.Footer() : m_window.Content();
    bool isMoved = false;
    for (std::size_t i = 1; i < controls.size(); ++i) {
        QWidget* const widget = m_views[i]->Widget();
        if (controls[i].parent != 0 || controls[i].kind != ControlKind::CommandButton || widget == nullptr)
            continue;
        const bool isBelow = footerTop > 0 && widget->y() >= footerTop;
        if (isBelow && widget->parentWidget() != parent) {
            const QPoint at = widget->pos();
            widget->setParent(parent);
            widget->move(at);
            widget->setVisible(controls[i].visible);
            isMoved = true;
        }
        if (isBelow && parent == m_window.Footer())
            widget->move(widget->pos() - QPoint(m_window.FooterShift(), footerTop));
    }
    if (isMoved)
        OrderKeyboard();
}

/// Tab comes to the ticked option of a group, where the arrow keys go on from; to the first one where none is ticked.
void QtFormView::StopAtTickedOptions()
{
    const auto& controls = m_form.Controls();
    std::unordered_map<std::size_t, std::size_t> stops; // by parent
    for (std::size_t i = 1; i < controls.size(); ++i)
        if (controls[i].kind == ControlKind::OptionButton && controls[i].enabled &&
            (controls[i].value != 0 || !stops.contains(controls[i].parent)))
            stops[controls[i].parent] = i;
    for (std::size_t i = 1; i < controls.size(); ++i) {
        QWidget* const widget = m_views[i]->Widget();
        if (controls[i].kind == ControlKind::OptionButton && widget != nullptr)
            widget->setFocusPolicy(stops[controls[i].parent] == i ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void QtFormView::ShowForm()
{
    const FormControl& form = m_form.Controls().front();
    m_window.setWindowTitle(ToQt(form.caption));
    m_window.Content()->setEnabled(form.enabled);
}

void QtFormView::ShowControl(std::size_t control)
{
    if (control == 0)
        return ShowForm();
    const FormControl& state = m_form.Controls()[control];
    const bool isBuilt = m_views[control]->Show(state);
    if (state.kind == ControlKind::OptionButton)
        StopAtTickedOptions();
    if (!isBuilt)
        return;
    LayOut();
    if (state.kind == ControlKind::Label || state.kind == ControlKind::Frame)
        NameControls();
}

void QtFormView::ControlChanged(std::size_t control)
{
    if (control >= m_views.size())
        return;
    Guarded([&] {
        const Reporter::Silence silence(m_reporter);
        ShowControl(control);
        m_neighbours.FormChanged();
    });
}

bool QtFormView::ShowModal()
{
    if (m_loop != nullptr)
        return false;
    const bool wasShown = Guarded([&] {
        const ClosesOnSignal closesOnSignal;
        QEventLoop loop;
        m_loop = &loop;
        m_isHidden = false;
        m_window.Appear(QApplication::activeModalWidget());
        m_neighbours.Appear();
        if (!m_isHidden)
            loop.exec();
    });
    m_loop = nullptr;
    m_window.hide(); // when the whole application is asked to end
    m_neighbours.Leave();
    if (QWidget* const behind = QApplication::activeModalWidget())
        behind->activateWindow(); // not every window system gives the keyboard back
    return wasShown;
}

void QtFormView::Hide()
{
    if (m_loop == nullptr)
        return;
    m_isHidden = true;
    m_neighbours.Leave();
    m_window.hide();
    m_loop->exit();
}

void QtFormView::PumpEvents()
{
    Guarded([] { QApplication::processEvents(); });
}

std::size_t QtFormView::ControlOf(const QWidget* widget) const
{
    for (; widget != nullptr; widget = widget->parentWidget()) {
        const auto found = m_positions.find(widget);
        if (found != m_positions.end())
            return found->second;
    }
    return 0;
}

bool QtFormView::IsOurs(const QWidget* widget) const
{
    return widget != nullptr && widget->window() == &m_window;
}

void QtFormView::OnKey(QWidget* widget, bool isEnter)
{
    if (!isEnter) {
        m_form.UserPressedEscape();
        return;
    }
    const std::size_t control = ControlOf(widget);
    const FormControl& state = m_form.Controls()[control];
    if (state.kind == ControlKind::ListView && state.selection >= 0 && m_form.Handles(control, FormEvent::DoubleClick))
        m_form.UserDoubleClicked(control, state.selection); // a row is opened, as by the mouse
    else
        m_form.UserPressedEnter(control);
}

bool QtFormView::OnOtherKey(QWidget* widget, int key)
{
    if (key == Qt::Key_F1)
        return PressBeside(0, "Help");
    const std::size_t control = ControlOf(widget);
    const bool isList = m_form.Controls()[control].kind == ControlKind::ListView;
    return key == Qt::Key_Delete && isList && PressBeside(control, "Delete");
}

bool QtFormView::PressBeside(std::size_t control, const char* caption)
{
    const auto& controls = m_form.Controls();
    for (std::size_t i = 1; i < controls.size(); ++i) {
        if (controls[i].kind != ControlKind::CommandButton || controls[i].parent != controls[control].parent)
            continue;
        if (ToQt(controls[i].caption).remove('&') != QLatin1String(caption))
            continue;
        const QWidget* const widget = m_views[i]->Widget();
        if (widget != nullptr && widget->isEnabled() && widget->isVisible())
            m_reporter.Clicked(i);
        return true;
    }
    return false;
}

void QtFormView::OnFocus(QWidget* from, QWidget* to)
{
    if (!IsOurs(to))
        return;
    m_window.ScrollTo(to);
    const std::size_t left = ControlOf(from);
    if (IsOurs(from) && left != 0 && left != ControlOf(to))
        m_reporter.Tell(left, [&](IForm& form) { form.UserLeft(left); });
}

namespace {

class QtForms final : public IFormToolkit {
public:
    explicit QtForms(ScreenState& state) : m_state(state) {}
    std::unique_ptr<IFormView> MakeView(IForm& form) override
    {
        std::unique_ptr<IFormView> view;
        Guarded([&] { view = std::make_unique<QtFormView>(form, m_state); });
        return view;
    }

private:
    ScreenState& m_state;
};

} // namespace

std::unique_ptr<IFormToolkit> CreateQtForms(ScreenState& state)
{
    return std::make_unique<QtForms>(state);
}

} // namespace sm::qt
