// SPDX-License-Identifier: GPL-3.0-or-later
// The small objects of a document: dictionaries, views, utility and plot.
#include "answers/HostErrors.h"
#include "answers/HostText.h"
#include "cadhost/PointPicker.h"
#include "objects/ExtendedData.h"
#include "objects/HostObjects.h"
#include "session/NowAndThen.h"
#include "session/Views.h"

namespace sm::cadhost {
namespace {

class HostDictionaries final : public IAcadDictionaries {
public:
    explicit HostDictionaries(OpenDrawingRef open) : m_open(std::move(open)) {}
    AcadXData GetXData(const std::string& appName) override
    {
        const auto& source = m_open->Overlay().pageSetupSource;
        if (source && appName == kPageSetupRecord)
            return {{1001, 1000}, {appName, std::to_string(*source)}};
        return AsHost([&] { return ToAutomation(m_open->File().RecordOf(appName)); });
    }
    void SetXData(const AcadXData& data) override
    {
        const auto items = FromAutomation(data);
        AsHost([&] { m_open->File().SetRecord(items.front().text, items); });
        if (items.front().text == kPageSetupRecord)
            m_open->DropPageSetupSource();
    }

private:
    static constexpr const char* kPageSetupRecord = "TWSI_PltSel";
    OpenDrawingRef m_open;
};

class HostView final : public IAcadView {
public:
    explicit HostView(drawing::NamedView view) : m_view(std::move(view)) {}
    std::string Name() override { return m_view.name; }
    AcadPoint Center() override
    {
        const Vec2 center = CenterOf(m_view);
        return {center.x, center.y, 0};
    }
    double Width() override { return m_view.width; }
    double Height() override { return m_view.height; }

private:
    drawing::NamedView m_view;
};

class HostViews final : public IAcadViews {
public:
    explicit HostViews(OpenDrawingRef open) : m_open(std::move(open)) {}
    std::int32_t Count() override { return static_cast<std::int32_t>(m_open->File().Views().size()); }
    std::shared_ptr<IAcadView> Item(std::int32_t index) override
    {
        const auto& views = m_open->File().Views();
        if (index < 0 || static_cast<std::size_t>(index) >= views.size())
            throw HostError("Views: there is no item " + std::to_string(index));
        return std::make_shared<HostView>(views[static_cast<std::size_t>(index)]);
    }
    std::shared_ptr<IAcadView> Item(const std::string& name) override
    {
        for (const drawing::NamedView& view : m_open->File().Views()) {
            if (SameName(view.name, name))
                return std::make_shared<HostView>(view);
        }
        throw HostError("Views: there is no view '" + name + "'");
    }

private:
    OpenDrawingRef m_open;
};

class HostUtility final : public IAcadUtility {
public:
    HostUtility(SessionRef session, OpenDrawingRef open) : m_session(std::move(session)), m_open(std::move(open)) {}
    AcadPoint TranslateCoordinates(const AcadPoint& point, std::int32_t from, std::int32_t to,
                                   std::int32_t displacement) override
    {
        if ((from != kWorld && from != kDisplay) || (to != kWorld && to != kDisplay))
            throw HostError("TranslateCoordinates: only world (0) and display (2) coordinates are known");
        if (from == to)
            return point;
        const DisplayView view(*m_open);
        return from == kWorld ? view.ToDisplay(point, displacement != 0) : view.ToWorld(point, displacement != 0);
    }
    AcadPoint GetPoint(const std::string& prompt) override
    {
        return Picked([&](IPointPicker& picker) {
            std::size_t layout = m_open->Active();
            const ActivatesShown activates{*m_open, layout};
            return picker.PickPoint(m_open->File(), layout, prompt);
        });
    }
    AcadPoint GetCorner(const AcadPoint& first, const std::string& prompt) override
    {
        return Picked([&](IPointPicker& picker) {
            return picker.PickCorner(m_open->File(), m_open->Active(), {first.x, first.y}, prompt);
        });
    }

private:
    static constexpr std::int32_t kWorld = 0, kDisplay = 2;

    /// A tab that the user turned to stays in front when the pick is given up, too.
    struct ActivatesShown {
        OpenDrawing& open;
        const std::size_t& layout;
        ~ActivatesShown()
        {
            if (layout != open.Active() && layout < open.File().Layouts().size())
                open.Activate(layout);
        }
    };

    template <class Ask> AcadPoint Picked(Ask ask) const
    {
        IPointPicker* const picker = m_session->Options().picker;
        if (picker == nullptr)
            throw HostError("there is no window to pick in");
        const std::optional<Vec2> point = AsHost([&] { return ask(*picker); });
        if (!point)
            throw HostError("the user cancelled picking");
        return {point->x, point->y, 0};
    }

    SessionRef m_session;
    OpenDrawingRef m_open;
};

class HostPlot final : public IAcadPlot {
public:
    HostPlot(SessionRef session, OpenDrawingRef open) : m_session(std::move(session)), m_open(std::move(open)) {}
    // Errors of this host are quiet always: there is no window to show them in.
    void SetQuietErrorMode(bool) override {}
    bool PlotToFile(const std::string& path) override
    {
        IPageSink* const sink = m_session->Sink();
        const std::function<bool()> goesOn = sink == nullptr ? m_session->Options().mayPlot : nullptr;
        if (goesOn && !goesOn())
            return false;
        return m_open->Plot(path, m_session->FoldersFor(*m_open), m_session->Options().keepLayers,
                            {sink, goesOn ? NowAndThen(goesOn) : std::function<bool()>()});
    }

private:
    SessionRef m_session;
    OpenDrawingRef m_open;
};

} // namespace

std::shared_ptr<IAcadDictionaries> MakeDictionaries(const OpenDrawingRef& open)
{
    return std::make_shared<HostDictionaries>(open);
}

std::shared_ptr<IAcadViews> MakeViews(const OpenDrawingRef& open)
{
    return std::make_shared<HostViews>(open);
}

std::shared_ptr<IAcadUtility> MakeUtility(const SessionRef& session, const OpenDrawingRef& open)
{
    return std::make_shared<HostUtility>(session, open);
}

std::shared_ptr<IAcadPlot> MakePlot(const SessionRef& session, const OpenDrawingRef& open)
{
    return std::make_shared<HostPlot>(session, open);
}

} // namespace sm::cadhost
