// Everything the plug-in asks of the place it lives in, in one bundle.
#pragma once

#include "ports/IAnnotations.h"
#include "ports/IDesktop.h"
#include "ports/IFileSystem.h"
#include "ports/IPubDoc.h"
#include "ports/IRegistry.h"
#include "ports/IRunObserver.h"
#include "ports/ISystem.h"
#include "ports/IWindows.h"

namespace sm {

/// References, owned by whoever wires the program; all outlive the plug-in's objects.
struct Surroundings {
    IRegistry& registry;
    IFileSystem& files;
    IDesktop& desktop;
    IWindows& windows;
    IAnnotations& annotations;
    IPublishingLibrary& library;
    ILocale& locale;
    IClock& clock;
    IComponent& component;
    IRunObserver& observer;
};

} // namespace sm
