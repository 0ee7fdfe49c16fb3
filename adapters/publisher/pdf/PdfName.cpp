// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/PdfName.h"

#include "base/files/Paths.h"
#include "base/text/Keywords.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace sm::publisher {

namespace {

constexpr int kAttempts = 3;
constexpr std::string_view kDrawingExtensions[] = {".dwg", ".dxf", ".dws", ".dwt"};

bool EndsWith(std::string_view text, std::string_view ending)
{
    return text.size() >= ending.size() && base::SameAscii(text.substr(text.size() - ending.size()), ending);
}

std::string WithPdfExtension(std::string name)
{
    for (const std::string_view extension : kDrawingExtensions) {
        if (EndsWith(name, extension)) {
            name.resize(name.size() - extension.size());
            break;
        }
    }
    return EndsWith(name, ".pdf") ? name : name + ".pdf";
}

bool IsFolder(const std::string& path)
{
    std::error_code error;
    return base::EndsInSeparator(path) || std::filesystem::is_directory(base::ToPath(path), error);
}

Message FolderMessage(const std::string& path, const std::string& title)
{
    Message message;
    message.text = path + " is a folder. Please give the PDF file a name.";
    message.title = title;
    message.icon = MessageIcon::Exclamation;
    return message;
}

} // namespace

std::string AskPdfName(IDesktop& desktop, const std::string& defaultName, std::int32_t owner,
                       const std::string& hostTitle)
{
    FileDialog dialog;
    dialog.title = hostTitle.empty() ? "Save PDF File" : "Save PDF File - " + hostTitle;
    dialog.defaultName = defaultName.empty() ? defaultName : WithPdfExtension(defaultName);
    dialog.filterName = "PDF files";
    dialog.filterExtension = "pdf";
    dialog.owner = owner;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const auto answer = desktop.AskSaveFile(dialog);
        if (!answer || answer->empty()) {
            return {};
        }
        const std::string name = EndsWith(*answer, ".pdf") ? *answer : *answer + ".pdf";
        const std::string& folder = IsFolder(*answer) ? *answer : name;
        if (!IsFolder(folder)) {
            return name;
        }
        desktop.ShowMessage(FolderMessage(folder, dialog.title));
    }
    return {};
}

} // namespace sm::publisher
