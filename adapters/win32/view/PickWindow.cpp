// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/PickWindow.h"

#include "windows/automation/WideText.h"
#include "windows/controls/VisualStyles.h"

#include <algorithm>
#include <charconv>

#include <commctrl.h>

namespace sm::win32 {
namespace {

constexpr const char* kBackdrop = "DrawingBackground";
constexpr const char* kDarkName = "dark";
constexpr const char* kSize = "Size Drawing";
constexpr int kUsualWidth = 1000, kUsualHeight = 720; // pixels of 96 dots per inch
constexpr double kStep = 1.5;                         // of zooming

/// "900x600" or "900x600 full"; nothing for anything else.
std::optional<SIZE> SizeIn(const std::string& text)
{
    int width = 0, height = 0;
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, width);
    if (first.ec != std::errc{} || first.ptr == end || *first.ptr != 'x')
        return std::nullopt;
    const auto second = std::from_chars(first.ptr + 1, end, height);
    const bool isSize = second.ec == std::errc{} && width > 0 && height > 0;
    return isSize ? std::optional(SIZE{width, height}) : std::nullopt;
}

} // namespace

PickWindow::PickWindow(beside::IWindowMemory* memory) : m_memory(memory)
{
    const windows::VisualStyles styles;
    Make({kClass, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT});
    m_controls = std::make_unique<PickControls>(Handle());
    m_view = std::make_unique<DrawingView>(Handle(), L"Drawing");
    m_markPane = std::make_unique<MarkPane>(*m_view, *m_controls);
    m_marks = std::make_unique<scene::WindowMarks>(*m_view, *m_markPane);
    m_view->onPick = [this](Vec2 scene) { Answer(scene); };
    m_view->onMove = [this](std::optional<Vec2> scene) { ShowPlace(scene); };
    m_view->onCancel = [this] { Cancel(); };
    m_view->onLetter = [this](wchar_t letter) { return TakeLetter(letter); };
    m_view->onZoomWindow = [this](bool isWanted) { m_controls->Tick(kZoomFrame, isWanted); };
    m_view->paintOver = [this](const OverlayCanvas& canvas) { PaintMarks(canvas); };
    RecallSize();
    if (memory != nullptr && memory->Recall(kBackdrop) == kDarkName) {
        m_controls->Tick(kDark, true);
        m_view->SetBackdrop(Backdrop::Dark);
    }
    OnDots();
    ShowSnapping();
}

PickWindow::~PickWindow()
{
    m_view.reset();
    Unmake();
}

void PickWindow::RecallSize()
{
    const auto known = m_memory != nullptr ? SizeIn(m_memory->Recall(kSize)) : std::nullopt;
    const SIZE wanted = known.value_or(SIZE{Scaled(kUsualWidth), Scaled(kUsualHeight)});
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(Handle(), MONITOR_DEFAULTTONEAREST), &info);
    const RECT& work = info.rcWork;
    const LONG width = std::min(wanted.cx, work.right - work.left),
               height = std::min(wanted.cy, work.bottom - work.top);
    SetWindowPos(Handle(), nullptr, (work.left + work.right - width) / 2, (work.top + work.bottom - height) / 2, width,
                 height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PickWindow::RememberSize() const
{
    RECT place = {};
    if (m_memory == nullptr || IsIconic(Handle()) != FALSE || IsZoomed(Handle()) != FALSE ||
        GetWindowRect(Handle(), &place) == FALSE)
        return;
    m_memory->Remember(kSize,
                       std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top));
}

void PickWindow::LayOut()
{
    if (m_view == nullptr)
        return;
    const RECT room = m_controls->LayOut();
    MoveWindow(m_view->Handle(), room.left, room.top, room.right - room.left, room.bottom - room.top, TRUE);
    SetWindowPos(m_controls->Get(kKeysText), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void PickWindow::OnDots()
{
    m_controls->UseDots(Dots());
    m_view->SetFont(m_controls->Font(), Dots());
    LayOut();
}

LRESULT PickWindow::OnMessage(UINT message, WPARAM wide, LPARAM extra)
{
    switch (message) {
    case WM_SIZE:
        LayOut();
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wide), HIWORD(wide));
        return 0;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(extra)->code == static_cast<UINT>(TCN_SELCHANGE))
            TurnTab();
        return 0;
    case WM_MOUSEWHEEL:
        m_view->TurnWheel(wide, extra);
        return 0;
    case WM_SETFOCUS:
        SetFocus(m_view->Handle());
        return 0;
    case WM_CLOSE:
        Cancel();
        return 0;
    default:
        return ByDefault(message, wide, extra);
    }
}

void PickWindow::OnCommand(int control, int code)
{
    if (control == kMarks && code == CBN_SELCHANGE)
        m_marks->Choose(m_controls->ChosenMark());
    if (code != BN_CLICKED)
        return;
    switch (control) {
    case kZoomIn:
        m_view->Zoom(kStep);
        break;
    case kZoomOut:
        m_view->Zoom(1 / kStep);
        break;
    case kZoomAll:
        m_view->ShowAll();
        break;
    case kZoomFrame:
        OnZoomFrame();
        break;
    case kSnaps:
        ShowSnapping();
        break;
    case kDark:
        ShowBackdrop();
        break;
    case kKeys:
        ShowWindow(m_controls->Get(kKeysText), m_controls->IsTicked(kKeys) ? SW_SHOWNA : SW_HIDE);
        break;
    case kEditMark:
        m_marks->EditChosen();
        break;
    default:
        return;
    }
    SetFocus(m_view->Handle());
}

void PickWindow::ShowBackdrop()
{
    const bool isDark = m_controls->IsTicked(kDark);
    m_view->SetBackdrop(isDark ? Backdrop::Dark : Backdrop::Light);
    if (m_memory != nullptr)
        m_memory->Remember(kBackdrop, isDark ? kDarkName : "light");
}

void PickWindow::SetTitle(const std::string& title)
{
    SetWindowTextW(Handle(), windows::Wide(title).c_str());
}

void PickWindow::SetTabs(const std::vector<std::string>& names, std::size_t current)
{
    m_controls->SetTabs(names, current);
}

void PickWindow::SetPicture(std::shared_ptr<const LayoutPicture> picture)
{
    m_picture = std::move(picture);
    m_view->SetPicture(m_picture);
    m_marks->PictureIs(m_picture);
    ShowReady();
}

void PickWindow::PaintMarks(const OverlayCanvas& canvas) const
{
    PaintPageMarks(canvas, m_marks->InScene(), m_view->Map());
    if (const auto frame = m_marks->Frame())
        PaintFrameRound(canvas, *frame);
}

} // namespace sm::win32
