// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/LayoutRecorder.h"

#include "drawing/Drawing.h"
#include "render/References.h"
#include "render/TextLayout.h"

namespace sm::scene {

LayoutRecorder::LayoutRecorder(const drawing::Drawing& drawing, std::size_t layout, const RecorderOptions& options,
                               std::unique_ptr<render::TextEngine>& text, const std::function<void()>& done)
    : m_drawing(drawing), m_layout(layout), m_options(options), m_text(text)
{
    m_options.references.dwg = drawing.Dwg();
    m_thread = std::thread([this, done] {
        Record();
        done();
    });
}

LayoutRecorder::~LayoutRecorder()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

void LayoutRecorder::Record()
{
    try {
        if (m_text == nullptr)
            m_text = render::TextEngine::Create(render::TextFoldersOf(m_options.shareFolder));
        render::References references(m_drawing, m_options.references);
        m_picture = RecordLayout(m_drawing, m_layout, *m_text, references, m_stop);
    } catch (...) {
        m_error = std::current_exception();
    }
}

std::shared_ptr<const LayoutPicture> LayoutRecorder::Take()
{
    m_thread.join();
    if (m_error != nullptr)
        std::rethrow_exception(m_error);
    return std::move(m_picture);
}

} // namespace sm::scene
