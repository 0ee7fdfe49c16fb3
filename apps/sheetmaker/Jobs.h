// What the command line asked for: one plain job a command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sm::app {

enum class LayoutChoice { Auto, All, Active, Model };

/// What the options of one run lay over the stored settings. Nothing in an optional: the stored setting holds.
struct ConvertOptions {
    std::optional<LayoutChoice> layouts;
    std::optional<std::string> layoutName;
    std::optional<std::int32_t> pageSetupSource; ///< 0 native, 1 custom, 2 global
    std::optional<std::int32_t> lineQuality;     ///< 0 print (1200 dpi), 1 draft (600 dpi)
    std::optional<std::string> jobOptions;
    bool keepPs = false;
    bool open = false;
    bool asSet = false;
    friend bool operator==(const ConvertOptions&, const ConvertOptions&) = default;
};

struct ConvertJob {
    std::vector<std::string> drawings;
    std::optional<std::string> output; ///< a file for one drawing, a folder for several
    ConvertOptions options;
    int workers = 0; ///< 0: as many as the machine has processors
    bool strict = false;
    bool reportJson = false;
    friend bool operator==(const ConvertJob&, const ConvertJob&) = default;
};

struct LayoutsJob {
    std::string drawing;
    bool json = false;
    friend bool operator==(const LayoutsJob&, const LayoutsJob&) = default;
};

struct GetJob {
    std::string name;
    friend bool operator==(const GetJob&, const GetJob&) = default;
};

struct SetJob {
    std::string name, value;
    friend bool operator==(const SetJob&, const SetJob&) = default;
};

struct ListJob {
    std::string part; ///< only names that contain it; empty: all
    friend bool operator==(const ListJob&, const ListJob&) = default;
};

struct LogJob {
    friend bool operator==(const LogJob&, const LogJob&) = default;
};

struct DoctorJob {
    friend bool operator==(const DoctorJob&, const DoctorJob&) = default;
};

using Job = std::variant<ConvertJob, LayoutsJob, GetJob, SetJob, ListJob, LogJob, DoctorJob>;

} // namespace sm::app
