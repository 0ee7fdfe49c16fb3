#include "qt/DrawingWindow.h"

#include "view/PickWindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>
#include <atomic>
#include <exception>
#include <stdexcept>
#include <thread>

namespace sm::qt {
namespace {

/// What was recorded, and of what.
struct Recorded {
    const drawing::Drawing* drawing = nullptr;
    std::size_t layout = 0;
    std::string path;
    std::uint64_t entities = 0;
    [[nodiscard]] bool Is(const drawing::Drawing& other, std::size_t otherLayout) const
    {
        return drawing == &other && layout == otherLayout && path == other.Path() && entities == other.EntityCount();
    }
};

/// Records in a thread of its own while the window waits for it.
class Recorder {
public:
    Recorder(const drawing::Drawing& drawing, std::size_t layout, const DrawingWindowOptions& options,
             std::unique_ptr<render::TextEngine>& text)
        : m_drawing(drawing), m_layout(layout), m_options(options), m_text(text)
    {
        m_options.references.dwg = drawing.Dwg();
    }
    ~Recorder() { Stop(); }
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// `done` is called from the thread.
    void Start(const std::function<void()>& done)
    {
        m_thread = std::thread([this, done] {
            try {
                if (m_text == nullptr)
                    m_text = render::TextEngine::Create(render::TextFoldersOf(m_options.shareFolder));
                render::References references(m_drawing, m_options.references);
                m_picture = RecordLayout(m_drawing, m_layout, *m_text, references, m_stop);
            } catch (...) {
                m_error = std::current_exception();
            }
            done();
        });
    }
    void Stop()
    {
        m_stop = true;
        if (m_thread.joinable())
            m_thread.join();
    }
    /// Once it is done. Throws what recording threw.
    std::shared_ptr<const LayoutPicture> Take()
    {
        m_thread.join();
        if (m_error != nullptr)
            std::rethrow_exception(m_error);
        return std::move(m_picture);
    }

private:
    const drawing::Drawing& m_drawing;
    std::size_t m_layout;
    DrawingWindowOptions m_options;
    std::unique_ptr<render::TextEngine>& m_text;
    std::unique_ptr<LayoutPicture> m_picture;
    std::exception_ptr m_error;
    std::atomic<bool> m_stop = false;
    std::thread m_thread;
};

class DrawingWindow final : public cadhost::IPointPicker {
public:
    explicit DrawingWindow(const DrawingWindowOptions& options) : m_options(options) {}
    ~DrawingWindow() override
    {
        if (QCoreApplication::instance() != nullptr)
            delete m_window.data();
    }

    std::optional<Vec2> PickPoint(const drawing::Drawing& drawing, std::size_t layout,
                                  const std::string& prompt) override
    {
        return Pick(drawing, layout, std::nullopt, prompt);
    }
    std::optional<Vec2> PickCorner(const drawing::Drawing& drawing, std::size_t layout, Vec2 first,
                                   const std::string& prompt) override
    {
        return Pick(drawing, layout, first, prompt);
    }
    void Forget(const drawing::Drawing& drawing) override
    {
        if (m_recorded.drawing != &drawing)
            return;
        m_recorded = {};
        m_picture.reset();
        if (m_window != nullptr)
            m_window->SetPicture(nullptr);
    }

private:
    std::optional<Vec2> Pick(const drawing::Drawing& drawing, std::size_t layout, std::optional<Vec2> first,
                             const std::string& prompt)
    {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
            throw std::runtime_error("there is no window to pick in");
        if (m_picking)
            throw std::runtime_error("a point is being picked already");
        m_picking = true;
        m_leaves = false;
        try {
            const auto point = PickIn(drawing, layout, first, QString::fromStdString(prompt));
            Leave();
            return point;
        } catch (...) {
            Leave();
            throw;
        }
    }

    std::optional<Vec2> PickIn(const drawing::Drawing& drawing, std::size_t layout, std::optional<Vec2> first,
                               const QString& prompt)
    {
        const QString file = QFileInfo(QString::fromStdString(drawing.Path())).fileName();
        const QString name = QString::fromStdString(drawing.Layouts().at(layout).name);
        if (m_window == nullptr)
            m_window = new PickWindow;
        m_window->SetDrawing(file + " – " + name + " – Tarnwick Sheetmaker PDF");
        if (m_picture != nullptr && m_recorded.Is(drawing, layout)) {
            if (!m_window->isVisible()) {
                m_window->SetPicture(m_picture);
                if (m_view)
                    m_window->GoBackTo(*m_view);
            }
            return m_window->Pick(prompt, first);
        }
        m_recorded = {};
        m_picture.reset();
        m_view.reset();
        m_window->SetPicture(nullptr);
        return PickWhileRecording(drawing, layout, first, prompt);
    }

    std::optional<Vec2> PickWhileRecording(const drawing::Drawing& drawing, std::size_t layout,
                                           std::optional<Vec2> first, const QString& prompt)
    {
        QObject receiver; // of what is posted for this pick alone
        Recorder recorder(drawing, layout, m_options, m_text);
        std::exception_ptr error;
        const auto take = [&] {
            try {
                m_picture = recorder.Take();
                m_recorded = {&drawing, layout, drawing.Path(), drawing.EntityCount()};
                m_window->SetPicture(m_picture);
            } catch (...) {
                error = std::current_exception();
                m_window->Cancel();
            }
        };
        recorder.Start([&] { QMetaObject::invokeMethod(&receiver, take, Qt::QueuedConnection); });
        const auto point = m_window->Pick(prompt, first);
        recorder.Stop();
        if (error != nullptr)
            std::rethrow_exception(error);
        return point;
    }

    // The other corner is asked for at once when it is asked for at all: until then the window stays.
    void Leave()
    {
        m_picking = false;
        m_leaves = true;
        if (m_window == nullptr)
            return;
        m_view = m_window->OwnView();
        QTimer::singleShot(0, m_window.data(), [this] {
            if (!m_leaves || m_window == nullptr)
                return;
            m_window->hide();
            m_window->deleteLater();
            m_window.clear();
        });
    }

    DrawingWindowOptions m_options;
    QPointer<PickWindow> m_window;
    std::unique_ptr<render::TextEngine> m_text;
    std::shared_ptr<const LayoutPicture> m_picture;
    Recorded m_recorded;
    std::optional<ViewMap> m_view; ///< of the last pick
    bool m_picking = false, m_leaves = false;
};

} // namespace

std::unique_ptr<cadhost::IPointPicker> CreateDrawingWindow(const DrawingWindowOptions& options)
{
    return std::make_unique<DrawingWindow>(options);
}

} // namespace sm::qt
