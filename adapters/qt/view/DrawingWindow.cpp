// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/DrawingWindow.h"

#include "scene/DrawingPicks.h"
#include "screen/WindowSize.h"
#include "view/PickWindow.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <stdexcept>

namespace sm::qt {
namespace {

constexpr const char* kDrawingSize = "Drawing";

class QtPickScreen final : public scene::IPickScreen {
public:
    explicit QtPickScreen(beside::IWindowMemory* memory) : m_memory(memory) {}
    ~QtPickScreen() override
    {
        if (QCoreApplication::instance() != nullptr)
            delete m_window.data();
    }
    QtPickScreen(const QtPickScreen&) = delete;
    QtPickScreen& operator=(const QtPickScreen&) = delete;

    scene::IPickWindow* Window() override { return m_window.data(); }
    scene::IPickWindow& Open() override
    {
        m_window = new PickWindow(m_memory);
        if (!RecallSize(*m_window, kDrawingSize, m_memory) && m_size.isValid())
            m_window->resize(m_size);
        return *m_window;
    }
    void Keep() override
    {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
            throw std::runtime_error("there is no window to pick in");
        m_leaves = false;
    }
    void CloseSoon() override
    {
        m_leaves = true;
        if (m_window == nullptr)
            return;
        m_size = m_window->size();
        RememberSize(*m_window, kDrawingSize, m_memory);
        QTimer::singleShot(0, m_window.data(), [this] {
            if (!m_leaves || m_window == nullptr)
                return;
            m_window->hide();
            m_window->deleteLater();
            m_window.clear();
        });
    }
    void HideNow() override
    {
        if (m_window != nullptr)
            m_window->hide();
    }
    void Post(std::function<void()> work) override
    {
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work), Qt::QueuedConnection);
    }

private:
    beside::IWindowMemory* m_memory;
    QSize m_size; ///< that the user gave the window last
    QPointer<PickWindow> m_window;
    bool m_leaves = false;
};

} // namespace

std::unique_ptr<scene::IDrawingWindow> CreateDrawingWindow(const scene::DrawingWindowOptions& options)
{
    return std::make_unique<scene::DrawingPicks>(options, std::make_unique<QtPickScreen>(options.memory));
}

} // namespace sm::qt
