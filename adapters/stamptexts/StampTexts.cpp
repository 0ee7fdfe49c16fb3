// SPDX-License-Identifier: GPL-3.0-or-later
#include "stamptexts/StampTexts.h"

#include "plotter/LineSetter.h"

#include <utility>

namespace sm::stamptexts {
namespace {

static_assert(plotter::kLineEm == publisher::kStampEm);

class StampTexts final : public publisher::IStampTexts {
public:
    StampTexts(const std::string& shareFolder, std::function<void(const std::string&)> remark)
        : m_setter(plotter::LineSetter::Create(shareFolder, std::move(remark)))
    {
    }

    publisher::StampLine Set(const std::string& text, const publisher::StampLook& look) override
    {
        plotter::BodyLine line = m_setter->Set(text, {look.family, look.bold, look.italic}, look.color);
        return {std::move(line.body), line.width};
    }
    std::string Fonts() override { return m_setter->Fonts(); }

private:
    std::unique_ptr<plotter::LineSetter> m_setter;
};

} // namespace

std::unique_ptr<publisher::IStampTexts> CreateStampTexts(const std::string& shareFolder,
                                                         std::function<void(const std::string& remark)> remark)
{
    return std::make_unique<StampTexts>(shareFolder, std::move(remark));
}

} // namespace sm::stamptexts
