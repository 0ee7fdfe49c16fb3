// SPDX-License-Identifier: GPL-3.0-or-later
#include "plugin/cPlugin.h"

#include "doubles/TestHouse.h"

namespace sm {
namespace {

class PluginObject : public TestHouse {
protected:
    PluginObject() { PutSetting("PromptForFileName", "0"); }
    void Initialize() { ASSERT_EQ(plugin.Initialize(host.Application()), kTrue); }
    void ExpectClearContext()
    {
        EXPECT_EQ(context.g_AcadApp, nullptr);
        EXPECT_EQ(context.g_AcadDoc, nullptr);
        EXPECT_EQ(context.g_Log, nullptr);
        EXPECT_EQ(library.logsAlive, 0);
        EXPECT_EQ(library.documentsAlive, 0);
    }
    static std::vector<std::string> SaveCalls(const RecordingLibrary& library)
    {
        return library.tape.CallsOf("PubDoc.SaveToPdf");
    }
    /// The log calls but the lines between.
    [[nodiscard]] Lines LogCalls() const
    {
        Lines calls;
        for (const std::string& call : library.tape.CallsOf("Log.")) {
            if (call.rfind("Log.WriteLogLine", 0) != 0)
                calls.push_back(call);
        }
        return calls;
    }
    cPlugin plugin{context};
};

const char* const kCorruptedHost =
    "Certain AutoCAD functionality, which allows 3rd party plugins to operate, has been corrupted.\r\nThis is "
    "typically caused by uninstalling AutoCAD 14 after installing AutoCAD 2000. The problem\r\ncan be corrected by "
    "reinstalling AutoCAD 2000.";

TEST_F(PluginObject, InitializeTakesAnApplicationOnly)
{
    EXPECT_EQ(plugin.Initialize(nullptr), kFalse);
    EXPECT_EQ(plugin.Initialize(host.Application()), kTrue);
}

TEST_F(PluginObject, AFailedInitializeKeepsTheEarlierApplication)
{
    Initialize();
    EXPECT_EQ(plugin.Initialize(nullptr), kFalse);
    plugin.ConvertToPDF(0);
    EXPECT_EQ(SaveCalls(library).size(), 1U);
    (void)Log();
}

TEST_F(PluginObject, ConvertOpensAndClosesTheLogAndClearsTheContext)
{
    Initialize();
    plugin.ConvertToPDF(1);
    EXPECT_EQ(LogCalls(), (Lines{"Log.OpenLog SmPdfAcad.log | Tarnwick Sheetmaker PDF", "Log.CloseLog"}));
    EXPECT_EQ(Log().back(), "PDF FILE SAVED");
    ExpectClearContext();
}

TEST_F(PluginObject, ConvertWithoutInitializeShowsTheCorruptedHostMessage)
{
    plugin.ConvertToPDF(1);
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(kCorruptedHost, MessageButtons::Ok, MessageIcon::Critical, 390)}));
    EXPECT_EQ(library.tape.calls, Lines{});
    ExpectClearContext();
}

TEST_F(PluginObject, ShowSettingsOnAnInvalidHostReturnsFalseAndShowsNoDialog)
{
    Initialize();
    host.facts.ActiveDocument = nullptr;
    EXPECT_EQ(plugin.ShowSettings(1, 2, 3), kFalse);
    EXPECT_EQ(Messages(),
              (std::vector<Message>{ProductMessage(kCorruptedHost, MessageButtons::Ok, MessageIcon::Critical, 390)}));
    EXPECT_EQ(windows.calls, Lines{});
    EXPECT_EQ(library.tape.calls, Lines{});
}

TEST_F(PluginObject, ShowSettingsReturnsFalseAfterAConversion)
{
    Initialize();
    windows.settingsResult = 1;
    windows.whileSettingsAreShown = [&] { PutSetting("DeletePs", "0"); };
    EXPECT_EQ(plugin.ShowSettings(9, 1, 1), kFalse);
    EXPECT_EQ(SaveCalls(library), (Lines{"PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | 9 | 1 | 0 | 0"}))
        << "the settings are read after the dialog has saved them";
    EXPECT_EQ(Log().back(), "PDF FILE SAVED");
    ExpectClearContext();
}

TEST_F(PluginObject, ShowSettingsConvertsAfterCreatePdfOnly)
{
    Initialize();
    for (const std::int32_t answer : {0, -1, 2}) {
        windows.settingsResult = answer;
        EXPECT_EQ(plugin.ShowSettings(9, 0, 0), kFalse);
    }
    EXPECT_EQ(SaveCalls(library), Lines{});
    EXPECT_EQ(windows.calls.size(), 3U);
    ExpectClearContext();
}

TEST_F(PluginObject, TheLogIsOpenWhileTheDialogIsShown)
{
    Initialize();
    windows.whileSettingsAreShown = [&] {
        EXPECT_TRUE(library.logOpen);
        ASSERT_NE(context.g_Log, nullptr);
        context.g_Log->WriteLogLine("from the dialog");
    };
    plugin.ShowSettings(0, 0, 0);
    EXPECT_EQ(Log(), (Lines{"from the dialog"}));
    EXPECT_FALSE(library.logOpen);
}

TEST_F(PluginObject, AConversionGoesOnWithoutALog)
{
    Initialize();
    library.tape.FailCall("Library.CreateConversionLog", "no such object");
    plugin.ConvertToPDF(1);
    EXPECT_EQ(SaveCalls(library).size(), 1U);
    EXPECT_EQ(Log(), Lines{});
}

TEST_F(PluginObject, AConversionGoesOnWhenTheLogCannotBeOpenedOrWritten)
{
    Initialize();
    library.tape.FailCall("Log.OpenLog", "disk full");
    library.tape.FailCall("Log.WriteLogLine", "disk full");
    plugin.ConvertToPDF(1);
    EXPECT_EQ(SaveCalls(library).size(), 1U);
    EXPECT_EQ(LogCalls().back(), "Log.CloseLog");
    ExpectClearContext();
}

TEST_F(PluginObject, ShowLogBeforeTheFirstConversionSaysSo)
{
    plugin.ShowLog();
    EXPECT_EQ(Messages(), (std::vector<Message>{ProductMessage("A Log file has not yet been created.",
                                                               MessageButtons::Ok, MessageIcon::Critical, 270)}));
    EXPECT_EQ(library.logsAlive, 0);
}

TEST_F(PluginObject, ShowLogShowsTheFileThatExists)
{
    library.logExists = true;
    plugin.ShowLog();
    EXPECT_EQ(library.tape.calls, (Lines{"Library.CreateConversionLog", "Log.ShowLogFile SmPdfAcad.log"}));
    EXPECT_EQ(context.g_Log, nullptr);
}

TEST_F(PluginObject, ShowLogCountsAFailingLogAsNoLog)
{
    library.logExists = true;
    library.tape.FailCall("Log.ShowLogFile", "no viewer", 1);
    plugin.ShowLog();
    library.tape.FailCall("Library.CreateConversionLog", "no such object");
    plugin.ShowLog();
    EXPECT_EQ(Messages().size(), 2U);
}

TEST_F(PluginObject, VersionIsTheComponentsOwn)
{
    component.version = {12, 0, 345};
    EXPECT_EQ(plugin.Version(), "12.0.345");
}

TEST_F(PluginObject, WithNoSettingsStoredTheDefaultsAreRead)
{
    PutSetting("PromptForFileName", "");
    EXPECT_EQ(plugin.PromptForFileName(), kTrue);
    EXPECT_EQ(plugin.DeletePs(), kTrue);
    EXPECT_EQ(plugin.OpenInViewer(), kTrue);
    EXPECT_EQ(plugin.WhatToPlot(), 0);
    EXPECT_EQ(plugin.Optimization(), 0);
    EXPECT_EQ(plugin.JobOptionsFile(), "Graphics [600 dpi]");
}

TEST_F(PluginObject, WhatToPlotAndOptimizationStoreZeroOrOne)
{
    const struct {
        std::int32_t written;
        const char* stored;
    } rows[] = {{5, "0"}, {1, "1"}, {0, "0"}, {-1, "0"}, {2, "0"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.written);
        plugin.SetWhatToPlot(row.written);
        plugin.SetOptimization(row.written);
        EXPECT_EQ(Setting("WhatToPlot"), row.stored);
        EXPECT_EQ(Setting("Optimization"), row.stored);
    }
}

TEST_F(PluginObject, SwitchesAreStoredAsOneAndZero)
{
    plugin.SetPromptForFileName(kTrue);
    plugin.SetDeletePs(kFalse);
    plugin.SetOpenInViewer(kTrue);
    EXPECT_EQ(Setting("PromptForFileName"), "1");
    EXPECT_EQ(Setting("DeletePs"), "0");
    EXPECT_EQ(Setting("OpenInViewer"), "1");
    EXPECT_EQ(plugin.DeletePs(), kFalse);
}

TEST_F(PluginObject, ASwitchReadsTrueForEveryNumberButZero)
{
    const struct {
        const char* stored;
        VariantBool read;
    } rows[] = {{"2", kTrue}, {"-1", kTrue}, {"1", kTrue}, {"0", kFalse}, {"abc", kFalse}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.stored);
        PutSetting("OpenInViewer", row.stored);
        EXPECT_EQ(plugin.OpenInViewer(), row.read);
    }
}

TEST_F(PluginObject, WritingJobOptionsFileGoesToOptimization)
{
    plugin.SetJobOptionsFile("Proof");
    EXPECT_EQ(Setting("Optimization"), "Proof");
    EXPECT_EQ(Setting("JobOptionsFile"), "(absent)");
    EXPECT_EQ(plugin.Optimization(), 0);
    EXPECT_EQ(plugin.JobOptionsFile(), "Graphics [600 dpi]");

    PutSetting("JobOptionsFile", "Press");
    plugin.SetJobOptionsFile("1 bit");
    EXPECT_EQ(plugin.Optimization(), 1);
    EXPECT_EQ(plugin.JobOptionsFile(), "Press");
}

TEST_F(PluginObject, TheSettingsReachTheConversion)
{
    PutSetting("Optimization", "1");
    PutSetting("OpenInViewer", "0");
    PutSetting("DeletePs", "0");
    PutSetting("JobOptionsFile", "Proof");
    Initialize();
    plugin.ConvertToPDF(-5);
    EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPsFile"),
              (Lines{"PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 1190.5511811023623 | 841.8897637795276 | 600 | 1 | "
                     "C:\\Program Files\\Tarnwick\\Settings\\Proof.joboptions"}));
    EXPECT_EQ(SaveCalls(library), (Lines{"PubDoc.SaveToPdf C:\\Jobs\\Plan.pdf | -5 | 0 | 0 | 0"}));
    (void)Log();
}

} // namespace
} // namespace sm
