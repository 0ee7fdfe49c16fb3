// SPDX-License-Identifier: GPL-3.0-or-later
// A thread in the multi-threaded apartment, from which objects are offered to the apartment of the tests.
#pragma once

#include "windows/automation/ComRef.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <oaidl.h>
#include <thread>

namespace sm::testhost {

class HostThread {
public:
    HostThread();
    ~HostThread();
    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;

    /// A proxy for the calling apartment; null for null, and when COM refuses.
    windows::ComRef<IDispatch> Carry(const windows::ComRef<IDispatch>& object);

private:
    void Run();
    /// Runs the job on the thread and waits for it.
    void Do(std::function<void()> job);

    std::mutex m_lock;
    std::condition_variable m_changed;
    std::function<void()> m_job;
    bool m_ends = false;
    std::thread m_thread;
};

} // namespace sm::testhost
