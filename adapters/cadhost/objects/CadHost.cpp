// SPDX-License-Identifier: GPL-3.0-or-later
#include "cadhost/CadHost.h"

#include "answers/HostErrors.h"
#include "session/LayoutList.h"
#include "session/Session.h"

namespace sm::cadhost {
namespace {

OpenDrawing& Behind(const std::shared_ptr<IAcadDocument>& document)
{
    const OpenDrawingRef open = DrawingBehind(document);
    if (open == nullptr)
        throw HostError("this document belongs to another host");
    return *open;
}

class EmbeddedHost final : public CadHost {
public:
    explicit EmbeddedHost(const HostOptions& options) : m_session(std::make_shared<Session>(options)) {}
    std::shared_ptr<IAcadApplication> Application() override { return m_session->ApplicationPort(); }
    std::shared_ptr<IAcadDocument> Open(const std::string& path, const DocumentOverlay& overlay) override
    {
        return m_session->DocumentPort(m_session->Open(path, overlay));
    }
    std::shared_ptr<IAcadDocument> Take(const std::string& path, std::unique_ptr<drawing::Drawing> read) override
    {
        return m_session->DocumentPort(m_session->Open(path, {}, std::move(read)));
    }
    void Expect(std::vector<std::string> paths, std::size_t ahead) override
    {
        m_session->Expect(std::move(paths), ahead);
    }
    void Overlay(const std::shared_ptr<IAcadDocument>& document, const DocumentOverlay& overlay) override
    {
        Behind(document).SetOverlay(overlay);
    }
    DocumentReport Report(const std::shared_ptr<IAcadDocument>& document) override { return Behind(document).Report(); }
    std::vector<LayoutOutline> Outlines(const std::shared_ptr<IAcadDocument>& document) override
    {
        return OutlineLayouts(Behind(document));
    }
    std::vector<LayoutFacts> Layouts(const std::shared_ptr<IAcadDocument>& document) override
    {
        return ListLayouts(Behind(document));
    }
    void PlotTo(IPageSink* sink) override { m_session->PlotTo(sink); }
    void KeepLayers(bool keep) override { m_session->KeepLayers(keep); }
    std::string UseOf(const std::string& path) override { return m_session->UseOf(path); }
    const drawing::Drawing& DrawingOf(const std::shared_ptr<IAcadDocument>& document) override
    {
        return Behind(document).File();
    }

private:
    std::shared_ptr<Session> m_session;
};

} // namespace

std::unique_ptr<CadHost> CadHost::Create(const HostOptions& options)
{
    return std::make_unique<EmbeddedHost>(options);
}

} // namespace sm::cadhost
