// SPDX-License-Identifier: GPL-3.0-or-later
#include "commandline/PlotCommandLine.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cmath>

namespace sm::app {
namespace {

/// A positive number, with "." for decimals.
std::optional<double> PositiveNumber(std::string_view text)
{
    double number = 0;
    const auto [next, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = failed == std::errc() && next == text.data() + text.size();
    return whole && std::isfinite(number) && number > 0 ? std::optional(number) : std::nullopt;
}

/// "1:50".
std::optional<PlotScaleOption> ScaleIn(const std::string& text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string::npos)
        return std::nullopt;
    const auto paper = PositiveNumber(std::string_view(text).substr(0, colon));
    const auto drawing = PositiveNumber(std::string_view(text).substr(colon + 1));
    constexpr double kMost = 1e9;
    const bool usable = paper && drawing && *paper / *drawing <= kMost && *drawing / *paper <= kMost;
    return usable ? std::optional(PlotScaleOption{*paper, *drawing}) : std::nullopt;
}

void AddPaper(CLI::App& command, PlotOptions& options)
{
    command
        .add_option("--paper", options.paper,
                    "Plot on this paper: A3, \"ARCH D\", or sides such as 420x297mm, up to 3 mm off")
        ->type_name("NAME");
    command
        .add_option_function<std::string>(
            "--orientation", [&options](const std::string& word) { options.landscape = word == "landscape"; },
            "How the paper lies")
        ->type_name("portrait|landscape")
        ->check([](const std::string& word) {
            return word == "portrait" || word == "landscape" ? std::string()
                                                             : "\"" + word + "\" is none of portrait, landscape";
        });
}

void AddScale(CLI::App& command, PlotOptions& options)
{
    command.add_flag("--fit", options.fit, "Scale the plot to the paper");
    command
        .add_option_function<std::string>(
            "--scale", [&options](const std::string& text) { options.scale = ScaleIn(text); },
            "Millimetres of paper for drawing units, such as 1:50")
        ->type_name("N:M")
        ->excludes("--fit")
        ->check([](const std::string& text) {
            return ScaleIn(text) ? std::string() : "\"" + text + "\" is no scale; write it as 1:50";
        });
    command.add_flag("--center", options.center, "Centre the plot on the paper");
}

/// Sees to it that of several options one is given at most. (CLI11 keeps what an option excludes sorted by address, so
/// that a help which names several of them is another one each time.)
void AllowOne(CLI::App& command, const std::vector<std::string>& options)
{
    command.callback([&command, options] {
        std::vector<std::string> given;
        for (const std::string& option : options)
            if (command.count(option) > 0)
                given.push_back(option);
        if (given.size() > 1)
            throw CLI::ExcludesError(given[0], given[1]);
    });
}

void AddStyle(CLI::App& command, PlotOptions& options)
{
    command.add_option("--plot-style", options.style, "Plot with this plot style table, or with none")
        ->type_name("NAME|none");
    command.add_flag_callback(
        "--mono", [&options] { options.tone = Tone::Mono; }, "Plot everything black");
    command.add_flag_callback(
        "--grey", [&options] { options.tone = Tone::Grey; }, "Plot colours as greys");
    AllowOne(command, {"--plot-style", "--mono", "--grey"});
    command
        .add_option_function<std::string>(
            "--lineweight-scale",
            [&options](const std::string& text) { options.penScale = PositiveNumber(text).value_or(1); },
            "Make all lines so many times as wide")
        ->type_name("FACTOR")
        ->check([](const std::string& text) {
            const auto factor = PositiveNumber(text);
            return factor && *factor >= 0.01 && *factor <= 100 ? std::string()
                                                               : "\"" + text + "\" is no factor from 0.01 to 100";
        });
}

} // namespace

void AddPlotOptions(CLI::App& command, PlotOptions& options)
{
    AddPaper(command, options);
    AddScale(command, options);
    AddStyle(command, options);
}

} // namespace sm::app
