// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/KeptBeside.h"

#include "base/files/Paths.h"
#include "drawing/Drawing.h"
#include "drawing/RecordsPlace.h"
#include "plugin/mdlAcadHelper.h"

#include <filesystem>
#include <fmt/format.h>
#include <fstream>

namespace sm::app {
namespace {

bool IsDwg(const std::string& path)
{
    char beginning[4] = {};
    std::ifstream(base::ToPath(path), std::ios::binary).read(beginning, sizeof beginning);
    return std::string_view(beginning, sizeof beginning) == "AC10";
}

} // namespace

std::string RecordsFileOf(const drawing::Drawing& drawing, const std::string& name)
{
    return drawing::RecordsFileOf(drawing) == drawing.Path() ? name : name + drawing::kRecordsEnding;
}

std::string KeptBeside(const drawing::Drawing& drawing, const std::string& name)
{
    const std::string file = RecordsFileOf(drawing, name);
    return file == name || IsDwg(name) ? "" : file;
}

void TellWhereEntriesGo(const drawing::Drawing& drawing, const std::string& name, IDesktop& desktop)
{
    const std::string file = KeptBeside(drawing, name);
    if (file.empty() || std::filesystem::exists(base::ToPath(file)))
        return;
    const std::string text =
        fmt::format("{}\r\nis of a release that can't hold stamps, attachments, signature fields and "
                    "page setups.\r\nWhat you enter is kept beside it, in\r\n{}\r\n\r\nThe drawing "
                    "itself stays as it is. Where it goes, that file goes with it.",
                    name, file);
    desktop.ShowMessage({text, kProductTitle, MessageButtons::Ok, MessageIcon::Information, {}, 0});
}

} // namespace sm::app
