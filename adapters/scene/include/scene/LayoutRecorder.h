// SPDX-License-Identifier: GPL-3.0-or-later
// Records a layout for the screen in a thread of its own while the window waits for it.
#pragma once

#include "render/ReferenceOptions.h"
#include "scene/LayoutPicture.h"

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace sm::scene {

struct RecorderOptions {
    render::ReferenceOptions references; ///< as the host has them
    std::string shareFolder;             ///< as the host has it
};

class LayoutRecorder {
public:
    /// Begins at once; `done` is called from the thread. What is handed over outlives the recorder; `text` is made
    /// when it is null.
    LayoutRecorder(const drawing::Drawing& drawing, std::size_t layout, const RecorderOptions& options,
                   std::unique_ptr<render::TextEngine>& text, const std::function<void()>& done);
    /// Gives up what isn't done, and waits for the thread.
    ~LayoutRecorder();
    LayoutRecorder(const LayoutRecorder&) = delete;
    LayoutRecorder& operator=(const LayoutRecorder&) = delete;

    [[nodiscard]] std::size_t Layout() const { return m_layout; }
    /// Once it is done. Throws what recording threw.
    std::shared_ptr<const LayoutPicture> Take();

private:
    void Record();

    const drawing::Drawing& m_drawing;
    std::size_t m_layout;
    RecorderOptions m_options;
    std::unique_ptr<render::TextEngine>& m_text;
    std::unique_ptr<LayoutPicture> m_picture;
    std::exception_ptr m_error;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

} // namespace sm::scene
