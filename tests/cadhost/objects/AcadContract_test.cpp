// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/HostFixture.h"
#include "doubles/AcadContract.h"
#include "doubles/ScriptedContractHost.h"

namespace sm {
namespace {

class EmbeddedContractHost {
public:
    EmbeddedContractHost() : m_folder(std::filesystem::temp_directory_path() / "sm-contract-XXXXXX")
    {
        std::string pattern = m_folder.string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        m_folder = pattern;
        m_host = cadhost::CadHost::Create({cadhost::kShare, "R. Draughtsman"});
        for (const std::string& path : {OtherFile(), (m_folder / "Plan.dxf").string()})
            std::ofstream(path, std::ios::binary) << Drawing().Text();
        m_host->Open((m_folder / "Plan.dxf").string());
    }
    ~EmbeddedContractHost() { std::filesystem::remove_all(m_folder); }
    EmbeddedContractHost(const EmbeddedContractHost&) = delete;
    EmbeddedContractHost& operator=(const EmbeddedContractHost&) = delete;

    std::shared_ptr<IAcadApplication> Application() { return m_host->Application(); }
    [[nodiscard]] std::string MissingFile() const { return (m_folder / "missing.dxf").string(); }
    [[nodiscard]] std::string OtherFile() const { return (m_folder / "Other.dxf").string(); }
    [[nodiscard]] std::string MissingFolder() const { return (m_folder / "missing").string(); }
    [[nodiscard]] std::string Folder() const { return m_folder.string(); }
    static std::string OtherDevice() { return "None"; }

private:
    static cadhost::DxfDrawing Drawing()
    {
        using cadhost::Tag;
        cadhost::DxfDrawing drawing;
        drawing.active = 1;
        drawing.views = cadhost::ViewTags("Plan", 50, 40, 100, 80);
        drawing.blocks = Tag(0, "BLOCK") + Tag(8, "0") + Tag(2, "DOOR") + Tag(70, 2) + Tag(10, 0) + Tag(20, 0) +
                         Tag(3, "DOOR") + cadhost::LineTags(0, 0, 1, 0) + Tag(0, "ENDBLK") + Tag(8, "0");
        cadhost::DxfLayout& sheet = drawing.AddSheet("Sheet 1");
        sheet.configName = "office";
        sheet.entities = cadhost::LineTags(0, 0, 100, 50, Tag(67, 1)) + Tag(0, "INSERT") + Tag(8, "0") + Tag(67, 1) +
                         Tag(66, 1) + Tag(2, "DOOR") + Tag(10, 7) + Tag(20, 8) + Tag(0, "ATTRIB") + Tag(8, "0") +
                         Tag(67, 1) + Tag(10, 7) + Tag(20, 8) + Tag(40, 1) + Tag(1, "D-17") + Tag(2, "NUMBER") +
                         Tag(70, 0) + Tag(0, "SEQEND") + Tag(8, "0");
        drawing.AddSheet("Sheet 2");
        return drawing;
    }
    std::filesystem::path m_folder;
    std::unique_ptr<cadhost::CadHost> m_host;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Embedded, AcadContract, EmbeddedContractHost);
INSTANTIATE_TYPED_TEST_SUITE_P(Scripted, AcadContract, ScriptedContractHost);

} // namespace
} // namespace sm
