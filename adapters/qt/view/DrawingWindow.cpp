// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/DrawingWindow.h"

#include "screen/WindowSize.h"
#include "view/LayoutRecorder.h"
#include "view/PickWindow.h"
#include "view/PictureShelf.h"

#include <QApplication>
#include <QFileInfo>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <exception>
#include <stdexcept>

namespace sm::qt {
namespace {

constexpr const char* kDrawingSize = "Drawing";

class DrawingWindow final : public IDrawingWindow {
public:
    explicit DrawingWindow(const DrawingWindowOptions& options)
        : m_options{options.references, options.shareFolder}, m_sheets(options.sheets), m_memory(options.memory)
    {
    }
    ~DrawingWindow() override
    {
        if (QCoreApplication::instance() != nullptr)
            delete m_window.data();
    }

    std::optional<Vec2> PickPoint(const drawing::Drawing& drawing, std::size_t& layout,
                                  const std::string& prompt) override
    {
        return Pick(drawing, layout, std::nullopt, prompt);
    }
    std::optional<Vec2> PickCorner(const drawing::Drawing& drawing, std::size_t layout, Vec2 first,
                                   const std::string& prompt) override
    {
        return Pick(drawing, layout, first, prompt);
    }
    void EditMarks(const drawing::Drawing& drawing, std::size_t layout, beside::IMarkBoard& board) override
    {
        m_board = &board;
        try {
            Pick(drawing, layout, std::nullopt, {});
        } catch (...) {
            m_board = nullptr;
            throw;
        }
        m_board = nullptr;
        if (m_window != nullptr)
            m_window->hide(); // what is asked next must not belong to a window that goes
    }
    void Forget(const drawing::Drawing& drawing) override
    {
        if (!m_shelf.Holds(drawing))
            return;
        m_shelf.Clear();
        m_shown.reset();
        if (m_window != nullptr)
            m_window->SetPicture(nullptr);
    }

private:
    /// What one call waits for.
    struct Waiting {
        const drawing::Drawing& drawing;
        std::size_t& layout; ///< the one in front
        QObject receiver{};  ///< of what is posted for this pick alone
        std::unique_ptr<LayoutRecorder> recorder{};
        std::exception_ptr error{};
        bool isCorner = false; ///< the other one of a rectangle
    };

    std::optional<Vec2> Pick(const drawing::Drawing& drawing, std::size_t& layout, std::optional<Vec2> first,
                             const std::string& prompt)
    {
        if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
            throw std::runtime_error("there is no window to pick in");
        if (m_picking)
            throw std::runtime_error("a point is being picked already");
        m_picking = true;
        m_leaves = false;
        try {
            Waiting waiting{drawing, layout};
            waiting.isCorner = first.has_value();
            const auto point = PickIn(waiting, first, QString::fromStdString(prompt));
            Leave();
            return point;
        } catch (...) {
            Leave();
            throw;
        }
    }

    std::optional<Vec2> PickIn(Waiting& waiting, std::optional<Vec2> first, const QString& prompt)
    {
        m_shelf.DrawingIs(waiting.drawing);
        if (m_window == nullptr) {
            m_window = new PickWindow(m_memory);
            m_shown.reset();
            if (!RecallSize(*m_window, kDrawingSize, m_memory) && m_size.isValid())
                m_window->resize(m_size);
        }
        m_window->onTurn = [this, &waiting](std::size_t layout) {
            if (layout != waiting.layout)
                TurnTo(waiting, layout);
        };
        QStringList names;
        for (const drawing::Layout& layout : waiting.drawing.Layouts())
            names << QString::fromStdString(layout.name);
        m_window->SetTabs(names, waiting.layout);
        Show(waiting);
        std::optional<Vec2> point;
        m_board != nullptr ? m_window->EditMarks(*m_board) : static_cast<void>(point = m_window->Pick(prompt, first));
        m_window->onTurn = nullptr;
        waiting.recorder.reset();
        if (waiting.error != nullptr)
            std::rethrow_exception(waiting.error);
        return point;
    }

    void TurnTo(Waiting& waiting, std::size_t layout)
    {
        KeepView();
        waiting.recorder.reset();
        waiting.layout = layout;
        Show(waiting);
    }

    void Show(Waiting& waiting)
    {
        const QString file = QFileInfo(QString::fromStdString(waiting.drawing.Path())).fileName();
        const QString name = QString::fromStdString(waiting.drawing.Layouts().at(waiting.layout).name);
        m_window->SetLayout(name.toStdString());
        if (beside::ISheetList* const sheets = m_sheets ? m_sheets() : nullptr)
            m_window->SetMarks(sheets->MarksOn(name.toStdString()),
                               waiting.isCorner ? std::nullopt : sheets->StampAtHand());
        m_window->SetDrawing(file + " – " + name + " – Tarnwick Sheetmaker PDF");
        if (const PictureShelf::Entry* const kept = m_shelf.Find(waiting.layout)) {
            if (m_shown == waiting.layout && m_window->isVisible())
                return;
            m_shown = waiting.layout;
            m_window->SetPicture(kept->picture);
            if (kept->view)
                m_window->GoBackTo(*kept->view);
            return;
        }
        m_shown.reset();
        m_window->SetPicture(nullptr);
        waiting.recorder = std::make_unique<LayoutRecorder>(
            waiting.drawing, waiting.layout, m_options, m_text, [this, &waiting, layout = waiting.layout] {
                QMetaObject::invokeMethod(
                    &waiting.receiver, [this, &waiting, layout] { Take(waiting, layout); }, Qt::QueuedConnection);
            });
    }

    void Take(Waiting& waiting, std::size_t layout)
    {
        if (waiting.recorder == nullptr || waiting.recorder->Layout() != layout)
            return; // posted before the user turned to another layout
        try {
            const auto picture = waiting.recorder->Take();
            waiting.recorder.reset();
            m_shelf.Keep(layout, picture);
            m_shown = layout;
            m_window->SetPicture(picture);
        } catch (...) {
            waiting.error = std::current_exception();
            m_window->Cancel();
        }
    }

    void KeepView()
    {
        if (m_window == nullptr || !m_shown)
            return;
        if (PictureShelf::Entry* const kept = m_shelf.Find(*m_shown))
            kept->view = m_window->OwnView();
    }

    // The other corner is asked for at once when it is asked for at all: until then the window stays.
    void Leave()
    {
        m_picking = false;
        m_leaves = true;
        if (m_window == nullptr)
            return;
        KeepView();
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

    RecorderOptions m_options;
    std::function<beside::ISheetList*()> m_sheets;
    beside::IWindowMemory* m_memory;
    QSize m_size; ///< that the user gave the window last
    QPointer<PickWindow> m_window;
    std::unique_ptr<render::TextEngine> m_text;
    PictureShelf m_shelf;
    std::optional<std::size_t> m_shown;    ///< the layout whose picture the window has
    beside::IMarkBoard* m_board = nullptr; ///< while its marks are edited
    bool m_picking = false, m_leaves = false;
};

} // namespace

std::unique_ptr<IDrawingWindow> CreateDrawingWindow(const DrawingWindowOptions& options)
{
    return std::make_unique<DrawingWindow>(options);
}

} // namespace sm::qt
