// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FileDialogs.h"

#include "screen/QtText.h"
#include "screen/WindowSize.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>
#include <string_view>

namespace sm::qt {
namespace {

constexpr std::string_view kWholeFolder = "*.*";

bool IsSeparator(char character)
{
    return character == '/' || character == '\\';
}

/// Several stand side by side with ";" between them.
QStringList Extensions(const FileDialog& dialog)
{
    return ToQt(dialog.filterExtension).split(';', Qt::SkipEmptyParts);
}

std::string FolderNameOf(const FileDialog& dialog)
{
    return "Folder " + dialog.title;
}

/// A folder that is gone meanwhile counts as none.
DialogStart StartIn(const FileDialog& dialog, beside::IWindowMemory* memory)
{
    DialogStart start = StartOf(dialog.defaultName);
    if (!start.folder.empty() || memory == nullptr)
        return start;
    start.folder = memory->Recall(FolderNameOf(dialog));
    if (!QFileInfo(ToQt(start.folder)).isDir())
        start.folder.clear();
    return start;
}

} // namespace

DialogStart StartOf(const std::string& defaultName)
{
    const std::size_t stem = defaultName.size() - std::min(defaultName.size(), kWholeFolder.size());
    const bool namesFolder = stem > 0 && defaultName.substr(stem) == kWholeFolder && IsSeparator(defaultName[stem - 1]);
    if (namesFolder)
        return {stem == 1 ? defaultName.substr(0, 1) : defaultName.substr(0, stem - 1), {}};
    const std::size_t slash = defaultName.rfind('/');
    if (slash == std::string::npos)
        return {{}, defaultName};
    return {slash == 0 ? "/" : defaultName.substr(0, slash), defaultName.substr(slash + 1)};
}

std::string FilterOf(const FileDialog& dialog)
{
    if (dialog.filterExtension.empty() || dialog.filterExtension == "*")
        return dialog.filterName.substr(0, dialog.filterName.find(" (")) + " (*)";
    QStringList patterns;
    for (const QString& extension : Extensions(dialog))
        patterns << "*." + extension << "*." + extension.toUpper();
    return dialog.filterName + " (" + FromQt(patterns.join(' ')) + ")";
}

std::optional<std::string> AskFile(const FileDialog& dialog, bool toSave, QWidget* owner, beside::IWindowMemory* memory)
{
    constexpr const char* kFileSize = "FileDialog";
    const DialogStart start = StartIn(dialog, memory);
    QFileDialog window(owner, ToQt(dialog.title), ToQt(start.folder), ToQt(FilterOf(dialog)));
    window.setObjectName(QStringLiteral("file"));
    window.setAcceptMode(toSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(toSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    window.setOption(QFileDialog::DontConfirmOverwrite, !dialog.warnOnOverwrite);
    if (toSave && dialog.filterExtension != "*")
        window.setDefaultSuffix(Extensions(dialog).value(0));
    if (!start.name.empty())
        window.selectFile(ToQt(start.name));
    RecallSize(window, kFileSize, memory);
    const int answer = window.exec();
    RememberSize(window, kFileSize, memory);
    if (answer != QDialog::Accepted || window.selectedFiles().isEmpty())
        return std::nullopt;
    const QString chosen = window.selectedFiles().front();
    if (memory != nullptr)
        memory->Remember(FolderNameOf(dialog), FromQt(QFileInfo(chosen).absolutePath()));
    return FromQt(chosen);
}

} // namespace sm::qt
