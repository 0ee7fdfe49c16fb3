// SPDX-License-Identifier: GPL-3.0-or-later
#include "doubles/TestHouse.h"

#include "plotting/PaperTable.h"

#include <ostream>
#include <set>

namespace sm {

HouseParts::HouseParts()
{
    SeedRegistry();
    SeedFiles();
    SeedSession();
    SeedDrawing();
}

void HouseParts::SeedRegistry()
{
    const auto user = RegistryRoot::CurrentUser;
    const auto machine = RegistryRoot::LocalMachine;
    registry.Put(machine, kUserKey, "HelpFile", kHelpFile);
    registry.Put(machine, kUserKey, "SettingsFolder", "C:\\Program Files\\Tarnwick\\Settings");
    registry.Put(machine, "Software\\Tarnwick Software\\Sheetmaker PDF", "Version", "3.0");
    registry.Put(user, "Software\\Autodesk\\AutoCAD", "CurVer", "R16.0");
    registry.Put(user, "Software\\Autodesk\\AutoCAD\\R16.0", "CurVer", "ACAD-201:409");
    registry.Put(machine, "Software\\Autodesk\\AutoCAD", "CurVer", "R15.0");
    registry.Put(machine, "Software\\Autodesk\\AutoCAD\\R15.0", "CurVer", "ACAD-1:409");
    registry.Put(machine, "Software\\Autodesk\\AutoCAD\\R16.0\\ACAD-201:409", "AcadLocation", "C:\\Acad");
    registry.Put(machine, "Software\\Autodesk\\AutoCAD\\R15.0\\ACAD-1:409", "AcadLocation", "C:\\Acad15");
}

void HouseParts::SeedFiles()
{
    files.AddFile("C:\\Acad\\Drivers\\ps8.hdi");
    for (const char* name : {"PS6 HighRes", "PS6 MidRes", "PS7 HighRes", "PS7 MidRes", "PS8 HighRes", "PS8 MidRes"})
        files.AddFile(std::string(kPc3Folder) + "\\Tarnwick " + name + ".pc3");
    files.AddFile("C:\\Program Files\\Tarnwick\\Settings\\Graphics [600 dpi].joboptions");
    files.AddFile("C:\\Program Files\\Tarnwick\\Settings\\Proof.JobOptions");
    files.AddFile("C:\\Program Files\\Tarnwick\\Settings\\readme.txt");
}

void HouseParts::SeedSession()
{
    SessionFacts& session = host.facts;
    session.Devices = {"None", "\\\\server\\plotter"};
    session.MediaOf["\\\\server\\plotter"] = {"A3", "A4"};
    session.Styles = {"Florida.ctb", "monochrome.ctb"};
    std::vector<PaperSize> table;
    LoadPaperTable(table);
    std::vector<std::string> media;
    for (const PaperSize& row : table) {
        media.push_back(row.CanonicalMediaName);
        session.Sheets[row.CanonicalMediaName] = {row.Width, row.Height};
    }
    for (const std::string& name : files.ListFiles(kPc3Folder)) {
        session.DevicesIn[kPc3Folder].push_back(name);
        session.MediaOf[name] = media;
    }
}

void HouseParts::SeedDrawing()
{
    drawing = host.AddDocument(DocumentFacts{});
    drawing->Variables["EXTMIN"] = AcadPoint{0, 0, 0};
    drawing->Variables["EXTMAX"] = AcadPoint{420, 297, 0};
    LayoutFacts layout;
    layout.Name = "Model";
    layout.TabOrder = 0;
    layout.ModelType = true;
    layout.Block = {"*Model_Space", {}};
    layout.ConfigName = "\\\\server\\plotter";
    layout.CanonicalMediaName = "A4";
    layout.PaperWidth = 297;
    layout.PaperHeight = 210;
    layout.PlotType = 1;
    layout.CenterPlot = true;
    layout.StandardScale = 0;
    model = drawing->AddLayout(layout);

    layout.Name = "Ground";
    layout.TabOrder = 1;
    layout.ModelType = false;
    layout.Block = {"*Paper_Space", {}};
    layout.CanonicalMediaName = "A3";
    layout.PaperWidth = 420;
    layout.PaperHeight = 297;
    layout.PlotType = 5;
    layout.CenterPlot = false;
    layout.StandardScale = 16;
    layout.StyleSheet = "Florida.ctb";
    ground = drawing->AddLayout(layout);

    layout.Name = "Upper";
    layout.TabOrder = 2;
    layout.Block = {"*Paper_Space0", {}};
    layout.PlotType = 1;
    layout.UseStandardScale = false;
    layout.ScaleDenominator = 50;
    layout.PlotOrigin = {2.5, -1, 0};
    layout.StyleSheet = "";
    upper = drawing->AddLayout(layout);
    drawing->ActiveLayout = ground;
}

void HouseParts::BeginCall()
{
    context.g_AcadApp = host.Application();
    context.g_AcadDoc = host.Document(drawing);
    context.g_Log = library.CreateConversionLog();
    context.g_Log->OpenLog("SmPdfAcad.log", "Test");
    library.tape.calls.clear();
}

std::string HouseParts::Setting(const std::string& name) const
{
    return registry.Text(RegistryRoot::CurrentUser, kUserKey, name);
}

void HouseParts::PutSetting(const std::string& name, const std::string& text)
{
    registry.Put(RegistryRoot::CurrentUser, kUserKey, name, text);
}

std::string HouseParts::PendingFolder() const
{
    const std::string folder = registry.Text(RegistryRoot::CurrentUser, kReleaseUserKey, "PrinterConfigPath");
    return folder == "(absent)" ? "" : folder;
}

void HouseParts::PutMarks(const std::shared_ptr<LayoutFacts>& layout, int count)
{
    PutSetting("TransferDrawingHlinks", "1");
    for (int i = 1; i <= count; ++i)
        layout->Block.Entities.push_back(
            {"AcDbLine", {1, 2, 0}, {3, 4, 0}, {{"https://mark.example/" + std::to_string(i), ""}}, {}});
}

void HouseParts::UseDriver(const std::string& fileName)
{
    for (const char* name : {"ps6.hdi", "ps7.hdi", "ps8.hdi"})
        files.Remove(std::string("C:\\Acad\\Drivers\\") + name);
    if (!fileName.empty())
        files.AddFile("C:\\Acad\\Drivers\\" + fileName);
}

void TestHouse::TearDown()
{
    if (IsSkipped())
        return;
    EXPECT_EQ(library.TakeLog(), Lines{}) << "log lines that the test never looked at";
    EXPECT_EQ(desktop.TakeMessages(), std::vector<Message>{}) << "messages that the test never looked at";
}

TestHouse::Lines TestHouse::MilestonesOf(const Lines& log)
{
    const std::set<std::string> headings{"TEXT STAMP", "FILE ATTACHMENTS", "DIGITAL SIGNATURE FIELDS", "HYPERLINKS",
                                         "BLOCK ATTRIBUTES"};
    Lines lines;
    for (const std::string& line : log) {
        if (line.front() != ' ' && !headings.contains(line))
            lines.push_back(line);
    }
    return lines;
}

Message TestHouse::ProductMessage(const std::string& text, MessageButtons buttons, MessageIcon icon,
                                  std::int32_t helpContext)
{
    return {text, "Tarnwick Sheetmaker PDF", buttons, icon, kHelpFile, helpContext};
}

void PrintTo(const Message& message, std::ostream* out)
{
    *out << "\n\"" << message.text << "\" titled \"" << message.title << "\", buttons "
         << static_cast<int>(message.buttons) << ", icon " << static_cast<int>(message.icon) << ", help "
         << message.helpFile << " at " << message.helpContext << "\n";
}

} // namespace sm
