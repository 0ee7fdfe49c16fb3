// SPDX-License-Identifier: GPL-3.0-or-later
#include "run/StampTexts.h"

#include "plotter/LineSetter.h"
#include "run/HostReport.h"

namespace sm::app {
namespace {

static_assert(plotter::kLineEm == publisher::kStampEm);

class StampTexts final : public publisher::IStampTexts {
public:
    StampTexts(const std::string& shareFolder, DrawingReport& report)
        : m_setter(plotter::LineSetter::Create(
              shareFolder, [this](const std::string& remark) { ++m_remarks[remark + ", in text stamps"]; })),
          m_report(report)
    {
    }
    StampTexts(const StampTexts&) = delete;
    StampTexts& operator=(const StampTexts&) = delete;
    ~StampTexts() override { TakeRemarks(m_remarks, m_report); }

    publisher::StampLine Set(const std::string& text, const publisher::StampLook& look) override
    {
        plotter::BodyLine line = m_setter->Set(text, {look.family, look.bold, look.italic}, look.color);
        return {std::move(line.body), line.width};
    }
    std::string Fonts() override { return m_setter->Fonts(); }

private:
    CountedRemarks m_remarks;
    std::unique_ptr<plotter::LineSetter> m_setter;
    DrawingReport& m_report;
};

} // namespace

std::unique_ptr<publisher::IStampTexts> CreateStampTexts(const std::string& shareFolder, DrawingReport& report)
{
    return std::make_unique<StampTexts>(shareFolder, report);
}

} // namespace sm::app
