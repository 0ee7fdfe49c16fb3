// SPDX-License-Identifier: GPL-3.0-or-later
// The way from a form to another drawing, and files that are dropped on it.
#include "qt/QtUser.h"
#include "qt/RecordingForm.h"

#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include <gmock/gmock.h>

namespace sm::qt {
namespace {

using ::testing::ElementsAre;
using enum ControlKind;

class ListWithDrawings final : public beside::ISheetList, public beside::IDrawings {
public:
    std::vector<std::string> opened;

    [[nodiscard]] bool StandsBeside(const std::string& form) const override { return form == "frmMain"; }
    [[nodiscard]] beside::SheetsNow Now(const std::vector<FormControl>&) override { return {"One sheet.", false, {}}; }
    void MakeCurrent(const std::string&) override {}
    std::string Tick(const std::string&, bool) override { return {}; }
    void TickAll() override {}
    std::string TickMeant(const std::string&) override { return {}; }
    [[nodiscard]] beside::IDrawings* Drawings() override { return this; }
    [[nodiscard]] beside::FileList Files() const override { return {"lstFiles", "frmRow", "btnBrowse"}; }
    [[nodiscard]] std::vector<std::string> Recent() override { return {"/plans/a & b.dxf", "/plans/c.dwg"}; }
    void OpenNext(const std::string& path) override { opened.push_back(path); }
};

/// Sends what a window system sends when files are dropped at a place of the front window.
bool Drop(const std::vector<std::string>& paths, QPoint at)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths)
        urls << QUrl::fromLocalFile(QString::fromStdString(path));
    data.setUrls(urls);
    QWidget* const window = QtUser::Window();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &drop);
    return true;
}

class Neighbours : public testing::Test {
protected:
    Neighbours()
    {
        Memory().texts.clear();
        TheScreen().Company().StandBeside(&list);
        form.controls[0].name = "frmMain";
        form.Add(Frame, "fme", "Files", {5, 5, 190, 70});
        FormControl& files = form.Add(ListView, "lstFiles", "", {5, 10, 100, 50}, 1);
        files.columns = {{"Name", 80}};
        form.Add(CommandButton, "btnAdd", "&Add", {120, 10, 50, 14}, 1);
        form.Add(TextBox, "txt", "", {5, 80, 60, 12});
    }
    ~Neighbours() override { TheScreen().Company().StandBeside(nullptr); }

    /// Drops, and lets what follows happen.
    static bool DropAt(const std::string& widget, const std::vector<std::string>& paths)
    {
        QWidget* const target = QtUser::Find(widget);
        const bool isTaken = Drop(paths, target->mapTo(QtUser::Window(), target->rect().center()));
        QTest::qWait(30);
        return isTaken;
    }

    ListWithDrawings list;
    RecordingForm form;
};

TEST_F(Neighbours, CtrlOAsksForAnotherDrawingAndClosesTheForm)
{
    form.Show([&] {
        QTimer::singleShot(50, [] {
            auto* const dialog = dynamic_cast<QFileDialog*>(QtUser::Window());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->windowTitle(), "Open Drawing");
            dialog->reject();
        });
        QtUser::Key(Qt::Key_O, Qt::ControlModifier);
        EXPECT_THAT(list.opened, ElementsAre());
        EXPECT_THAT(form.Take(), testing::Not(testing::Contains("closed")));
    });
}

TEST_F(Neighbours, RecentDrawingsStandInTheMenuOfTheButton)
{
    form.Show([&] {
        auto* const button = [] {
            for (QWidget* const window : QApplication::topLevelWidgets())
                if (auto* const found = window->findChild<QToolButton*>("open"))
                    return found;
            return static_cast<QToolButton*>(nullptr);
        }();
        ASSERT_NE(button, nullptr);
        Q_EMIT button->menu()->aboutToShow();
        ASSERT_EQ(button->menu()->actions().size(), 2);
        EXPECT_EQ(button->menu()->actions()[0]->text(), "&1  a && b.dxf");
        QDir().mkpath(SM_SCREENS);
        button->window()->grab().save(SM_SCREENS "/sheets-open-button.png");
        form.Take();
        button->menu()->actions()[1]->trigger();
        EXPECT_THAT(list.opened, ElementsAre("/plans/c.dwg"));
        EXPECT_THAT(form.Take(), ElementsAre("closed"));
    });
}

TEST_F(Neighbours, ADrawingThatIsDroppedIsOpened)
{
    form.Show([&] {
        EXPECT_FALSE(DropAt("txt", {"/plans/readme.txt"}));
        EXPECT_FALSE(DropAt("txt", {"/plans/a.dxf", "/plans/b.dxf"}));
        EXPECT_THAT(list.opened, ElementsAre());
        EXPECT_TRUE(DropAt("txt", {"/plans/B.DXF"}));
        EXPECT_THAT(list.opened, ElementsAre("/plans/B.DXF"));
    });
}

TEST_F(Neighbours, EntriesAreDroppedAfterAQuestionAlone)
{
    form.Show([&] {
        QTest::keyClick(QtUser::Find("txt"), Qt::Key_X); // the list of sheets may have the keyboard
        for (const auto answer : {QMessageBox::Cancel, QMessageBox::Ok}) {
            QTimer::singleShot(15, [answer] {
                auto* const box = dynamic_cast<QMessageBox*>(QtUser::Window());
                ASSERT_NE(box, nullptr);
                EXPECT_EQ(box->text().toStdString(),
                          "What was entered here and not confirmed yet is dropped.\nOpen\n/plans/B.DXF?");
                QTest::mouseClick(box->button(answer), Qt::LeftButton);
            });
            DropAt("txt", {"/plans/B.DXF"});
            EXPECT_EQ(list.opened.size(), answer == QMessageBox::Ok ? 1 : 0);
        }
    });
}

TEST_F(Neighbours, FilesDroppedOnTheListGoTheWayOfTheAddButton)
{
    std::vector<std::string> answers;
    form.then = [&](const std::string& report) {
        if (report != "clicked btnAdd")
            return;
        RecordingForm row;
        row.controls[0].name = "frmRow";
        row.Add(CommandButton, "btnBrowse", "Browse...", {5, 5, 50, 14});
        row.then = [&](const std::string& pressed) {
            if (pressed == "clicked btnBrowse")
                answers.push_back(
                    TheScreen().Desktop().AskOpenFile({"Select File", {}, {}, "*", true, 0}).value_or(""));
        };
        row.Make();
        QTimer::singleShot(20, [&] {
            if (answers.back() != "/files/two.dxf")
                form.controls[2].rows.push_back({answers.back(), {}});
            row.view->Hide();
        });
        row.view->ShowModal();
    };
    form.Show([&] {
        EXPECT_TRUE(DropAt("lstFiles", {"/files/one.pdf", "/files/two.dxf", "/files/three.txt"}));
        QTest::qWait(200);
        EXPECT_THAT(answers, ElementsAre("/files/one.pdf", "/files/two.dxf"))
            << "a row that was given up ends the rest";
        EXPECT_THAT(list.opened, ElementsAre());
    });
}

TEST(RecentWindow, OpensTheRowThatIsChosenOrOneThatIsDropped)
{
    const std::vector<std::string> recent{"/plans/a.dxf", "/plans/deep/b.dwg"};
    WhenShown([] {
        EXPECT_EQ(QtUser::Window()->windowTitle(), "Recent Drawings");
        QtUser::Window()->grab().save(SM_SCREENS "/recent-drawings.png");
        QtUser::Window()->resize(500, 300);
        QtUser::Key(Qt::Key_Down);
        QtUser::Key(Qt::Key_Return);
    });
    EXPECT_EQ(TheScreen().Company().ChooseDrawing(recent), "/plans/deep/b.dwg");
    WhenShown([] {
        EXPECT_EQ(QtUser::Window()->size(), QSize(500, 300));
        EXPECT_FALSE(Drop({"/plans/a.txt"}, {20, 20}));
        Drop({"/plans/new.dwg"}, {20, 20});
    });
    EXPECT_EQ(TheScreen().Company().ChooseDrawing(recent), "/plans/new.dwg");
    WhenShown([] { QtUser::Key(Qt::Key_Escape); });
    EXPECT_EQ(TheScreen().Company().ChooseDrawing(recent), std::nullopt);
}

TEST(LastFolders, ADialogWithoutAFolderStartsWhereTheLastOfItsTitleEnded)
{
    Memory().texts = {{"Folder Open Drawing", SM_SOURCE_DIR "/samples"}, {"Folder Select File", "/gone/away"}};
    const auto folderOf = [](const FileDialog& dialog) {
        std::string folder;
        WhenShown([&] {
            auto* const window = dynamic_cast<QFileDialog*>(QtUser::Window());
            folder = window != nullptr ? window->directory().absolutePath().toStdString() : "";
            QtUser::Window()->close();
        });
        TheScreen().Desktop().AskOpenFile(dialog);
        return folder;
    };
    EXPECT_EQ(folderOf({"Open Drawing", {}, "Drawings", "dxf", true, 0}), SM_SOURCE_DIR "/samples");
    EXPECT_EQ(folderOf({"Open Drawing", SM_SOURCE_DIR "/tests/*.*", "Drawings", "dxf", true, 0}),
              SM_SOURCE_DIR "/tests");
    EXPECT_NE(folderOf({"Select File", {}, "All Files", "*", true, 0}), "/gone/away");
    WhenShown([] {
        auto* const name = QtUser::Find<QLineEdit>("fileNameEdit");
        name->setText(SM_SOURCE_DIR "/README.md");
        name->setFocus();
        QtUser::Key(Qt::Key_Return);
        QtUser::Window() != nullptr ? QtUser::Window()->close() : false;
    });
    EXPECT_EQ(TheScreen().Desktop().AskOpenFile({"Select File", {}, "All Files", "*", true, 0}),
              SM_SOURCE_DIR "/README.md");
    EXPECT_EQ(Memory().texts["Folder Select File"], SM_SOURCE_DIR);
}

} // namespace
} // namespace sm::qt
