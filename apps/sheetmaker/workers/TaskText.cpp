// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/TaskText.h"

#include <nlohmann/json.hpp>

namespace sm::app {

std::string TaskText(const DrawingTask& task)
{
    nlohmann::ordered_json object{{"drawing", task.drawing},     {"logFileName", task.logFileName},
                                  {"logFolder", task.logFolder}, {"workFolder", task.workFolder},
                                  {"sheets", task.sheets},       {"inHand", task.inHand},
                                  {"placeFile", task.placeFile}};
    if (task.savePath)
        object["savePath"] = *task.savePath;
    return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

DrawingTask TaskFromText(const std::string& text)
{
    const auto object = nlohmann::ordered_json::parse(text);
    DrawingTask task;
    task.drawing = object.at("drawing");
    task.logFileName = object.at("logFileName");
    task.logFolder = object.at("logFolder");
    task.workFolder = object.at("workFolder");
    task.sheets = object.at("sheets").get<std::vector<std::string>>();
    task.inHand = object.at("inHand");
    task.placeFile = object.at("placeFile");
    if (object.contains("savePath"))
        task.savePath = object.at("savePath").get<std::string>();
    return task;
}

} // namespace sm::app
