// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/ClosesOnSignal.h"

#include <QApplication>
#include <QPointer>
#include <QSocketNotifier>
#include <QWidget>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace sm::qt {
namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

int s_pipe[2] = {-1, -1};
volatile std::sig_atomic_t s_waiting = 0; ///< the signal that no window has noticed yet
volatile std::sig_atomic_t s_refused = 0; ///< the front window has noticed one, and stayed

void OnSignal(int signal)
{
    if (s_waiting != 0 || s_refused != 0) {
        std::signal(signal, SIG_DFL);
        raise(signal); // comes as soon as this handler returns
        return;
    }
    s_waiting = signal;
    const char note = 0;
    [[maybe_unused]] const auto written = write(s_pipe[1], &note, 1);
}

void CloseFrontWindow()
{
    char note = 0;
    while (read(s_pipe[0], &note, 1) == 1) {
    }
    s_waiting = 0;
    if (QWidget* const popup = QApplication::activePopupWidget())
        popup->close();
    const QPointer<QWidget> window = QApplication::activeModalWidget();
    if (window == nullptr)
        return;
    window->close();
    s_refused = window != nullptr && window->isVisible() ? 1 : 0;
}

/// The handlers in force, with what stood there before.
class Handlers {
public:
    Handlers()
    {
        if (pipe2(s_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
            return;
        m_notifier = std::make_unique<QSocketNotifier>(s_pipe[0], QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, CloseFrontWindow);
        struct sigaction action = {};
        action.sa_handler = OnSignal;
        action.sa_flags = SA_RESTART;
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            sigaction(kSignals[i], nullptr, &m_before[i]);
            if (m_before[i].sa_handler != SIG_IGN) // started with nohup: it stays deaf
                sigaction(kSignals[i], &action, nullptr);
        }
    }
    ~Handlers()
    {
        if (m_notifier == nullptr)
            return;
        for (std::size_t i = 0; i < kSignals.size(); ++i)
            sigaction(kSignals[i], &m_before[i], nullptr);
        m_notifier.reset();
        close(s_pipe[0]);
        close(s_pipe[1]);
        const int unnoticed = s_waiting;
        s_waiting = 0;
        if (unnoticed != 0)
            raise(unnoticed);
    }
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

private:
    std::array<struct sigaction, kSignals.size()> m_before = {};
    std::unique_ptr<QSocketNotifier> m_notifier;
};

int s_depth = 0;
std::unique_ptr<Handlers> s_handlers;

} // namespace

ClosesOnSignal::ClosesOnSignal()
{
    if (s_depth++ == 0)
        s_handlers = std::make_unique<Handlers>();
}

ClosesOnSignal::~ClosesOnSignal()
{
    s_refused = 0;
    if (--s_depth == 0)
        s_handlers.reset();
}

} // namespace sm::qt
