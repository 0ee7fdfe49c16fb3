#include "forms/QtFormView.h"

#include "forms/QtForms.h"
#include "forms/SpokenNames.h"
#include "screen/ClosesOnSignal.h"
#include "screen/QtText.h"

#include <QApplication>
#include <QLabel>
#include <QShortcut>
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

QtFormView::QtFormView(IForm& form, beside::ISheetList* const& sheets)
    : m_form(form), m_listed(sheets), m_reporter(form),
      m_window({[this] { m_form.UserActivated(); }, [this] { m_form.UserClosed(); }, [this] { LayOut(); },
                [this](QWidget* widget, bool isEnter) { OnKey(widget, isEnter); }})
{
    m_reporter.showAnew = [this](std::size_t control) { ControlChanged(control); };
    const Reporter::Silence silence(m_reporter);
    m_window.setObjectName(ToQt(form.Controls().front().name));
    MakeControls();
    OrderKeyboard();
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
        m_views.push_back(MakeControlView({controls[i], i, ParentOf(i), m_reporter, clickable}));
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
    m_window.Resize(units.Rect(controls.front().place).size());
    for (std::size_t i = 1; i < controls.size(); ++i) {
        m_views[i]->Place(controls[i].place, units, PageMargin(controls[i].parent, units));
        m_views[i]->Recolor();
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
        if (m_sheets != nullptr)
            m_sheets->FormChanged();
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
        ShowSheets();
        if (!m_isHidden)
            loop.exec();
    });
    m_loop = nullptr;
    m_window.hide(); // when the whole application is asked to end
    HideSheets();
    return wasShown;
}

void QtFormView::ShowSheets()
{
    if (m_listed == nullptr || !m_listed->StandsBeside(m_form.Controls().front().name))
        return;
    if (m_sheets == nullptr) {
        m_sheets = new SheetsWindow(*m_listed, m_form, &m_window);
        QObject::connect(new QShortcut(Qt::Key_F6, &m_window, nullptr, nullptr, Qt::ApplicationShortcut),
                         &QShortcut::activated, m_sheets, [this] { m_sheets->Toggle(); });
    }
    m_sheets->Appear();
}

void QtFormView::HideSheets()
{
    if (m_sheets != nullptr)
        m_sheets->hide();
}

void QtFormView::Hide()
{
    if (m_loop == nullptr)
        return;
    m_isHidden = true;
    HideSheets();
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
    m_form.UserPressedEnter(control);
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
    explicit QtForms(beside::ISheetList* const& sheets) : m_sheets(sheets) {}
    std::unique_ptr<IFormView> MakeView(IForm& form) override
    {
        std::unique_ptr<IFormView> view;
        Guarded([&] { view = std::make_unique<QtFormView>(form, m_sheets); });
        return view;
    }

private:
    beside::ISheetList* const& m_sheets;
};

} // namespace

std::unique_ptr<IFormToolkit> CreateQtForms(beside::ISheetList* const& sheets)
{
    return std::make_unique<QtForms>(sheets);
}

} // namespace sm::qt
