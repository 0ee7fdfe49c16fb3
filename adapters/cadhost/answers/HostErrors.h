// SPDX-License-Identifier: GPL-3.0-or-later
// How the errors of the rooms below become the host's.
#pragma once

#include "ports/HostError.h"

#include <exception>

namespace sm::cadhost {

/// Runs `work`; whatever the drawing, the renderer or the plotter throws comes out as a HostError with the same words.
template <class Work> auto AsHost(Work&& work) -> decltype(work())
{
    try {
        return work();
    } catch (const HostError&) {
        throw;
    } catch (const std::exception& error) {
        throw HostError(error.what());
    }
}

} // namespace sm::cadhost
