// SPDX-License-Identifier: GPL-3.0-or-later
// The three named policies for a failing host or library call. There is no bare `try` elsewhere in the plug-in.
#pragma once

#include "ports/HostError.h"

#include <exception>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace sm {

namespace detail {

/// Text of the exception being handled; empty for one that isn't a std::exception.
inline std::string CurrentErrorDescription() noexcept
{
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return {};
    }
}

} // namespace detail

/// Carry on: runs `call`; when it fails, `report` gets the description and the caller's values stay as they were.
/// Gives `optional<T>` for a call with a result and `bool` for one without. Nothing escapes, whatever is thrown.
template <class Call, class Report> auto CarryOn(Call&& call, Report&& report) noexcept
{
    using Result = std::invoke_result_t<Call>;
    try {
        if constexpr (std::is_void_v<Result>) {
            std::forward<Call>(call)();
            return true;
        } else {
            return std::optional<std::decay_t<Result>>(std::forward<Call>(call)());
        }
    } catch (...) {
        try {
            report(detail::CurrentErrorDescription());
        } catch (...) { // a report that fails must not end what was to be carried on
        }
    }
    if constexpr (std::is_void_v<Result>)
        return false;
    else
        return std::optional<std::decay_t<Result>>();
}

/// Carry on without a word.
template <class Call> auto CarryOn(Call&& call) noexcept
{
    return CarryOn(std::forward<Call>(call), [](const std::string&) {});
}

/// Give up the operation: runs `body`; when anything in it fails, gives what `onError(description)` gives.
template <class Body, class OnError> auto GiveUp(Body&& body, OnError&& onError) -> std::invoke_result_t<Body>
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return onError(detail::CurrentErrorDescription());
    }
}

} // namespace sm
