// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/ViewRenderer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <new>
#include <optional>
#include <vector>

namespace sm::scene {
namespace {

struct Shift {
    int x = 0, y = 0;
};

/// Whole pixels that a picture moved by; nothing when it did anything else.
std::optional<Shift> MoveBetween(const ViewMap& from, const ViewMap& to)
{
    if (from.scale != to.scale || from.width != to.width || from.height != to.height)
        return std::nullopt;
    const double x = (from.center.x - to.center.x) * to.scale;
    const double y = (to.center.y - from.center.y) * to.scale;
    const bool inside = std::abs(x) < to.width && std::abs(y) < to.height;
    const Shift whole{static_cast<int>(inside ? std::lround(x) : 0), static_cast<int>(inside ? std::lround(y) : 0)};
    constexpr double kPart = 0.01;
    const bool exact = inside && std::abs(x - whole.x) < kPart && std::abs(y - whole.y) < kPart;
    return exact ? std::optional(whole) : std::nullopt;
}

void CopyMoved(const PixelImage& from, Shift by, PixelImage& to)
{
    const PixelBox kept = to.All().Common({by.x, by.y, by.x + from.Width(), by.y + from.Height()});
    for (int y = kept.top; y < kept.bottom; ++y)
        std::copy_n(from.Row(y - by.y) + (kept.left - by.x), kept.Width(), to.Row(y) + kept.left);
}

/// What a picture moved by so much leaves free.
std::vector<PixelBox> ExposedBy(const PixelBox& all, Shift by)
{
    const PixelBox kept = all.Common({all.left + by.x, all.top + by.y, all.right + by.x, all.bottom + by.y});
    std::vector<PixelBox> exposed{{all.left, all.top, all.right, kept.top},
                                  {all.left, kept.top, kept.left, kept.bottom},
                                  {kept.right, kept.top, all.right, kept.bottom},
                                  {all.left, kept.bottom, all.right, all.bottom}};
    std::erase_if(exposed, [](const PixelBox& box) { return box.Empty(); });
    return exposed;
}

} // namespace

ViewRenderer::ViewRenderer(std::unique_ptr<IPixelCanvases> canvases, Show show)
    : m_canvases(std::move(canvases)), m_show(std::move(show)), m_thread([this] { Run(); })
{
}

ViewRenderer::~ViewRenderer()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_asked.notify_all();
    m_thread.join();
}

void ViewRenderer::Ask(std::shared_ptr<const LayoutPicture> picture, const ViewMap& map, Backdrop backdrop)
{
    {
        const std::lock_guard lock(m_mutex);
        m_wanted = {std::move(picture), map, backdrop};
        m_isNew = true;
    }
    m_asked.notify_all();
}

void ViewRenderer::Run()
{
    for (;;) {
        Request request;
        {
            std::unique_lock lock(m_mutex);
            m_asked.wait(lock, [&] { return m_isNew || m_ends; });
            if (m_ends)
                return;
            request = m_wanted;
            m_isNew = false;
        }
        if (request.picture != m_last.picture) {
            m_last = {};
            m_image.reset();
            m_canvases->Forget();
        }
        if (request.backdrop != m_last.backdrop)
            m_last = {};
        if (request.picture != nullptr)
            Paint(request);
    }
}

// A view that only moves is finished nevertheless: the moved picture is what the next one is made of.
bool ViewRenderer::GoOn(const Request& request)
{
    const std::lock_guard lock(m_mutex);
    if (m_ends)
        return false;
    return !m_isNew || (m_wanted.picture == request.picture && m_wanted.backdrop == request.backdrop &&
                        MoveBetween(request.map, m_wanted.map));
}

void ViewRenderer::Paint(const Request& request)
{
    std::shared_ptr<PixelImage> image;
    try {
        image = std::make_shared<PixelImage>(request.map.width, request.map.height);
    } catch (const std::bad_alloc&) {
        return; // what is shown stays
    }
    if (!PaintExposed(request, *image))
        return;
    m_image = std::move(image);
    m_last = request;
    m_show(m_image, request.map, true);
}

// What the last view shows already is copied, the rest painted.
bool ViewRenderer::PaintExposed(const Request& request, PixelImage& image)
{
    const auto move = m_last.picture != nullptr ? MoveBetween(m_last.map, request.map) : std::nullopt;
    if (!move)
        return PaintWhole(request, image);
    CopyMoved(*m_image, *move, image);
    const auto exposed = ExposedBy(image.All(), *move);
    return std::all_of(exposed.begin(), exposed.end(), [&](const PixelBox& part) {
        return PaintPicture(
            *request.picture, request.map, image, part, *m_canvases, [&] { return GoOn(request); }, request.backdrop);
    });
}

// The first view of a picture is seen while it grows.
bool ViewRenderer::PaintWhole(const Request& request, PixelImage& image)
{
    using Clock = std::chrono::steady_clock;
    const bool isFirst = m_last.picture == nullptr;
    auto shown = Clock::now();
    const auto goOn = [&] {
        constexpr auto kEvery = std::chrono::milliseconds(80);
        if (isFirst && Clock::now() - shown > kEvery) {
            m_show(std::make_shared<const PixelImage>(image), request.map, false);
            shown = Clock::now();
        }
        return GoOn(request);
    };
    return PaintPicture(*request.picture, request.map, image, image.All(), *m_canvases, goOn, request.backdrop);
}

} // namespace sm::scene
