// SPDX-License-Identifier: GPL-3.0-or-later
// What an audit tells, and what becomes of it.
#include "cadhost/HostFixture.h"

namespace sm::cadhost {
namespace {

class HostAuditTest : public HostTest {
protected:
    /// "code x count" of each finding of the last audit; "none" without one.
    std::string Audited(const std::shared_ptr<IAcadDocument>& document)
    {
        const auto audited = host->Report(document).audited;
        if (!audited)
            return "none";
        std::string text = audited->fixErrors ? "fixed:" : "seen:";
        for (const drawing::Finding& finding : audited->findings)
            text += " " + std::to_string(finding.code) + " x " + std::to_string(finding.count);
        return text;
    }
    /// Two sheets with one tab order, and a VERTEX that belongs to nothing.
    static DxfDrawing Damaged()
    {
        DxfDrawing drawing;
        drawing.AddSheet("Sheet 1");
        drawing.AddSheet("Sheet 2").tabOrder = 1;
        drawing.model.entities = Tag(0, "VERTEX") + Tag(8, "0") + Tag(0, "VERTEX") + Tag(8, "0");
        return drawing;
    }
    static DxfDrawing Sound()
    {
        DxfDrawing drawing;
        drawing.AddSheet("Sheet 1");
        return drawing;
    }
};

TEST_F(HostAuditTest, TellsWhatTheReaderMended)
{
    const auto document = Open(Damaged());
    EXPECT_EQ(Audited(document), "none");
    document->AuditInfo(true);
    EXPECT_EQ(Audited(document), "fixed: 501 x 2 602 x 1");
    document->AuditInfo(false);
    EXPECT_EQ(Audited(document), "seen: 501 x 2 602 x 1");
}

TEST_F(HostAuditTest, FindsNothingInASoundDrawing)
{
    const auto document = Open(Sound());
    document->AuditInfo(true);
    EXPECT_EQ(Audited(document), "fixed:");
}

TEST_F(HostAuditTest, IsNothingToSave)
{
    const std::string before = Damaged().Text();
    const auto document = Open(Damaged());
    document->AuditInfo(true);
    document->Close(true);
    std::ifstream file(folder / "plan1.dxf", std::ios::binary);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(file), {}}), before);
    EXPECT_FALSE(std::filesystem::exists(folder / "plan1.dxf.bak"));
    EXPECT_EQ(ErrorOf([&] { document->AuditInfo(true); }), "the drawing 'plan1.dxf' is closed");
}

TEST_F(HostAuditTest, BelongsToOneDocument)
{
    const auto first = Open(Damaged()), second = Open(Damaged());
    first->AuditInfo(true);
    EXPECT_EQ(Audited(second), "none");
    first->Close(false);
    EXPECT_EQ(Audited(host->Open((folder / "plan1.dxf").string())), "none");
}

} // namespace
} // namespace sm::cadhost
