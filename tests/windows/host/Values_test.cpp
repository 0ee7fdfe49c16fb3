// SPDX-License-Identifier: GPL-3.0-or-later
// Values as VARIANTs and back, and values that can't be taken as what is asked for.
#include "windows/automation/Values.h"

#include "ports/HostError.h"
#include "windows/automation/Arrays.h"
#include "windows/automation/AutomationErrors.h"

#include <functional>
#include <gtest/gtest.h>

namespace sm::windows {
namespace {

OwnedVariant Typed(VARTYPE type)
{
    OwnedVariant made;
    V_VT(&made.Raw()) = type;
    return made;
}

OwnedVariant EmptyArray(VARTYPE type)
{
    std::vector<OwnedVariant> none;
    return ArrayOf(type, none);
}

/// Two by two doubles.
OwnedVariant Matrix()
{
    SAFEARRAYBOUND bounds[2] = {{2, 0}, {2, 0}};
    OwnedVariant made = Typed(VT_ARRAY | VT_R8);
    V_ARRAY(&made.Raw()) = SafeArrayCreate(VT_R8, 2, bounds);
    return made;
}

OwnedVariant NullArray()
{
    return Typed(VT_ARRAY | VT_R8);
}

TEST(AutomationValues, TextsKeepEveryCharacter)
{
    const std::string text = "Gr\xC3\xB6\xC3\x9F"
                             "e \xE2\x82\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(ToText(FromText(text).Raw()), text);
    EXPECT_EQ(ToText(FromText("").Raw()), "");
    EXPECT_EQ(ToText(FromText(std::string("a\0b", 3)).Raw()), std::string("a\0b", 3));
    EXPECT_EQ(ToText(Typed(VT_BSTR).Raw()), ""); // a null string is an empty one
}

TEST(AutomationValues, SimpleValuesAreTakenForOneAnother)
{
    EXPECT_EQ(ToInteger(FromText("12").Raw()), 12);
    EXPECT_EQ(ToDouble(FromText("2.5").Raw()), 2.5);
    EXPECT_EQ(ToText(FromInteger(-7).Raw()), "-7");
    EXPECT_EQ(ToInteger(FromDouble(3).Raw()), 3);
    EXPECT_EQ(ToInteger(FromBoolean(true).Raw()), -1);
    EXPECT_TRUE(ToBoolean(FromInteger(1).Raw()));
    EXPECT_FALSE(ToBoolean(FromInteger(0).Raw()));
}

TEST(AutomationValues, NothingAndNullAreEmptyZeroAndFalse)
{
    for (const VARTYPE type : {VT_EMPTY, VT_NULL}) {
        OwnedVariant value = Typed(type);
        const OwnedVariant reference = ByReference(value);
        for (const VARIANT* nothing : std::initializer_list<const VARIANT*>{&value.Raw(), &reference.Raw()}) {
            EXPECT_EQ(ToText(*nothing), "");
            EXPECT_EQ(ToInteger(*nothing), 0);
            EXPECT_EQ(ToDouble(*nothing), 0);
            EXPECT_FALSE(ToBoolean(*nothing));
            EXPECT_EQ(ToObjectOrNull(*nothing).Get(), nullptr);
        }
    }
}

TEST(AutomationValues, ReferencesAreFollowed)
{
    double number = 1.25;
    OwnedVariant text = FromText("within");
    EXPECT_EQ(ToDouble(ByReference(number).Raw()), 1.25);
    EXPECT_EQ(ToText(ByReference(text).Raw()), "within");
    OwnedVariant points = FromDoubles({1, 2, 3});
    EXPECT_EQ(ToPoint(ByReference(points).Raw()), (AcadPoint{1, 2, 3}));
}

TEST(AutomationValues, PointsMayLackTheirThirdCoordinate)
{
    EXPECT_EQ(ToPoint(FromDoubles({1, 2}).Raw()), (AcadPoint{1, 2, 0}));
    EXPECT_EQ(ToPoint(FromVariants({std::int32_t{4}, 5.5}).Raw()), (AcadPoint{4, 5.5, 0}));
}

TEST(AutomationValues, DatesKeepSecondsOnBothSidesOfTheirOrigin)
{
    using namespace std::chrono;
    const LocalDateTime noon = local_days(year(2026) / 3 / 14) + hours(12);
    EXPECT_EQ(V_DATE(&FromDate(noon).Raw()), 46095.5);
    for (const LocalDateTime time : {noon + seconds(1), LocalDateTime(local_days(year(1899) / 12 / 29) + hours(6)),
                                     LocalDateTime(local_days(year(1601) / 1 / 1) + seconds(86399))})
        EXPECT_EQ(ToDate(FromDate(time).Raw()), time);
    EXPECT_EQ(V_DATE(&FromDate(local_days(year(1899) / 12 / 29) + hours(6)).Raw()), -1.25);
}

TEST(AutomationValues, ExtendedDataKeepsEveryKindOfValue)
{
    const AcadXData data{{1001, 1000, 1040, 1070, 1010},
                         {std::string("TWSI_Stamp"), std::string("DRAFT"), 2.5, std::int32_t{7}, AcadPoint{1, 2, 3}}};
    EXPECT_EQ(ToXData(FromShorts(data.codes).Raw(), FromVariants(data.values).Raw()), data);
    EXPECT_EQ(ToXData(OwnedVariant().Raw(), OwnedVariant().Raw()), AcadXData{});
    EXPECT_EQ(ToXData(EmptyArray(VT_I2).Raw(), EmptyArray(VT_VARIANT).Raw()), AcadXData{});
}

TEST(AutomationValues, ListsMayBeEmptyOrMissing)
{
    EXPECT_EQ(ToTexts(FromTexts({"A", "B"}).Raw()), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(ToTexts(EmptyArray(VT_VARIANT).Raw()), std::vector<std::string>{});
    EXPECT_EQ(ToTexts(OwnedVariant().Raw()), std::vector<std::string>{});
    EXPECT_EQ(ToTexts(NullArray().Raw()), std::vector<std::string>{});
    EXPECT_TRUE(ToObjects(EmptyArray(VT_DISPATCH).Raw()).empty());
    EXPECT_EQ(ToObjects(FromObjects({ComRef<IDispatch>()}).Raw()).size(), 1U);
}

struct Refusal {
    const char* name;
    std::function<OwnedVariant()> value;
    std::function<void(const VARIANT&)> read;
};

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, IsAnErrorOfTheCall)
{
    const OwnedVariant value = GetParam().value();
    EXPECT_THROW(GetParam().read(value.Raw()), HostError);
}

const auto kText = [](const VARIANT& value) { (void)ToText(value); };
const auto kInteger = [](const VARIANT& value) { (void)ToInteger(value); };
const auto kNumber = [](const VARIANT& value) { (void)ToDouble(value); };
const auto kBoolean = [](const VARIANT& value) { (void)ToBoolean(value); };
const auto kObject = [](const VARIANT& value) { (void)ToObject(value); };
const auto kPoint = [](const VARIANT& value) { (void)ToPoint(value); };
const auto kTexts = [](const VARIANT& value) { (void)ToTexts(value); };
const auto kObjects = [](const VARIANT& value) { (void)ToObjects(value); };
const auto kVariant = [](const VARIANT& value) { (void)ToAcadVariant(value); };
const auto kCodes = [](const VARIANT& value) { (void)ToXData(value, FromTexts({"A"}).Raw()); };
const auto kXValues = [](const VARIANT& value) { (void)ToXData(FromShorts({1001}).Raw(), value); };

const auto kName = [](const auto& info) { return std::string(info.param.name); };

INSTANTIATE_TEST_SUITE_P(
    AutomationValues, Refused,
    testing::Values(Refusal{"OmittedAsText", [] { return Omitted(); }, kText},
                    Refusal{"WordsAsInteger", [] { return FromText("abc"); }, kInteger},
                    Refusal{"TooLargeForAnInteger", [] { return FromDouble(1e12); }, kInteger},
                    Refusal{"ObjectAsBoolean", [] { return FromObject(nullptr); }, kBoolean},
                    Refusal{"ArrayAsNumber", [] { return FromDoubles({1}); }, kNumber},
                    Refusal{"DateAsNumber", [] { return Typed(VT_DATE); }, kNumber},
                    Refusal{"NullObject", [] { return FromObject(nullptr); }, kObject},
                    Refusal{"NullUnknown", [] { return Typed(VT_UNKNOWN); }, kObject},
                    Refusal{"TextAsObject", [] { return FromText("object"); }, kObject},
                    Refusal{"OneCoordinateAsPoint", [] { return FromDoubles({1}); }, kPoint},
                    Refusal{"EmptyArrayAsPoint", [] { return EmptyArray(VT_R8); }, kPoint},
                    Refusal{"NullArrayAsPoint", NullArray, kPoint}, Refusal{"MatrixAsPoint", Matrix, kPoint},
                    Refusal{"NumberAsPoint", [] { return FromDouble(1); }, kPoint},
                    Refusal{"WordsInAPoint",
                            [] {
                                return FromTexts({"a", "b"});
                            },
                            kPoint},
                    Refusal{"NumberAsTexts", [] { return FromInteger(3); }, kTexts},
                    Refusal{"ObjectsAmongTexts", [] { return FromObjects({ComRef<IDispatch>()}); }, kTexts},
                    Refusal{"TextAmongObjects", [] { return FromTexts({"A"}); }, kObjects},
                    Refusal{"DateAsAnyValue", [] { return Typed(VT_DATE); }, kVariant},
                    Refusal{"EmptyArrayAsAnyValue", [] { return EmptyArray(VT_R8); }, kVariant},
                    Refusal{"NoCodesForAValue", [] { return EmptyArray(VT_I2); }, kCodes},
                    Refusal{"CodeTooLarge", [] { return FromVariants({std::int32_t{70000}}); }, kCodes},
                    Refusal{"NoValueForACode", [] { return OwnedVariant(); }, kXValues}),
    kName);

TEST(AutomationErrors, AResultThatTheSystemHasNoTextForShowsItsNumber)
{
    EXPECT_EQ(TextOfResult(static_cast<HRESULT>(0x8FFF1234)), "Automation error 0x8fff1234");
}

TEST(AutomationErrors, ASystemTextIsOneLine)
{
    const std::string text = TextOfResult(HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
    EXPECT_NE(text.rfind("Automation error", 0), 0U) << text;
}

} // namespace
} // namespace sm::windows
