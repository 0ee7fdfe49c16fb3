// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/testhost/HostThread.h"

#include <objbase.h>

namespace sm::testhost {

HostThread::HostThread() : m_thread([this] { Run(); }) {}

HostThread::~HostThread()
{
    {
        const std::lock_guard lock(m_lock);
        m_ends = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void HostThread::Run()
{
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    std::unique_lock lock(m_lock);
    while (!m_ends) {
        if (m_job) {
            m_job();
            m_job = nullptr;
            m_changed.notify_all();
        }
        m_changed.wait(lock, [this] { return m_ends || m_job; });
    }
    CoUninitialize();
}

void HostThread::Do(std::function<void()> job)
{
    std::unique_lock lock(m_lock);
    m_job = std::move(job);
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return !m_job; });
}

windows::ComRef<IDispatch> HostThread::Carry(const windows::ComRef<IDispatch>& object)
{
    if (!object)
        return {};
    IStream* stream = nullptr;
    HRESULT result = E_FAIL;
    Do([&] { result = CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object.Get(), &stream); });
    void* proxy = nullptr;
    if (FAILED(result) || FAILED(CoGetInterfaceAndReleaseStream(stream, IID_IDispatch, &proxy)))
        return {};
    return windows::ComRef<IDispatch>::Taken(static_cast<IDispatch*>(proxy));
}

} // namespace sm::testhost
