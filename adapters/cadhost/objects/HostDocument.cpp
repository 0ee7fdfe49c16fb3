// SPDX-License-Identifier: GPL-3.0-or-later
// The document object.
#include "answers/HostErrors.h"
#include "objects/HostObjects.h"

namespace sm::cadhost {
namespace {

class HostDocument final : public IAcadDocument {
public:
    HostDocument(SessionRef session, OpenDrawingRef open) : m_session(std::move(session)), m_open(std::move(open)) {}
    [[nodiscard]] const OpenDrawingRef& Behind() const { return m_open; }

    std::shared_ptr<IAcadApplication> Application() override { return m_session->ApplicationPort(); }
    std::string Name() override { return Open().FileName(); }
    std::string FullName() override { return Open().FullName(); }
    bool Active() override { return &Open() == m_session->Active().get(); }
    std::int32_t HWND() override { return 0; }
    std::int32_t WindowState() override { return Open().windowState; }
    void SetWindowState(std::int32_t state) override { Open().windowState = state; }

    std::shared_ptr<IAcadLayouts> Layouts() override { return MakeLayouts(m_session, Checked()); }
    std::shared_ptr<IAcadLayout> ActiveLayout() override { return MakeLayout(m_session, m_open, Open().Active()); }
    void SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout) override
    {
        Open().Activate(IndexOf(layout, m_open));
    }
    void SetActiveSpace(std::int32_t space) override
    {
        if (space != 0 && space != 1)
            throw HostError("ActiveSpace: " + std::to_string(space) + " is neither 0 (paper) nor 1 (model)");
        const std::size_t model = Open().Shown().front();
        if (space == 1)
            Open().Activate(model);
        else if (Open().Active() == model)
            Open().Activate(Open().LastPaper());
    }

    std::shared_ptr<IAcadBlocks> Blocks() override { return MakeBlocks(Checked()); }
    std::shared_ptr<IAcadDictionaries> Dictionaries() override { return MakeDictionaries(Checked()); }
    std::shared_ptr<IAcadViews> Views() override { return MakeViews(Checked()); }
    std::shared_ptr<IAcadUtility> Utility() override { return MakeUtility(m_session, Checked()); }
    std::shared_ptr<IAcadPlot> Plot() override { return MakePlot(m_session, Checked()); }

    AcadVariant GetVariable(const std::string& name) override { return SystemVariable(*m_session, Open(), name); }
    std::array<double, 4> Limits() override { return LimitsOf(Open()); }

    void Close(bool saveChanges) override { m_session->Close(m_open, saveChanges); }
    // The reader mends what it can while it opens the file: an audit tells what that was.
    void AuditInfo(bool fixErrors) override { Open().Audit(fixErrors); }

private:
    /// Both throw once the drawing is closed.
    const OpenDrawingRef& Checked() const
    {
        static_cast<void>(m_open->File());
        return m_open;
    }
    [[nodiscard]] OpenDrawing& Open() const { return *Checked(); }
    SessionRef m_session;
    OpenDrawingRef m_open;
};

} // namespace

std::shared_ptr<IAcadDocument> Session::DocumentPort(const OpenDrawingRef& open)
{
    return open == nullptr ? nullptr : std::make_shared<HostDocument>(shared_from_this(), open);
}

OpenDrawingRef DrawingBehind(const std::shared_ptr<IAcadDocument>& document)
{
    const auto host = std::dynamic_pointer_cast<HostDocument>(document);
    return host == nullptr ? nullptr : host->Behind();
}

} // namespace sm::cadhost
