// SPDX-License-Identifier: GPL-3.0-or-later
// Job options, which are read and never executed.
#include "publisher/JobOptions.h"

#include "fuzz/Target.h"
#include "fuzz/targets/Targets.h"
#include "pdf/PublishStatus.h"

namespace sm::fuzz {

void FuzzJobOptions(std::string_view input)
{
    publisher::JobOptions options;
    try {
        options = publisher::ParseJobOptions(input, "x.joboptions");
    } catch (const publisher::PublishFailure& failure) {
        CheckReason(failure.what());
        return;
    }
    try {
        const auto again = publisher::ParseJobOptions("<<\n" + options.text + ">> setdistillerparams\n", "clean");
        if (again.text != options.text || !again.leftOut.empty())
            Fail("what was kept of job options is kept again");
    } catch (const publisher::PublishFailure& failure) {
        Fail(failure.what());
    }
}

Inputs JobOptionsSeeds()
{
    return {"% ours\n<<\n/ColorImageResolution 300\n/SubsetFonts true\n/Optimize false\n/CompatibilityLevel 1.5\n>> "
            "setdistillerparams\n",
            "<<\n/ColorACSImageDict << /QFactor 0.15 /HSamples [1 1 1 1] >>\n/ColorConversionStrategy "
            "/LeaveColorUnchanged\n"
            "/Note (a (b) \\051\\n)\n/Hex <41 42>\n/Null null\n>>\nsetdistillerparams\n<< /HWResolution [600 600] >> "
            "setpagedevice\n",
            "<<\n/SheetmakerLayers true\n/SheetmakerPdfA /2b\n/ColorImageFilter /DCTEncode\n/EncodeColorImages true\n"
            "/DownsampleColorImages true\n/ColorImageDownsampleThreshold 1.5\n>> setdistillerparams\n",
            "\xFE\xFF\0<\0<\0>\0>\0 \0s\0e\0t\0d\0i\0s\0t\0i\0l\0l\0e\0r\0p\0a\0r\0a\0m\0s"};
}

} // namespace sm::fuzz
