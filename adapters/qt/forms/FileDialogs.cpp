// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/FileDialogs.h"

#include "screen/QtText.h"

#include <QFileDialog>

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

std::optional<std::string> AskFile(const FileDialog& dialog, bool toSave, QWidget* owner)
{
    const DialogStart start = StartOf(dialog.defaultName);
    QFileDialog window(owner, ToQt(dialog.title), ToQt(start.folder), ToQt(FilterOf(dialog)));
    window.setObjectName(QStringLiteral("file"));
    window.setAcceptMode(toSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(toSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    window.setOption(QFileDialog::DontConfirmOverwrite, !dialog.warnOnOverwrite);
    if (toSave && dialog.filterExtension != "*")
        window.setDefaultSuffix(Extensions(dialog).value(0));
    if (!start.name.empty())
        window.selectFile(ToQt(start.name));
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return std::nullopt;
    return FromQt(window.selectedFiles().front());
}

} // namespace sm::qt
