// SPDX-License-Identifier: GPL-3.0-or-later
// What one object of the component stands on.
#pragma once

#include "plugin/CallContext.h"
#include "ports/IDesktop.h"
#include "ports/IFileSystem.h"
#include "ports/IFormToolkit.h"
#include "ports/IPubDoc.h"
#include "ports/IRegistry.h"
#include "ports/IRunObserver.h"
#include "ports/ISystem.h"
#include "ports/IWindows.h"

#include <memory>

namespace sm::windows {

/// The surroundings of one object, and the context of its calls: no two objects share anything, so that each may live
/// in an apartment of its own. Message boxes and dialogs are modal over the window of the drawing that a call works on;
/// outside a call, over the thread's active window.
class WindowsSurroundings {
public:
    WindowsSurroundings();
    WindowsSurroundings(const WindowsSurroundings&) = delete;
    WindowsSurroundings& operator=(const WindowsSurroundings&) = delete;

    CallContext& Context() { return m_context; }
    Surroundings& All() { return m_surroundings; }

private:
    /// Nobody watches a call of the component.
    class NullObserver final : public IRunObserver {
        void Stage(const std::string&) noexcept override {}
        void SheetBegins(const std::string&, std::int32_t, std::int32_t) noexcept override {}
        void SheetEnds(const std::string&, std::int32_t, std::int32_t) noexcept override {}
        void Saved(const std::string&, std::int32_t, const std::string&) noexcept override {}
        void AnnotationsLost(const std::string&) noexcept override {}
        void CarriedPast(const std::string&, const std::string&) noexcept override {}
    };

    std::unique_ptr<IRegistry> m_registry;
    std::unique_ptr<IFileSystem> m_files;
    std::unique_ptr<IDesktop> m_desktop;
    std::unique_ptr<IFormToolkit> m_toolkit;
    std::unique_ptr<IWindows> m_windows;
    std::unique_ptr<IPublishingLibrary> m_library;
    std::unique_ptr<ILocale> m_locale;
    std::unique_ptr<IClock> m_clock;
    std::unique_ptr<IComponent> m_component;
    NullObserver m_observer;
    Surroundings m_surroundings;
    CallContext m_context;
};

} // namespace sm::windows
