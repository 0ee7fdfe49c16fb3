// SPDX-License-Identifier: GPL-3.0-or-later
#include "beside/PageKeeper.h"

#include <utility>

namespace sm::win32 {

PageKeeper::PageKeeper(beside::IPageSource& source)
{
    Make({L"SheetmakerPage", {}, 0, 0, HWND_MESSAGE});
    m_drawer = std::make_unique<scene::PreviewDrawer>(
        source, [this](std::function<void()> work) { PostWork(std::move(work)); },
        [this](scene::DrawnPreview drawn) {
            m_page = std::move(drawn);
            m_hasPage = true;
            if (onPage)
                onPage();
        });
}

PageKeeper::~PageKeeper()
{
    m_drawer.reset();
    Unmake();
}

} // namespace sm::win32
