// SPDX-License-Identifier: GPL-3.0-or-later
// The preview laid beside the PDF's picture: the same page, drawn by somebody else's reader.
#include "Dispatch.h"
#include "app/Fixtures.h"
#include "beside/PagePane.h"
#include "drawing/Drawing.h"
#include "picture/QtPixelCanvas.h"
#include "qt/QtStand.h"
#include "run/DrawingRun.h"
#include "run/RunSession.h"
#include "scene/ItemPainter.h"
#include "scene/SoftCanvas.h"
#include "screen/PagePreview.h"
#include "settings/mdlDataKegIO.h"

#include <QProcess>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <sstream>

namespace sm::qt {
namespace {

constexpr double kDotsPerInch = 150;
constexpr int kInk = 200; // grey below which a pixel counts as ink

struct PreviewCase {
    const char* name;
    const char* sample;
    const char* layout;
    std::int32_t source;
    std::vector<std::string> words; ///< of "page-setup", before
};

const PreviewCase kCases[] = {
    {"native", "house.dxf", "A-101 Ground Floor", kPageSetupNative, {}},
    {"model", "house.dxf", "Model", kPageSetupNative, {}},
    {"global", "house.dxf", "A-201 Section", kPageSetupGlobal, {}},
    {"flange", "flange.dxf", "", kPageSetupNative, {}},
    {"site", "site.dxf", "", kPageSetupNative, {}},
    {"custom",
     "house.dxf",
     "A-102 Upper Floor",
     kPageSetupCustom,
     {"CanonicalMediaName=ISO_A4_(210.00_x_297.00_MM)", "StyleSheet=monochrome.ctb", "PlotWithPlotStyles=1",
      "PlotType=1"}},
    {"turned", "house.dxf", "A-201 Section", kPageSetupCustom, {"PlotRotation=1", "PlotType=1"}},
};

class PreviewBeside : public testing::TestWithParam<PreviewCase> {
protected:
    void SetUp() override
    {
        TheScreen();
        drawing = machine.In(GetParam().sample);
        std::filesystem::copy_file(std::string(SM_SOURCE_DIR) + "/samples/" + GetParam().sample, drawing);
        install = machine.Here();
        install.places.shareFolder = SM_SOURCE_DIR "/share/sheetmaker-pdf";
        install.environment = [before = install.environment](const std::string& name) {
            const char* const path = std::getenv("PATH");
            return name == "PATH" && path != nullptr ? std::optional<std::string>(path) : before(name);
        };
        layout = GetParam().layout;
        std::vector<std::string> words{"page-setup", drawing};
        for (const std::string& word : GetParam().words)
            words.insert(words.end(), {"--set", word});
        std::ostringstream said;
        if (words.size() > 2) {
            EXPECT_EQ(app::RunProgram(words, install, said, said), 0) << said.str();
        }
    }

    /// What the dialog would hold of the drawing as it is.
    app::PreviewWish Wish()
    {
        std::ostringstream said;
        terminal::Console console(said, false);
        app::DrawingReport report;
        app::DrawingTask task;
        task.drawing = drawing;
        task.options.asSet = true;
        app::RunSession session(task, install, console, report);
        session.Open(drawing);
        if (layout.empty())
            layout = session.PagesByDefault().front();
        session.Activate(layout);
        app::PreviewWish wish{layout, {}};
        EXPECT_EQ(LoadForDialog(session.Context(), *session.Document(), wish.keg), 0);
        wish.keg.PageSetupSelected = GetParam().source;
        return wish;
    }

    DrawnPreview Drawn()
    {
        const app::PreviewWish wish = Wish();
        app::PagePreview source(drawing, install, [&] { return std::optional(wish); });
        EXPECT_TRUE(source.Renew());
        EXPECT_FALSE(source.Renew()) << "nothing has changed";
        const std::atomic<bool> stop = false;
        const DrawnPreview drawn = DrawPreview(source, stop);
        EXPECT_EQ(drawn.page.trouble, "");
        return drawn;
    }

    static QImage Painted(const DrawnPreview& drawn, scene::IPixelCanvases& canvases)
    {
        const auto pixels = [](double millimetres) {
            return static_cast<int>(std::lround(millimetres / 25.4 * kDotsPerInch));
        };
        scene::PixelImage image(pixels(drawn.page.width), pixels(drawn.page.height));
        const ViewMap map{
            {drawn.page.width / 2, drawn.page.height / 2}, kDotsPerInch / 25.4, image.Width(), image.Height()};
        PaintPicture(*drawn.picture, map, image, image.All(), canvases, [] { return true; });
        return QImage(reinterpret_cast<const uchar*>(image.Row(0)), image.Width(), image.Height(), 4 * image.Width(),
                      QImage::Format_RGB32)
            .copy();
    }

    QImage Pdf()
    {
        app::DrawingTask task;
        task.drawing = drawing;
        task.savePath = machine.In("page.pdf");
        task.options.layoutNames = {layout};
        task.options.pageSetupSource = GetParam().source;
        std::ostringstream said;
        terminal::Console console(said, false);
        const app::DrawingReport report = app::ConvertDrawing(task, install, console);
        EXPECT_EQ(report.failure, "");
        QProcess::execute("pdftoppm",
                          {"-r", QString::number(kDotsPerInch), "-png", "-singlefile",
                           QString::fromStdString(*task.savePath), QString::fromStdString(machine.In("page"))});
        return QImage(QString::fromStdString(machine.In("page.png")));
    }

    app::Machine machine;
    app::Install install;
    std::string drawing, layout;
};

bool HasInk(const QImage& image, int x, int y)
{
    return image.valid(x, y) && qGray(image.pixel(x, y)) < kInk;
}

bool HasInkNear(const QImage& image, int x, int y)
{
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            if (HasInk(image, x + dx, y + dy))
                return true;
    return false;
}

/// The edge of the paper is drawn on the screen alone.
constexpr int kEdge = 2;

/// Pixels of ink, and how many of them have none within a pixel in the other picture.
std::pair<int, int> Alone(const QImage& image, const QImage& other)
{
    int ink = 0, alone = 0;
    for (int y = kEdge; y < image.height() - kEdge; ++y)
        for (int x = kEdge; x < image.width() - kEdge; ++x)
            if (HasInk(image, x, y)) {
                ++ink;
                alone += HasInkNear(other, x, y) ? 0 : 1;
            }
    return {ink, alone};
}

void ExpectSamePage(const QImage& preview, const QImage& pdf)
{
    EXPECT_LE(std::abs(preview.width() - pdf.width()), 1);
    EXPECT_LE(std::abs(preview.height() - pdf.height()), 1);
    const auto [ours, oursAlone] = Alone(preview, pdf);
    const auto [theirs, theirsAlone] = Alone(pdf, preview);
    EXPECT_GT(ours, 500);
    EXPECT_LE(oursAlone, ours * 0.005) << ours;
    EXPECT_LE(theirsAlone, theirs * 0.005) << theirs;
    std::printf("[          ] of %d and %d pixels of ink %d and %d stand alone\n", ours, theirs, oursAlone,
                theirsAlone);
}

/// Both canvases: that of this screen, and the one of our own.
TEST_P(PreviewBeside, ShowsThePageOfThePdf)
{
    const DrawnPreview drawn = Drawn();
    const QImage pdf = Pdf();
    ASSERT_NE(drawn.picture, nullptr);
    ASSERT_FALSE(pdf.isNull());
    pdf.save(QStringLiteral(SM_SCREENS "/preview-%1-pdf.png").arg(QString::fromUtf8(GetParam().name)));
    const auto byQt = CreateQtCanvases(), soft = scene::CreateSoftCanvases();
    for (const auto& [name, canvases] : {std::pair("", byQt.get()), std::pair("-soft", soft.get())}) {
        SCOPED_TRACE(name);
        const QImage preview = Painted(drawn, *canvases);
        preview.save(QStringLiteral(SM_SCREENS "/preview-%1%2.png").arg(QString::fromUtf8(GetParam().name), name));
        ExpectSamePage(preview, pdf);
    }
}

TEST_P(PreviewBeside, ReadsNothingThatTheRunHasRead)
{
    const std::unique_ptr<drawing::Drawing> read = drawing::Drawing::Open(drawing);
    int asked = 0;
    app::PreviewWish wish = Wish();
    std::filesystem::remove(drawing);
    app::PagePreview source(
        drawing, install, [&] { return std::optional(wish); },
        [&] {
            ++asked;
            return read->Twin();
        });
    const std::atomic<bool> stop = false;
    ASSERT_TRUE(source.Renew());
    const DrawnPreview drawn = DrawPreview(source, stop);
    ASSERT_NE(drawn.picture, nullptr) << drawn.page.trouble;
    EXPECT_FALSE(drawn.picture->list.items.empty());
    wish.keg.Layouts.front().Stamp.StampIndex = 2;
    EXPECT_TRUE(source.Renew());
    EXPECT_NE(DrawPreview(source, stop).picture, nullptr);
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(read->Modified()) << "what the preview enters stays with it";
}

class PreviewMarks : public PreviewBeside {};

TEST_P(PreviewMarks, LieWhereThePublisherGetsThem)
{
    app::PreviewWish wish = Wish();
    LayoutSettings& entry = wish.keg.Layouts.front();
    entry.Stamp.StampIndex = 2;
    entry.Stamp.LayoutName = layout;
    entry.Stamp.X = 10;
    entry.Stamp.Y = 20;
    entry.Attachments = {
        {drawing, 30, 40, layout}, {machine.In("missing.txt"), 1, 1, layout}, {drawing, 5, 5, "Model"}};
    entry.SignatureFields = {{"Approved", "", 50, 60, 90, 80, layout}};
    app::PagePreview source(drawing, install, [&] { return std::optional(wish); });
    ASSERT_TRUE(source.Renew());
    const std::atomic<bool> stop = false;
    const DrawnPreview drawn = DrawPreview(source, stop);
    std::vector<std::string> marks;
    for (const beside::PageMark& mark : drawn.page.marks) // whole millimetres; the printable area begins at 3
        marks.push_back(std::to_string(static_cast<int>(mark.kind)) + " " + mark.text + " " +
                        std::to_string(std::lround(mark.from.x)) + "," + std::to_string(std::lround(mark.from.y)) +
                        " " + std::to_string(std::lround(mark.to.x)) + "," + std::to_string(std::lround(mark.to.y)));
    EXPECT_EQ(marks, (std::vector<std::string>{"0 FOR REVIEW 13,23 13,23", "1 house.dxf 33,43 33,43",
                                               "2 Approved 53,63 93,83"}));
    entry.Stamp.LayoutName = "Model";
    EXPECT_TRUE(source.Renew());
    EXPECT_EQ(DrawPreview(source, stop).page.marks.size(), 2U);
    wish.layout = "No such layout";
    EXPECT_TRUE(source.Renew());
    const DrawnPreview none = DrawPreview(source, stop);
    EXPECT_EQ(none.picture, nullptr);
    EXPECT_EQ(none.page.trouble, "sheet \"No such layout\": there is no such layout (PlotLayoutToPubDoc: Layouts: "
                                 "there is no layout 'No such layout')");
}

INSTANTIATE_TEST_SUITE_P(Samples, PreviewMarks, testing::Values(kCases[0]));

INSTANTIATE_TEST_SUITE_P(Samples, PreviewBeside, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string(row.param.name); });

void PrintTo(const PreviewCase& row, std::ostream* out)
{
    *out << row.name;
}

} // namespace
} // namespace sm::qt
