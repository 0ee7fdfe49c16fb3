// SPDX-License-Identifier: GPL-3.0-or-later
// A host over drawings that a test writes into a folder of its own.
#pragma once

#include "DxfText.h"
#include "cadhost/CadHost.h"
#include "cadhost/DocumentReport.h"
#include "cadhost/HostOptions.h"
#include "ports/HostError.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>

namespace sm::cadhost {

inline const std::string kShare = std::string(SM_SOURCE_DIR) + "/share/sheetmaker-pdf";

/// The description of the HostError that `call` throws; a failure of the test when it throws none.
template <class Call> std::string ErrorOf(Call&& call)
{
    try {
        call();
    } catch (const HostError& error) {
        return error.Description();
    }
    ADD_FAILURE() << "no HostError was thrown";
    return {};
}

class HostTest : public ::testing::Test {
protected:
    HostTest()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "sm-cadhost-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        folder = pattern;
        host = CadHost::Create({kShare, "R. Draughtsman"});
    }
    ~HostTest() override { std::filesystem::remove_all(folder); }

    std::string Write(const std::string& name, const std::string& text) const
    {
        const std::string path = (folder / name).string();
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    /// A drawing of its own for each call.
    std::shared_ptr<IAcadDocument> Open(const DxfDrawing& drawing, const DocumentOverlay& overlay = {})
    {
        return host->Open(Write("plan" + std::to_string(++m_count) + ".dxf", drawing.Text()), overlay);
    }
    std::shared_ptr<IAcadLayout> OpenSheet(const DxfDrawing& drawing, const std::string& name = "Sheet 1")
    {
        return Open(drawing)->Layouts()->Item(name);
    }

    std::filesystem::path folder;
    std::unique_ptr<CadHost> host;

private:
    int m_count = 0;
};

} // namespace sm::cadhost
