// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/DroppedFiles.h"

#include "windows/automation/WideText.h"

#include <shellapi.h>

namespace sm::win32 {

std::vector<std::string> TakeDropped(WPARAM drop)
{
    const HDROP files = reinterpret_cast<HDROP>(drop);
    std::vector<std::string> paths;
    const UINT count = DragQueryFileW(files, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(static_cast<std::size_t>(DragQueryFileW(files, i, nullptr, 0)) + 1, L'\0');
        path.resize(DragQueryFileW(files, i, path.data(), static_cast<UINT>(path.size())));
        paths.push_back(windows::Utf8(path));
    }
    DragFinish(files);
    return paths;
}

} // namespace sm::win32
