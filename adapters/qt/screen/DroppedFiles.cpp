// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/DroppedFiles.h"

#include "screen/QtText.h"

#include <QMimeData>
#include <QUrl>

namespace sm::qt {

std::vector<std::string> FilesIn(const QMimeData* dragged)
{
    std::vector<std::string> paths;
    if (dragged == nullptr)
        return paths;
    for (const QUrl& url : dragged->urls())
        if (url.isLocalFile())
            paths.push_back(FromQt(url.toLocalFile()));
    return paths;
}

} // namespace sm::qt
