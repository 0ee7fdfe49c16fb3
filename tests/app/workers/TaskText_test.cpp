// SPDX-License-Identifier: GPL-3.0-or-later
#include "workers/TaskText.h"

#include <gtest/gtest.h>

namespace sm::app {
namespace {

TEST(TaskText, HoldsAllThatTheCommandLineDoesNotSay)
{
    DrawingTask task;
    task.drawing = "Grüße \"1\".dxf";
    task.savePath = "C:/Jobs/Grüße.pdf";
    task.logFileName = "plan.log";
    task.logFolder = "C:/Logs";
    task.workFolder = "C:/Temp/sheetmaker-1";
    task.sheets = {"a.dxf", "b.dxf:Dach"};
    task.inHand = 3;
    task.placeFile = "C:/Temp/part";
    const std::string text = TaskText(task);
    EXPECT_EQ(
        text,
        R"({"drawing":"Grüße \"1\".dxf","logFileName":"plan.log","logFolder":"C:/Logs",)"
        R"("workFolder":"C:/Temp/sheetmaker-1","sheets":["a.dxf","b.dxf:Dach"],"inHand":3,"placeFile":"C:/Temp/part","savePath":"C:/Jobs/Grüße.pdf"})"
        "\n");
    const DrawingTask read = TaskFromText(text);
    EXPECT_EQ(read.drawing, task.drawing);
    EXPECT_EQ(read.savePath, task.savePath);
    EXPECT_EQ(read.logFileName, task.logFileName);
    EXPECT_EQ(read.logFolder, task.logFolder);
    EXPECT_EQ(read.workFolder, task.workFolder);
    EXPECT_EQ(read.sheets, task.sheets);
    EXPECT_EQ(read.inHand, task.inHand);
    EXPECT_EQ(read.placeFile, task.placeFile);
}

TEST(TaskText, KnowsATaskWithoutAnswerToTheSaveDialog)
{
    EXPECT_EQ(TaskFromText(TaskText({})).savePath, std::nullopt);
}

TEST(TaskText, RefusesWhatIsNoTask)
{
    for (const char* text : {"", "{", "[]", "{}", R"({"drawing":1})"})
        EXPECT_THROW(TaskFromText(text), std::exception) << text;
}

} // namespace
} // namespace sm::app
