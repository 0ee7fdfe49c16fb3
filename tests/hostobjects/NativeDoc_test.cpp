// SPDX-License-Identifier: GPL-3.0-or-later
// One drawing as a native document: the three ways to get it, its operations and facts, and every call failing.
#include "doubles/FaultSweep.h"
#include "hostobjects/cNativeDoc.h"

namespace sm {
namespace {

/// The front end's object and its list in one, writing down what is released.
class RecordingOwner : public INativeDocOwner, public std::enable_shared_from_this<RecordingOwner> {
public:
    std::vector<std::int32_t> released;
    FaultPlan* faults = nullptr;
    std::shared_ptr<INativeDocList> Documents() override
    {
        Check();
        if (faults != nullptr && faults->ShouldAnswerNothing())
            return nullptr;
        return std::make_shared<List>(shared_from_this());
    }

private:
    struct List : INativeDocList {
        explicit List(std::shared_ptr<RecordingOwner> ownerObject) : owner(std::move(ownerObject)) {}
        void ReleaseEntry(std::int32_t index) override
        {
            owner->Check();
            owner->released.push_back(index);
        }
        std::shared_ptr<RecordingOwner> owner;
    };
    void Check()
    {
        if (faults != nullptr && faults->ShouldFail())
            throw HostError("injected");
    }
};

class NativeDoc : public TestHouse {
protected:
    NativeDoc() : app(host.Application()) {}
    bool InitByName(const std::string& path) { return doc.InitGetDocByName(3, app, owner, path) == kTrue; }

    std::shared_ptr<IAcadApplication> app;
    std::shared_ptr<RecordingOwner> owner = std::make_shared<RecordingOwner>();
    cNativeDoc doc{context};
};

TEST_F(NativeDoc, StartsUninitialised)
{
    EXPECT_EQ(doc.Index(), -1);
    EXPECT_EQ(doc.CustomPageSetup(), nullptr);
    EXPECT_EQ(doc.FullName(), "");
    EXPECT_EQ(doc.SheetCount(), 0);
    EXPECT_EQ(doc.GetSheetName(0), AcadVariant());
    EXPECT_EQ(doc.AddToPubDoc(library.CreatePubDoc(), "Ground", kTrue, 1200, ""), -4);
    doc.CloseDoc(kTrue);
    EXPECT_EQ(owner->released, std::vector<std::int32_t>{});
}

TEST_F(NativeDoc, WrapsADrawingOnce)
{
    DocumentFacts other;
    other.Name = "Other.dwg";
    const auto second = host.AddDocument(other);
    EXPECT_EQ(doc.InitGetDoc(5, app, owner, host.Document(drawing)), kTrue);
    EXPECT_EQ(doc.InitGetDoc(6, app, owner, host.Document(second)), kFalse);
    EXPECT_EQ(doc.InitOpenDoc(6, app, owner, "C:\\Jobs\\Other.dwg"), kFalse);
    EXPECT_EQ(doc.InitGetDocByName(6, app, owner, "C:\\Jobs\\Plan.dwg"), kFalse);
    EXPECT_EQ(doc.Index(), 5);
    EXPECT_EQ(doc.Name(), "Plan.dwg");
}

TEST_F(NativeDoc, FindsAnOpenDrawingByPathLetterCaseAside)
{
    EXPECT_FALSE(InitByName("C:\\Jobs\\Nowhere.dwg"));
    EXPECT_EQ(doc.Index(), -1);
    EXPECT_TRUE(InitByName("c:\\JOBS\\plan.DWG"));
    EXPECT_EQ(doc.Index(), 3);
    EXPECT_EQ(doc.FullName(), "C:\\Jobs\\Plan.dwg");
    EXPECT_EQ(doc.IsActive(), kTrue);
}

TEST_F(NativeDoc, OpensADrawing)
{
    DocumentFacts file;
    file.Name = "Site.dwg";
    file.FullName = "C:\\Jobs\\Site.dwg";
    host.facts.Files["C:\\Jobs\\Site.dwg"] = std::make_shared<DocumentFacts>(file);
    EXPECT_EQ(doc.InitOpenDoc(2, app, owner, "C:\\Jobs\\Missing.dwg"), kFalse);
    EXPECT_EQ(doc.Index(), -1);
    EXPECT_EQ(doc.InitOpenDoc(2, app, owner, "C:\\Jobs\\Site.dwg"), kTrue);
    EXPECT_EQ(doc.Index(), 2);
    EXPECT_EQ(doc.Name(), "Site.dwg");
}

TEST_F(NativeDoc, AFailingValidationStillInitialises)
{
    drawing->ActiveLayout = nullptr;
    EXPECT_FALSE(InitByName("C:\\Jobs\\Plan.dwg"));
    EXPECT_EQ(doc.Index(), 3);
    EXPECT_EQ(doc.CustomPageSetup(), nullptr);
    EXPECT_EQ(doc.AddToPubDoc(library.CreatePubDoc(), "Ground", kTrue, 1200, ""), -4);
    EXPECT_EQ(Messages(), std::vector<Message>{});
}

TEST_F(NativeDoc, GivesTheDrawingsFacts)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    EXPECT_EQ(doc.SheetCount(), 3);
    EXPECT_EQ(doc.GetSheetName(0), AcadVariant(std::string("Model")));
    EXPECT_EQ(doc.GetSheetName(2), AcadVariant(std::string("Upper")));
    EXPECT_EQ(doc.GetSheetName(3), AcadVariant());
    EXPECT_EQ(doc.WindowState(), 1);
    doc.SetWindowState(3);
    EXPECT_EQ(drawing->WindowState, 3);
    ASSERT_NE(doc.CustomPageSetup(), nullptr);
    EXPECT_EQ(doc.CustomPageSetup()->CanonicalMediaName(), "ANSI_A_(11.00_x_8.50_Inches)");
}

TEST_F(NativeDoc, KeepsThePageSetupSelectionInTheDrawing)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    EXPECT_EQ(doc.PageSetupSelected(), 0);
    doc.SetPageSetupSelected(2);
    EXPECT_EQ(drawing->XData["TWSI_PltSel"], (AcadXData{{1001, 1000}, {std::string("TWSI_PltSel"), std::string("2")}}));
    EXPECT_EQ(doc.PageSetupSelected(), 2);
}

TEST_F(NativeDoc, AuditsWhateverTheLetterCaseOfTheCommand)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    host.tape.calls.clear();
    EXPECT_EQ(doc.ExeCmd("audit", "ignored"), AcadVariant());
    EXPECT_EQ(host.tape.CallsWith("AuditInfo"), Lines{"Document.AuditInfo 1"});
    EXPECT_EQ(doc.ExeCmd("PURGE", ""), AcadVariant());
    EXPECT_EQ(host.tape.calls.size(), 1u);
}

TEST_F(NativeDoc, AuditsInATurkishLocale)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    locale.turkish = true;
    host.tape.calls.clear();
    (void)doc.ExeCmd("Audit", "");
    EXPECT_EQ(host.tape.CallsWith("AuditInfo"), Lines{"Document.AuditInfo 1"});
}

TEST_F(NativeDoc, GivesNothingForObjectsThatAreNotThere)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    host.tape.AnswerNothing("Layouts.Item");
    EXPECT_EQ(doc.GetSheetName(1), AcadVariant());
    host.tape.AnswerNothing("Document.Layouts");
    EXPECT_EQ(doc.GetSheetName(1), AcadVariant());
    EXPECT_EQ(doc.SheetCount(), 0);
    cNativeDoc other(context);
    host.tape.AnswerNothing("Application.Documents");
    EXPECT_EQ(other.InitOpenDoc(2, app, owner, "C:\\Jobs\\Site.dwg"), kFalse);
    EXPECT_EQ(other.Index(), -1);
}

TEST_F(NativeDoc, ReleasesItsEntryWithAndWithoutClosing)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    doc.ReleaseDoc();
    EXPECT_FALSE(drawing->Closed);
    doc.CloseDoc(kFalse);
    EXPECT_TRUE(drawing->Closed);
    EXPECT_EQ(host.tape.CallsWith("Close"), Lines{"Document.Close 0"});
    EXPECT_EQ(owner->released, (std::vector<std::int32_t>{3, 3}));
}

TEST_F(NativeDoc, AddsOneSheetWithALogOfItsOwn)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    doc.SetPageSetupSelected(2);
    library.tape.calls.clear();
    EXPECT_EQ(doc.AddToPubDoc(library.CreatePubDoc(), "Upper", kTrue, 600, ""), 0);
    EXPECT_EQ(library.tape.CallsWith("OpenLog"), Lines{"Log.OpenLog SmPdfAcad.log | Tarnwick Sheetmaker PDF"});
    EXPECT_EQ(library.tape.CallsWith("CloseLog"), Lines{"Log.CloseLog"});
    EXPECT_EQ(library.tape.CallsWith("AddPsFile"),
              Lines{"PubDoc.AddPsFile C:\\Temp\\sheet1.ps | 792 | 612 | 600 | 1 | "});
    EXPECT_EQ(library.tape.CallsWith("SaveToPdf"), Lines{});
    const Lines log = Log();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front(), "USE GLOBAL PAGE SETUP FOR UPPER");
    EXPECT_EQ(context.g_AcadApp, nullptr);
    EXPECT_EQ(context.g_AcadDoc, nullptr);
    EXPECT_EQ(context.g_Log, nullptr);
}

TEST_F(NativeDoc, CountsBlocksFromOneForEverySheet)
{
    PutSetting("TransferAttributes", "1");
    drawing->Blocks.push_back({"TITLE", {}});
    ground->Block.Entities = {{"AcDbBlockReference", {}, {}, {}, BlockReferenceFacts{"TITLE", {}, {{"REV", "A"}}, {}}},
                              {"AcDbBlockReference", {}, {}, {}, BlockReferenceFacts{"TITLE", {}, {{"REV", "B"}}, {}}}};
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    const auto pubDoc = library.CreatePubDoc();
    for (int i = 0; i < 2; ++i) {
        library.tape.calls.clear();
        EXPECT_EQ(doc.AddToPubDoc(pubDoc, "Ground", kTrue, 600, ""), 0);
        EXPECT_EQ(library.tape.CallsOf("PubDoc.AddPropertyMark"),
                  (Lines{"PubDoc.AddPropertyMark 0 | TITLE_1/REV | A", "PubDoc.AddPropertyMark 0 | TITLE_2/REV | B"}));
    }
    (void)Log();
}

TEST_F(NativeDoc, AnUnknownSheetIsToldByItsStatus)
{
    ASSERT_TRUE(InitByName("C:\\Jobs\\Plan.dwg"));
    EXPECT_EQ(doc.AddToPubDoc(library.CreatePubDoc(), "Attic", kTrue, 1200, ""), -13);
    const Lines log = Log();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.back(), "ERROR: PlotLayoutToPubDoc -13");
}

/// Every operation once, on a drawing found by its path.
void UseEverything(HouseParts& house, cNativeDoc& doc, const std::shared_ptr<RecordingOwner>& owner)
{
    doc.InitGetDocByName(1, house.host.Application(), owner, "C:\\Jobs\\Plan.dwg");
    doc.SetPageSetupSelected(1);
    doc.PageSetupSelected();
    doc.FullName();
    doc.Name();
    doc.IsActive();
    doc.SheetCount();
    doc.GetSheetName(1);
    doc.SetWindowState(2);
    doc.WindowState();
    doc.ExeCmd("AUDIT", "");
    doc.AddToPubDoc(house.context.surroundings.library.CreatePubDoc(), "Ground", kTrue, 1200, "");
    doc.ReleaseDoc();
    doc.CloseDoc(kFalse);
}

int Sweep(FaultPlan::Mode mode, FaultPlan::Kind kind = FaultPlan::Kind::Throws)
{
    int injected = 0;
    for (int countdown = 1;; ++countdown) {
        HouseParts house;
        const auto owner = std::make_shared<RecordingOwner>();
        FaultPlan plan{mode, countdown, kind};
        house.host.tape.faults = &plan;
        owner->faults = &plan;
        {
            cNativeDoc doc(house.context);
            UseEverything(house, doc, owner);
        }
        EXPECT_EQ(house.context.g_Log, nullptr) << countdown;
        EXPECT_EQ(house.context.g_AcadDoc, nullptr) << countdown;
        EXPECT_FALSE(house.library.logOpen) << countdown;
        if (mode == FaultPlan::Mode::Once)
            ExpectPlotterFolderKept(house);
        (void)house.library.TakeLog();
        (void)house.desktop.TakeMessages();
        if (plan.injected == 0)
            return injected;
        injected += plan.injected;
    }
}

TEST(NativeDocFaults, NothingEscapesFromAnyOperation)
{
    EXPECT_GT(Sweep(FaultPlan::Mode::Once), 100);
    EXPECT_GT(Sweep(FaultPlan::Mode::Once, FaultPlan::Kind::AnswersNothing), 40);
    EXPECT_GT(Sweep(FaultPlan::Mode::Onwards), 100);
}

} // namespace
} // namespace sm
