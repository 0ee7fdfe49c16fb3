// SPDX-License-Identifier: GPL-3.0-or-later
// The button that leads to another drawing, with those that were opened lately in its menu.
#pragma once

#include "beside/Drawings.h"

#include <QToolButton>

#include <functional>
#include <optional>

namespace sm::qt {

class OpenButton final : public QToolButton {
public:
    explicit OpenButton(beside::IDrawings& drawings);

    std::function<void(const std::optional<std::string>& path)> onOpen; ///< nothing: the user is to be asked for one

private:
    void FillMenu();
    beside::IDrawings& m_drawings;
};

} // namespace sm::qt
