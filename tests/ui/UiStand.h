// SPDX-License-Identifier: GPL-3.0-or-later
// The test house with a call under way and a scripted toolkit for the forms.
#pragma once

#include "doubles/ScriptedToolkit.h"
#include "doubles/TestHouse.h"
#include "ui/form/FormSession.h"

namespace sm {

class UiStand : public TestHouse {
protected:
    UiStand() { BeginCall(); }
    void TearDown() override
    {
        EXPECT_EQ(toolkit.ScriptsLeft(), 0U) << "forms that were to be shown and weren't";
        TestHouse::TearDown();
    }

    using Texts = std::vector<std::string>;
    ScriptedToolkit toolkit;
    FormSession session{context, toolkit, {}};
};

} // namespace sm
