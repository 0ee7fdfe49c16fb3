// SPDX-License-Identifier: GPL-3.0-or-later
// Picks in the drawing's window, whatever toolkit shows it: the layouts that were shown lately, turned by tabs, and
// what is recorded anew.
#pragma once

#include "scene/DrawingWindow.h"
#include "scene/LayoutRecorder.h"
#include "scene/PictureShelf.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace sm::scene {

/// The window as picks use it, on the thread of the screen.
class IPickWindow {
public:
    virtual ~IPickWindow() = default;
    virtual void SetTitle(const std::string& title) = 0;
    /// The layouts by name, in tab order, and the one in front.
    virtual void SetTabs(const std::vector<std::string>& names, std::size_t current) = 0;
    /// The one in front, whose marks are edited.
    virtual void SetLayout(const std::string& name) = 0;
    /// Marks of the layout, places in drawing units, and the stamp that goes along with the cursor.
    virtual void SetMarks(std::vector<beside::PageMark> marks, std::optional<beside::PageMark> atCursor) = 0;
    /// Null: it is being read.
    virtual void SetPicture(std::shared_ptr<const LayoutPicture> picture) = 0;
    /// The view, to be gone back to; nothing while it is the one that shows everything.
    [[nodiscard]] virtual std::optional<ViewMap> OwnView() const = 0;
    virtual void GoBackTo(const ViewMap& view) = 0;
    [[nodiscard]] virtual bool IsUp() const = 0;
    /// Waits for a point under `prompt`, drawing units; with `first` it is the corner opposite to it. Nothing when the
    /// user cancelled. The picture may come meanwhile.
    virtual std::optional<Vec2> Pick(const std::string& prompt, std::optional<Vec2> first) = 0;
    /// Lets marks of `board` be changed until the user closes the window.
    virtual void EditMarks(beside::IMarkBoard& board) = 0;
    /// Ends the waiting without a point.
    virtual void Cancel() = 0;

    std::function<void(std::size_t)> onTurn; ///< the user chose a tab
};

/// Where the window is shown.
class IPickScreen {
public:
    virtual ~IPickScreen() = default;
    /// Null: there is none at the moment.
    [[nodiscard]] virtual IPickWindow* Window() = 0;
    /// Makes it, hidden. Throws std::exception when it can't be shown.
    virtual IPickWindow& Open() = 0;
    /// A pick begins: the window stays.
    virtual void Keep() = 0;
    /// A pick has ended: unless another one begins before the window has done what is under way, it goes.
    virtual void CloseSoon() = 0;
    virtual void HideNow() = 0;
    /// Runs `work` on the thread of the screen. May be called from any.
    virtual void Post(std::function<void()> work) = 0;
};

class DrawingPicks final : public IDrawingWindow {
public:
    DrawingPicks(const DrawingWindowOptions& options, std::unique_ptr<IPickScreen> screen);
    ~DrawingPicks() override;

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
    void EditMarks(const drawing::Drawing& drawing, std::size_t layout, beside::IMarkBoard& board) override;
    void Forget(const drawing::Drawing& drawing) override;

private:
    /// What one call waits for.
    struct Waiting {
        const drawing::Drawing& drawing;
        std::size_t& layout;                                   ///< the one in front
        std::shared_ptr<char> isOn = std::make_shared<char>(); ///< what is posted for this pick alone ends with it
        std::unique_ptr<LayoutRecorder> recorder{};
        std::exception_ptr error{};
        bool isCorner = false; ///< the other one of a rectangle
    };
    std::optional<Vec2> Pick(const drawing::Drawing& drawing, std::size_t& layout, std::optional<Vec2> first,
                             const std::string& prompt);
    std::optional<Vec2> PickIn(Waiting& waiting, std::optional<Vec2> first, const std::string& prompt);
    void TurnTo(Waiting& waiting, std::size_t layout);
    void Show(Waiting& waiting);
    void ShowNames(const Waiting& waiting);
    void Record(Waiting& waiting);
    void Take(Waiting& waiting, std::size_t layout);
    void KeepView();
    void Leave();

    RecorderOptions m_recorder;
    std::function<beside::ISheetList*()> m_sheets; ///< as in the options
    std::unique_ptr<IPickScreen> m_ownScreen;
    IPickScreen& m_screen;
    std::unique_ptr<render::TextEngine> m_text;
    PictureShelf m_shelf;
    std::optional<std::size_t> m_shown;    ///< the layout whose picture the window has
    beside::IMarkBoard* m_board = nullptr; ///< while its marks are edited
    bool m_picking = false;
};

} // namespace sm::scene
