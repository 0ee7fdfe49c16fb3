// SPDX-License-Identifier: GPL-3.0-or-later
#include "screen/PagePreview.h"

#include "base/Units.h"
#include "cadhost/DocumentReport.h"
#include "cadhost/PageSink.h"
#include "drawing/Drawing.h"
#include "plotting/mdlAcadPrinting.h"
#include "report/SheetWatcher.h"
#include "run/RunSession.h"
#include "screen/PreviewDoc.h"
#include "settings/mdlDataKegIO.h"

#include <cmath>
#include <sstream>
#include <utility>

namespace sm::app {
namespace {

constexpr double kPoint = base::MillimetresOfPoints(1);

bool IsSame(const PreviewWish& a, const PreviewWish& b)
{
    const LayoutSettings& left = a.keg.Layouts.front();
    const LayoutSettings& right = b.keg.Layouts.front();
    return a.layout == b.layout && a.keg.PageSetupSelected == b.keg.PageSetupSelected &&
           left.PageSetup == right.PageSetup && left.Stamp == right.Stamp && left.Attachments == right.Attachments &&
           left.SignatureFields == right.SignatureFields && a.keg.General == b.keg.General;
}

/// Hands the host's canvas on and keeps the page's sides.
class Sink final : public cadhost::IPageSink {
public:
    Sink(render::ICanvas& canvas, const std::atomic<bool>& stop) : m_canvas(canvas), m_stop(stop) {}
    [[nodiscard]] render::ICanvas& Canvas() override { return m_canvas; }
    void PageIs(double width, double height, const render::Matrix2& fromSheet) override
    {
        m_width = width;
        m_height = height;
        m_fromSheet = fromSheet;
    }
    [[nodiscard]] const std::atomic<bool>* Stop() const override { return &m_stop; }

    /// The page as far as it was plotted, and what the publisher would put on it.
    [[nodiscard]] beside::PreviewPage Page(const std::vector<beside::PageMark>& marks) const
    {
        beside::PreviewPage page{m_width, m_height};
        for (beside::PageMark mark : marks) {
            mark.from = m_fromSheet.Apply({mark.from.x * kPoint, mark.from.y * kPoint});
            mark.to = m_fromSheet.Apply({mark.to.x * kPoint, mark.to.y * kPoint});
            mark.size *= kPoint;
            mark.turn = std::atan2(m_fromSheet.b, m_fromSheet.a) * 180 / 3.14159265358979323846;
            page.marks.push_back(mark);
        }
        return page;
    }

private:
    render::ICanvas& m_canvas;
    const std::atomic<bool>& m_stop;
    double m_width = 0, m_height = 0;
    render::Matrix2 m_fromSheet;
};

DrawingTask TaskOf(const std::string& drawing)
{
    DrawingTask task;
    task.drawing = drawing;
    task.options.asSet = true;
    return task;
}

} // namespace

class PagePreview::Copy {
public:
    Copy(const std::string& drawing, const Install& install, std::unique_ptr<drawing::Drawing> read)
        : m_install(install), m_console(m_said, false), m_session(TaskOf(drawing), m_install, m_console, m_report)
    {
        m_session.Open(drawing, std::move(read));
        m_session.Context().g_AcadApp = m_session.Application();
        m_session.Context().g_AcadDoc = m_session.Document();
    }

    beside::PreviewPage Draw(const PreviewWish& wish, render::ICanvas& canvas, const std::atomic<bool>& stop)
    {
        m_report = {};
        TakeRecords(wish.keg);
        Sink sink(canvas, stop);
        PreviewDoc document;
        const PlotsTo plots(m_session, sink);
        const std::int32_t resolution = wish.keg.General.Optimization == 0 ? 1200 : 600;
        const std::int32_t status = PlotLayoutToPubDoc(m_session.Context(), document, wish.layout, kTrue,
                                                       wish.keg.PageSetupSelected, resolution, "");
        beside::PreviewPage page = sink.Page(document.Marks());
        if (status < 0) {
            page = {};
            page.trouble = m_session.Watcher().FailedSheet(m_session.HostReport().plotFailure);
        }
        return page;
    }

private:
    class PlotsTo {
    public:
        PlotsTo(RunSession& session, Sink& sink) : m_session(session) { m_session.PlotTo(&sink); }
        ~PlotsTo() { m_session.PlotTo(nullptr); }
        PlotsTo(const PlotsTo&) = delete;
        PlotsTo& operator=(const PlotsTo&) = delete;

    private:
        RunSession& m_session;
    };

    /// Into the copy, which is never saved.
    void TakeRecords(const DataKeg& keg)
    {
        CallContext& context = m_session.Context();
        IAcadDocument& document = *m_session.Document();
        const LayoutSettings& entry = keg.Layouts.front();
        WriteCustomPageSetup(context, document, entry.PageSetup);
        WriteStamp(context, document, entry.Stamp);
        WriteAttachments(context, document, entry.Attachments);
        WriteSignatureFields(context, document, entry.SignatureFields);
    }

    Install m_install;
    std::ostringstream m_said;
    terminal::Console m_console;
    DrawingReport m_report;
    RunSession m_session;
};

PagePreview::PagePreview(std::string drawing, Install install, std::function<std::optional<PreviewWish>()> look,
                         std::function<std::unique_ptr<drawing::Drawing>()> twin)
    : m_drawing(std::move(drawing)), m_install(std::move(install)), m_look(std::move(look)), m_askTwin(std::move(twin))
{
}

PagePreview::~PagePreview() = default;

bool PagePreview::Renew()
{
    try {
        std::optional<PreviewWish> wish = m_look();
        const std::lock_guard lock(m_mutex);
        if (!wish || wish->keg.Layouts.empty() || (m_wish && IsSame(*m_wish, *wish)))
            return false;
        if (const auto ask = std::exchange(m_askTwin, nullptr))
            m_twin = ask();
        m_wish = std::move(wish);
        return true;
    } catch (const std::exception&) {
        return false; // the drawing can't be asked at the moment
    }
}

beside::PreviewPage PagePreview::Draw(render::ICanvas& canvas, const std::atomic<bool>& stop)
{
    beside::PreviewPage failed;
    try {
        std::optional<PreviewWish> wish;
        std::unique_ptr<drawing::Drawing> twin;
        {
            const std::lock_guard lock(m_mutex);
            wish = m_wish;
            twin = std::move(m_twin);
        }
        if (!wish)
            return failed;
        if (m_copy == nullptr)
            m_copy = std::make_unique<Copy>(m_drawing, m_install, std::move(twin));
        return m_copy->Draw(*wish, canvas, stop);
    } catch (const std::exception& error) {
        failed.trouble = error.what();
    }
    return failed;
}

} // namespace sm::app
