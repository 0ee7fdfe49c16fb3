// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/ViewRenderer.h"

#include <chrono>
#include <cmath>
#include <optional>

namespace sm::qt {
namespace {

/// Whole pixels that a picture moved by; nothing when it did anything else.
std::optional<QPoint> MoveBetween(const ViewMap& from, const ViewMap& to)
{
    if (from.scale != to.scale || from.width != to.width || from.height != to.height)
        return std::nullopt;
    const double x = (from.center.x - to.center.x) * to.scale;
    const double y = (to.center.y - from.center.y) * to.scale;
    const bool inside = std::abs(x) < to.width && std::abs(y) < to.height;
    const QPoint whole(static_cast<int>(inside ? std::lround(x) : 0), static_cast<int>(inside ? std::lround(y) : 0));
    constexpr double kPart = 0.01;
    const bool exact = inside && std::abs(x - whole.x()) < kPart && std::abs(y - whole.y()) < kPart;
    return exact ? std::optional(whole) : std::nullopt;
}

} // namespace

ViewRenderer::ViewRenderer(Show show) : m_show(std::move(show)), m_thread([this] { Run(); }) {}

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
            m_image = {};
            m_cache = {};
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
    QImage image(request.map.width, request.map.height, QImage::Format_RGB32);
    if (image.isNull() || !PaintExposed(request, image))
        return;
    m_image = image;
    m_last = request;
    m_show(m_image, request.map, true);
}

// What the last view shows already is copied, the rest painted.
bool ViewRenderer::PaintExposed(const Request& request, QImage& image)
{
    using Clock = std::chrono::steady_clock;
    const auto move = m_last.picture != nullptr ? MoveBetween(m_last.map, request.map) : std::nullopt;
    const QRect all = image.rect();
    if (!move) {
        const bool isFirst = m_last.picture == nullptr;
        auto shown = Clock::now();
        return PaintPicture(
            *request.picture, request.map, image, all, m_cache,
            [&] {
                constexpr auto kEvery = std::chrono::milliseconds(80);
                if (isFirst && Clock::now() - shown > kEvery) {
                    m_show(image.copy(), request.map, false);
                    shown = Clock::now();
                }
                return GoOn(request);
            },
            request.backdrop);
    }
    {
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(*move, m_image);
    }
    const QRegion exposed = QRegion(all) - QRegion(all.translated(*move));
    for (const QRect& part : exposed) {
        if (!PaintPicture(
                *request.picture, request.map, image, part, m_cache, [&] { return GoOn(request); }, request.backdrop))
            return false;
    }
    return true;
}

} // namespace sm::qt
