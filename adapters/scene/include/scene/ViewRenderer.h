// SPDX-License-Identifier: GPL-3.0-or-later
// Paints views of a layout in a thread of its own, the newest one asked for.
#pragma once

#include "scene/ItemPainter.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace sm::scene {

class ViewRenderer {
public:
    /// `show` is called from the renderer's thread with what is painted so far; `finished` with the whole view. The
    /// image stays as it is from then on.
    using Show = std::function<void(std::shared_ptr<const PixelImage> image, const ViewMap& map, bool finished)>;
    ViewRenderer(std::unique_ptr<IPixelCanvases> canvases, Show show);
    /// Waits for the thread.
    ~ViewRenderer();
    ViewRenderer(const ViewRenderer&) = delete;
    ViewRenderer& operator=(const ViewRenderer&) = delete;

    /// Asks for a view; what was asked for before and isn't begun is forgotten, and given up unless it is only moved.
    /// A null picture ends what is under way, and nothing more is shown of the former one.
    void Ask(std::shared_ptr<const LayoutPicture> picture, const ViewMap& map, Backdrop backdrop);

private:
    struct Request {
        std::shared_ptr<const LayoutPicture> picture;
        ViewMap map;
        Backdrop backdrop = Backdrop::Light;
    };
    void Run();
    void Paint(const Request& request);
    bool PaintExposed(const Request& request, PixelImage& image);
    bool PaintWhole(const Request& request, PixelImage& image);
    bool GoOn(const Request& request);

    std::unique_ptr<IPixelCanvases> m_canvases;
    Show m_show;
    Request m_last; ///< that `m_image` shows whole; null picture: none
    std::shared_ptr<const PixelImage> m_image;
    std::mutex m_mutex;
    std::condition_variable m_asked;
    Request m_wanted;
    bool m_isNew = false, m_ends = false;
    std::thread m_thread;
};

} // namespace sm::scene
