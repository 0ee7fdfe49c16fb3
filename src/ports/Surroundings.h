// SPDX-License-Identifier: GPL-3.0-or-later
// Everything the plug-in asks of the place it lives in, in one bundle. Who uses a port includes its header.
#pragma once

namespace sm {

class IRegistry;
class IFileSystem;
class IDesktop;
class IWindows;
class IPublishingLibrary;
class ILocale;
class IClock;
class IComponent;
class IRunObserver;

/// References, owned by whoever wires the program; all outlive the plug-in's objects.
struct Surroundings {
    IRegistry& registry;
    IFileSystem& files;
    IDesktop& desktop;
    IWindows& windows;
    IPublishingLibrary& library;
    ILocale& locale;
    IClock& clock;
    IComponent& component;
    IRunObserver& observer;
};

} // namespace sm
