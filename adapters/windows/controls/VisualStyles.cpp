// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/controls/VisualStyles.h"

#include <commctrl.h>

namespace sm::windows {
namespace {

constexpr WORD kManifest = 2; ///< see Forms.rc

/// Made of the module's manifest; stays until the module goes.
class StylesContext {
public:
    StylesContext()
    {
        ACTCTXW wanted = {};
        wanted.cbSize = sizeof wanted;
        wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        wanted.hModule = OwnModule();
        wanted.lpResourceName = MAKEINTRESOURCEW(kManifest);
        m_handle = CreateActCtxW(&wanted);
    }
    ~StylesContext()
    {
        if (m_handle != INVALID_HANDLE_VALUE)
            ReleaseActCtx(m_handle);
    }
    StylesContext(const StylesContext&) = delete;
    StylesContext& operator=(const StylesContext&) = delete;
    [[nodiscard]] HANDLE Handle() const { return m_handle; }

private:
    HANDLE m_handle = INVALID_HANDLE_VALUE;
};

} // namespace

VisualStyles::VisualStyles()
{
    static const StylesContext context;
    m_isActive = context.Handle() != INVALID_HANDLE_VALUE && ActivateActCtx(context.Handle(), &m_cookie);
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
}

VisualStyles::~VisualStyles()
{
    if (m_isActive)
        DeactivateActCtx(0, m_cookie);
}

} // namespace sm::windows
