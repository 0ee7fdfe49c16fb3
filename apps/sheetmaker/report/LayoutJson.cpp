// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/LayoutJson.h"

#include <nlohmann/json.hpp>

namespace sm::app {

std::string LayoutJson(const std::vector<cadhost::LayoutFacts>& layouts)
{
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const cadhost::LayoutFacts& layout : layouts)
        array.push_back({{"name", layout.name},
                         {"model", layout.isModel},
                         {"active", layout.active},
                         {"tabOrder", layout.tabOrder},
                         {"paperWidth", layout.paperWidth},
                         {"paperHeight", layout.paperHeight},
                         {"media", layout.mediaName},
                         {"device", layout.configName},
                         {"styleTable", layout.styleSheet},
                         {"plotArea", layout.plotArea},
                         {"scale", layout.scale},
                         {"viewports", layout.viewports},
                         {"entities", layout.entities}});
    return array.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace sm::app
