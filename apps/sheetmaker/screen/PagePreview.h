// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the page that a conversion would make of the current tab, in place of making it.
#pragma once

#include "beside/PageSource.h"
#include "machine/Install.h"
#include "settings/DataKeg.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace sm::drawing {
class Drawing;
} // namespace sm::drawing

namespace sm::app {

/// What a page is made from.
struct PreviewWish {
    std::string layout;
    DataKeg keg; ///< as the dialog holds it
};

/// The plug-in plots a second look at the drawing, with records of its own: nothing that it does comes into the
/// drawing, the settings or the log of the user.
class PagePreview final : public beside::IPageSource {
public:
    /// `look` gives what is in force, on the thread of the screen; nothing when that can't be told. `twin` is asked
    /// once, on the same thread: the drawing as it has been read. Empty, or null: the file is read again.
    PagePreview(std::string drawing, Install install, std::function<std::optional<PreviewWish>()> look,
                std::function<std::unique_ptr<drawing::Drawing>()> twin = {});
    ~PagePreview() override;

    bool Renew() override;
    beside::PreviewPage Draw(render::ICanvas& canvas, const std::atomic<bool>& stop) override;

private:
    class Copy;
    std::string m_drawing;
    Install m_install;
    std::function<std::optional<PreviewWish>()> m_look;
    std::mutex m_mutex;
    std::function<std::unique_ptr<drawing::Drawing>()> m_askTwin; ///< empty once it was asked
    std::optional<PreviewWish> m_wish;
    std::unique_ptr<drawing::Drawing> m_twin; ///< until the copy is made
    std::unique_ptr<Copy> m_copy;             ///< of the drawing's thread alone
};

} // namespace sm::app
