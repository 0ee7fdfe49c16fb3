// SPDX-License-Identifier: GPL-3.0-or-later
// Stamp macros, and the stamp section.
#include "annotations/MarkHouse.h"
#include "annotations/TextStamps.h"

namespace sm {
namespace {

class TextStamps : public MarkHouse {
protected:
    std::string Expand(const std::string& text, const std::string& file = "C:\\Jobs\\a1.dwg",
                       const std::string& user = "JS")
    {
        return ExpandStampText(surroundings, text, file, user);
    }
    MarkState Stamped(const StampSettings& stamp)
    {
        MarkState state = State();
        state.keg.Stamps[1] = "DRAFT PRINT";
        state.keg.Stamps[7] = "PRELIMINARY - &[User] - &[Date]";
        state.keg.Layouts[0].Stamp = stamp;
        return state;
    }
    static StampSettings Draft(const std::string& layout, std::int32_t index = 1)
    {
        StampSettings stamp;
        stamp.StampIndex = index;
        stamp.LayoutName = layout;
        stamp.X = 306;
        stamp.Y = 396;
        return stamp;
    }
};

TEST_F(TextStamps, ExpandsEveryMacro)
{
    clock.now = LocalDateTime(std::chrono::local_days(std::chrono::year(2004) / 3 / 5) + std::chrono::hours(14) +
                              std::chrono::minutes(5) + std::chrono::seconds(9));
    const struct {
        const char *name, *text, *file, *expanded;
    } rows[] = {
        {"user and date", "PRELIMINARY - &[User] - &[Date]", "C:\\Jobs\\a1.dwg", "PRELIMINARY - JS - 03/05/2004"},
        {"path and date", "&[Path] - &[Date]", "C:\\Jobs\\a1.dwg", "C:\\JOBS - 03/05/2004"},
        {"time", "at &[Time]", "", "at 2:05:09 PM"},
        {"parts of the date", "&[yyyy]&[mm]&[dd]", "", "20040305"},
        {"file in upper case", "&[File]", "C:\\Jobs\\a1.dwg", "A1.DWG"},
        {"every occurrence", "&[dd]&[dd]", "", "0505"},
        {"lower case is left as it is", "&[date]", "", "&[date]"},
        {"a name without folder is both", "&[Path]|&[File]", "a1.dwg", "A1.DWG|A1.DWG"},
        {"a path that ends in a backslash", "&[Path]|&[File]", "C:\\Jobs\\", "C:\\JOBS|"},
        {"only a leading backslash", "&[Path]|&[File]", "\\a1.dwg", "|A1.DWG"},
        {"no name at all", "&[Path]|&[File]", "", "|"},
        {"no macro", "FOR REVIEW", "", "FOR REVIEW"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Expand(row.text, row.file), row.expanded) << row.name;
}

TEST_F(TextStamps, TakesTheDateSeparatorOfTheLocale)
{
    locale.dateSeparator = ".";
    EXPECT_EQ(Expand("&[Date]"), "03.14.2026");
}

TEST_F(TextStamps, ALaterMacroExpandsWhatAnEarlierOneBroughtIn)
{
    EXPECT_EQ(Expand("&[User]", "C:\\Jobs\\a1.dwg", "&[File]"), "A1.DWG");
    EXPECT_EQ(Expand("&[File]", "C:\\&[Path]\\&[Date].dwg"), "&[DATE].DWG");
}

TEST_F(TextStamps, SplitsAtBothSeparatorsOnLinux)
{
    locale.UseSlashes();
    EXPECT_EQ(Expand("&[Path] &[File]", "/jobs/rev b/a1.dxf"), "/JOBS/REV B A1.DXF");
}

TEST_F(TextStamps, PlacesTheStamp)
{
    MarkState state = Stamped(Draft("All Layouts"));
    EXPECT_TRUE(AddTextStamp(state));
    EXPECT_EQ(Log(), Lines{"  'DRAFT PRINT', Helvetica, 24, [306 396]"});
    EXPECT_EQ(Marks(), Lines{"PubDoc.AddTextStampMark 0 | 306 | 396 | DRAFT PRINT | Helvetica | 24 | 255 | 0"});
}

TEST_F(TextStamps, GoesOnItsOwnSheetAlone)
{
    const struct {
        const char* name;
        StampSettings stamp;
        Lines log;
    } rows[] = {
        {"this sheet", Draft("Ground"), {"  'DRAFT PRINT', Helvetica, 24, [306 396]"}},
        {"another sheet", Draft("Upper"), {"  [None]"}},
        {"another letter case", Draft("GROUND"), {"  [None]"}},
        {"no stamp chosen", Draft("All Layouts", 0), {"  [None]"}},
        {"an index that no list has", Draft("All Layouts", 16), {"  [None]"}},
        {"a negative index", Draft("All Layouts", -3), {"  [None]"}},
    };
    for (const auto& row : rows) {
        MarkState state = Stamped(row.stamp);
        EXPECT_TRUE(AddTextStamp(state)) << row.name;
        EXPECT_EQ(Log(), row.log) << row.name;
    }
}

TEST_F(TextStamps, RoundsItsPlaceHalvesToEven)
{
    StampSettings stamp = Draft("Ground");
    stamp.X = 306.5;
    stamp.Y = 307.5;
    MarkState state = Stamped(stamp);
    EXPECT_TRUE(AddTextStamp(state));
    EXPECT_EQ(Log(), Lines{"  'DRAFT PRINT', Helvetica, 24, [306 308]"});
}

TEST_F(TextStamps, StandsInDisplayCoordinates)
{
    drawing->DisplayOrigin = {100, 50, 0};
    MarkState state = Stamped(Draft("Ground"));
    EXPECT_TRUE(AddTextStamp(state));
    EXPECT_EQ(Log(), Lines{"  'DRAFT PRINT', Helvetica, 24, [206 346]"});
}

TEST_F(TextStamps, ReportsItsErrors)
{
    MarkState state = Stamped(Draft("Ground"));
    host.tape.FailCall("Utility.TranslateCoordinates", "No view");
    EXPECT_FALSE(AddTextStamp(state));
    EXPECT_EQ(Log(), Lines{"ADDTEXTSTAMP RUNTIME ERROR: No view"});
    host.tape.StopFailing();
    library.markStatus = -7;
    library.lastErrorText = "no such font";
    EXPECT_FALSE(AddTextStamp(state));
    EXPECT_EQ(Log(), (Lines{"  'DRAFT PRINT', Helvetica, 24, [306 396]", "ADDTEXTSTAMP RUNTIME ERROR: no such font"}));
}

} // namespace
} // namespace sm
