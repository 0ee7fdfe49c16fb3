// SPDX-License-Identifier: GPL-3.0-or-later
#include "scene/PreviewDrawer.h"

#include <utility>

namespace sm::scene {

PreviewDrawer::PreviewDrawer(beside::IPageSource& source, Post post, std::function<void(DrawnPreview)> show)
    : m_source(source), m_post(std::move(post)), m_show(std::move(show))
{
}

PreviewDrawer::~PreviewDrawer()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

void PreviewDrawer::Renew()
{
    if (!m_source.Renew() && !m_isDue)
        return;
    m_isDue = false;
    m_again = IsBusy();
    if (m_again)
        m_stop = true;
    else
        Begin();
}

void PreviewDrawer::Forget()
{
    m_stop = true;
    m_again = false;
    m_isDue = true;
}

void PreviewDrawer::Begin()
{
    m_again = false;
    m_stop = false;
    m_thread = std::thread([this] {
        auto drawn = std::make_shared<DrawnPreview>(DrawPreview(m_source, m_stop));
        m_post([this, drawn] { Take(std::move(*drawn)); });
    });
}

void PreviewDrawer::Take(DrawnPreview drawn)
{
    m_thread.join();
    if (m_again)
        return Begin();
    if (!m_isDue)
        m_show(std::move(drawn));
}

} // namespace sm::scene
