// SPDX-License-Identifier: GPL-3.0-or-later
// What the objects of one host share: its options, its preferences and the drawings it has open.
#pragma once

#include "drawing/ReadAhead.h"
#include "ports/IAcadApplication.h"
#include "session/OpenDrawing.h"

namespace sm::cadhost {

class Session : public std::enable_shared_from_this<Session> {
public:
    explicit Session(const HostOptions& options);

    [[nodiscard]] const HostOptions& Options() const { return m_options; }
    void KeepLayers(bool keep) { m_options.keepLayers = keep; }
    void PlotTo(IPageSink* sink) { m_sink = sink; }
    [[nodiscard]] IPageSink* Sink() const { return m_sink; }
    [[nodiscard]] std::string DriversPath() const;
    [[nodiscard]] const std::string& PrinterConfigPath() const { return m_printerConfigPath; }
    /// Throws HostError for a folder that isn't there.
    void SetPrinterConfigPath(const std::string& path);
    [[nodiscard]] PlotFolders FoldersFor(const OpenDrawing& open) const;

    /// See CadHost.
    [[nodiscard]] std::string UseOf(const std::string& path) const;
    [[nodiscard]] const std::vector<std::shared_ptr<OpenDrawing>>& Drawings() const { return m_drawings; }
    [[nodiscard]] const std::shared_ptr<OpenDrawing>& Active() const { return m_active; }
    /// Opens a drawing, or takes the one that is open already, and makes it the active one; `read` is what the file
    /// holds, null: it is read. Throws DrawingError.
    std::shared_ptr<OpenDrawing> Open(const std::string& path, const DocumentOverlay& overlay,
                                      std::unique_ptr<drawing::Drawing> read = nullptr);
    /// See CadHost.
    void Expect(std::vector<std::string> paths, std::size_t ahead);
    /// Throws HostError when the drawing can't be saved; it then stays open.
    void Close(const std::shared_ptr<OpenDrawing>& open, bool saveChanges);

    // The ports over what the session holds; null for null.
    std::shared_ptr<IAcadApplication> ApplicationPort();
    std::shared_ptr<IAcadDocument> DocumentPort(const std::shared_ptr<OpenDrawing>& open);

private:
    HostOptions m_options;
    IPageSink* m_sink = nullptr;
    std::string m_printerConfigPath;
    std::shared_ptr<PlotShelf> m_shelf;
    std::vector<std::shared_ptr<OpenDrawing>> m_drawings;
    std::shared_ptr<OpenDrawing> m_active;
    std::unique_ptr<drawing::ReadAhead> m_ahead; ///< null: nobody said what comes
};

using SessionRef = std::shared_ptr<Session>;
using OpenDrawingRef = std::shared_ptr<OpenDrawing>;

/// The drawing behind a document port; null for another host's.
OpenDrawingRef DrawingBehind(const std::shared_ptr<IAcadDocument>& document);

} // namespace sm::cadhost
