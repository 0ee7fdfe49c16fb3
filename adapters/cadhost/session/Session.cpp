// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Session.h"

#include "base/files/FileFacts.h"
#include "base/files/Paths.h"
#include "cadhost/PointPicker.h"
#include "drawing/DwgConverter.h"
#include "ports/HostError.h"
#include "render/RenderReport.h"

#include <algorithm>
#include <filesystem>

namespace sm::cadhost {
namespace {

namespace fs = std::filesystem;

bool IsSameFile(const std::string& left, const std::string& right)
{
    return left == right || base::IsSameFile(left, right);
}

} // namespace

Session::Session(const HostOptions& options)
    : m_options(options), m_printerConfigPath(base::ToText(base::ToPath(options.shareFolder) / "Plotters")),
      m_shelf(
          std::make_shared<PlotShelf>(options.picker != nullptr ? PlotShelf::Lists::Watched : PlotShelf::Lists::Kept))
{
}

std::string Session::DriversPath() const
{
    return base::ToText(base::ToPath(m_options.shareFolder) / "Drivers");
}

void Session::SetPrinterConfigPath(const std::string& path)
{
    std::error_code error;
    if (!fs::is_directory(base::ToPath(path), error))
        throw HostError("PrinterConfigPath: the folder '" + path + "' doesn't exist");
    m_printerConfigPath = path;
}

PlotFolders Session::FoldersFor(const OpenDrawing& open) const
{
    return {m_printerConfigPath, base::ToText(base::ToPath(m_options.shareFolder) / "PlotStyles"), open.Folder(),
            m_options.userStyleFolder, m_shelf};
}

std::string Session::UseOf(const std::string& path) const
{
    for (const OpenDrawingRef& open : m_drawings) {
        std::string use = open->UseOf(path);
        if (!use.empty())
            return use;
    }
    return {};
}

std::shared_ptr<OpenDrawing> Session::Open(const std::string& path, const DocumentOverlay& overlay,
                                           std::unique_ptr<drawing::Drawing> read)
{
    const auto known = std::find_if(m_drawings.begin(), m_drawings.end(),
                                    [&](const OpenDrawingRef& open) { return IsSameFile(open->FullName(), path); });
    if (known != m_drawings.end()) {
        (*known)->SetOverlay(overlay);
        m_active = *known;
        return m_active;
    }
    render::ReferenceOptions references = m_options.references;
    references.dwg = m_options.dwg;
    if (read == nullptr)
        read = m_ahead ? m_ahead->Take(path) : drawing::Drawing::Open(path, m_options.dwg);
    auto open = std::make_shared<OpenDrawing>(path, std::move(read), overlay, m_options, std::move(references));
    m_drawings.push_back(open);
    m_active = open;
    return open;
}

void Session::Expect(std::vector<std::string> paths, std::size_t ahead)
{
    m_ahead = std::make_unique<drawing::ReadAhead>(std::move(paths), ahead, m_options.dwg);
}

void Session::Close(const OpenDrawingRef& open, bool saveChanges)
{
    if (m_options.picker != nullptr)
        m_options.picker->Forget(open->File());
    open->Close(saveChanges);
    std::erase(m_drawings, open);
    if (m_active == open)
        m_active = m_drawings.empty() ? nullptr : m_drawings.back();
}

} // namespace sm::cadhost
