// SPDX-License-Identifier: GPL-3.0-or-later
#include "joboptions/JobOptionsTable.h"

#include <algorithm>
#include <array>

namespace sm::publisher {

namespace {

using enum JobOptionsRule::Kind;

constexpr std::string_view kDownsampling = "Average Bicubic None= Subsample";
// JPEG 2000 and JBIG2 aren't written by the interpreter: their nearest neighbours take their place.
constexpr std::string_view kPhotoFilters = "DCTEncode FlateEncode JPXEncode=DCTEncode";
constexpr std::string_view kMonoFilters = "CCITTFaxEncode FlateEncode JBIG2Encode=CCITTFaxEncode RunLengthEncode";
constexpr std::string_view kColors = "CMYK Gray LeaveColorUnchanged RGB UseDeviceIndependentColor "
                                     "UseDeviceIndependentColorForImages=UseDeviceIndependentColor sRGB=RGB";
constexpr double kLowestDpi = 9;
constexpr double kHighestDpi = 4800;

constexpr std::array kRules{
    JobOptionsRule{"AlwaysEmbed", FontList},
    JobOptionsRule{"AntiAliasColorImages", Boolean},
    JobOptionsRule{"AntiAliasGrayImages", Boolean},
    JobOptionsRule{"AntiAliasMonoImages", Boolean},
    JobOptionsRule{"AutoFilterColorImages", Boolean},
    JobOptionsRule{"AutoFilterGrayImages", Boolean},
    JobOptionsRule{"CannotEmbedFontPolicy", Choice, 0, 0, "Error OK Warning"},
    JobOptionsRule{"ColorACSImageDict", ImageDict},
    JobOptionsRule{"ColorConversionStrategy", Choice, 0, 0, kColors},
    JobOptionsRule{"ColorImageDepth", Integer, -1, 8},
    JobOptionsRule{"ColorImageDict", ImageDict},
    JobOptionsRule{"ColorImageDownsampleThreshold", Real, 1, 10},
    JobOptionsRule{"ColorImageDownsampleType", Choice, 0, 0, kDownsampling},
    JobOptionsRule{"ColorImageFilter", Choice, 0, 0, kPhotoFilters},
    JobOptionsRule{"ColorImageResolution", Integer, kLowestDpi, kHighestDpi},
    JobOptionsRule{"CompatibilityLevel", Real, 1.2, 1.7},
    JobOptionsRule{"CompressFonts", Boolean},
    JobOptionsRule{"ConvertCMYKImagesToRGB", Boolean},
    JobOptionsRule{"ConvertImagesToIndexed", Boolean},
    JobOptionsRule{"DefaultRenderingIntent", Choice, 0, 0,
                   "AbsoluteColorimetric Default Perceptual RelativeColorimetric Saturation"},
    JobOptionsRule{"DetectBlends", Boolean},
    JobOptionsRule{"DownsampleColorImages", Boolean},
    JobOptionsRule{"DownsampleGrayImages", Boolean},
    JobOptionsRule{"DownsampleMonoImages", Boolean},
    JobOptionsRule{"EmbedAllFonts", Boolean},
    JobOptionsRule{"EncodeColorImages", Boolean},
    JobOptionsRule{"EncodeGrayImages", Boolean},
    JobOptionsRule{"EncodeMonoImages", Boolean},
    JobOptionsRule{"GrayACSImageDict", ImageDict},
    JobOptionsRule{"GrayImageDepth", Integer, -1, 8},
    JobOptionsRule{"GrayImageDict", ImageDict},
    JobOptionsRule{"GrayImageDownsampleThreshold", Real, 1, 10},
    JobOptionsRule{"GrayImageDownsampleType", Choice, 0, 0, kDownsampling},
    JobOptionsRule{"GrayImageFilter", Choice, 0, 0, kPhotoFilters},
    JobOptionsRule{"GrayImageResolution", Integer, kLowestDpi, kHighestDpi},
    JobOptionsRule{"ImageMemory", Integer, 0, 1e9},
    JobOptionsRule{"MaxSubsetPct", Integer, 0, 100},
    JobOptionsRule{"MonoImageDepth", Integer, -1, 8},
    JobOptionsRule{"MonoImageDict", ImageDict},
    JobOptionsRule{"MonoImageDownsampleThreshold", Real, 1, 10},
    JobOptionsRule{"MonoImageDownsampleType", Choice, 0, 0, kDownsampling},
    JobOptionsRule{"MonoImageFilter", Choice, 0, 0, kMonoFilters},
    JobOptionsRule{"MonoImageResolution", Integer, kLowestDpi, kHighestDpi},
    JobOptionsRule{"NeverEmbed", FontList},
    JobOptionsRule{"OPM", Integer, 0, 1},
    JobOptionsRule{"PassThroughJPEGImages", Boolean},
    JobOptionsRule{"PreserveCopyPage", Boolean},
    JobOptionsRule{"PreserveEPSInfo", Boolean},
    JobOptionsRule{"PreserveHalftoneInfo", Boolean},
    JobOptionsRule{"PreserveOPIComments", Boolean},
    JobOptionsRule{"PreserveOverprintSettings", Boolean},
    JobOptionsRule{"SubsetFonts", Boolean},
    JobOptionsRule{"TransferFunctionInfo", Choice, 0, 0, "Apply Preserve Remove"},
    JobOptionsRule{"UCRandBGInfo", Choice, 0, 0, "Preserve Remove"},
};

constexpr std::array kImageDictRules{
    JobOptionsRule{"Blend", Integer, 0, 1},     JobOptionsRule{"ColorTransform", Integer, 0, 2},
    JobOptionsRule{"HSamples", Samples, 1, 4},  JobOptionsRule{"K", Integer, -1, 1e6},
    JobOptionsRule{"QFactor", Real, 0.01, 100}, JobOptionsRule{"VSamples", Samples, 1, 4},
};

} // namespace

std::span<const JobOptionsRule> JobOptionsRules()
{
    return kRules;
}

std::span<const JobOptionsRule> ImageDictRules()
{
    return kImageDictRules;
}

const JobOptionsRule* FindRule(std::span<const JobOptionsRule> rules, std::string_view name)
{
    const auto found = std::ranges::find(rules, name, &JobOptionsRule::name);
    return found == rules.end() ? nullptr : &*found;
}

} // namespace sm::publisher
