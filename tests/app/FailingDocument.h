// SPDX-License-Identifier: GPL-3.0-or-later
// The embedded host's application and document, with calls that can be made to fail.
#pragma once

#include "doubles/FaultPlan.h"
#include "drawing/Drawing.h"
#include "ports/HostError.h"
#include "ports/IAcadApplication.h"

#include <utility>

namespace sm::app {

/// Both parts share one plan, which outlives them.
class FailingDictionaries final : public IAcadDictionaries {
public:
    FailingDictionaries(std::shared_ptr<IAcadDictionaries> real, FaultPlan& faults)
        : m_real(std::move(real)), m_faults(faults)
    {
    }
    AcadXData GetXData(const std::string& appName) override { return Call().GetXData(appName); }
    void SetXData(const AcadXData& data) override { Call().SetXData(data); }

private:
    IAcadDictionaries& Call()
    {
        if (m_faults.ShouldFail())
            throw HostError("the host was told to fail");
        return *m_real;
    }
    std::shared_ptr<IAcadDictionaries> m_real;
    FaultPlan& m_faults;
};

class FailingDocument final : public IAcadDocument {
public:
    FailingDocument(std::shared_ptr<IAcadDocument> real, FaultPlan& faults) : m_real(std::move(real)), m_faults(faults)
    {
    }
    std::shared_ptr<IAcadApplication> Application() override { return Call().Application(); }
    std::string Name() override { return Call().Name(); }
    std::string FullName() override { return Call().FullName(); }
    bool Active() override { return Call().Active(); }
    std::int32_t HWND() override { return Call().HWND(); }
    std::int32_t WindowState() override { return Call().WindowState(); }
    void SetWindowState(std::int32_t state) override { Call().SetWindowState(state); }
    std::shared_ptr<IAcadLayouts> Layouts() override { return Call().Layouts(); }
    std::shared_ptr<IAcadLayout> ActiveLayout() override { return Call().ActiveLayout(); }
    void SetActiveLayout(const std::shared_ptr<IAcadLayout>& layout) override { Call().SetActiveLayout(layout); }
    void SetActiveSpace(std::int32_t space) override { Call().SetActiveSpace(space); }
    std::shared_ptr<IAcadBlocks> Blocks() override { return Call().Blocks(); }
    std::shared_ptr<IAcadDictionaries> Dictionaries() override
    {
        return std::make_shared<FailingDictionaries>(Call().Dictionaries(), m_faults);
    }
    std::shared_ptr<IAcadViews> Views() override { return Call().Views(); }
    std::shared_ptr<IAcadUtility> Utility() override { return Call().Utility(); }
    std::shared_ptr<IAcadPlot> Plot() override { return Call().Plot(); }
    AcadVariant GetVariable(const std::string& name) override { return Call().GetVariable(name); }
    std::array<double, 4> Limits() override { return Call().Limits(); }
    void Close(bool saveChanges) override { Call().Close(saveChanges); }
    void AuditInfo(bool fixErrors) override { Call().AuditInfo(fixErrors); }

private:
    IAcadDocument& Call()
    {
        if (m_faults.ShouldFail())
            throw HostError("the host was told to fail");
        return *m_real;
    }
    std::shared_ptr<IAcadDocument> m_real;
    FaultPlan& m_faults;
};

class FailingApplication final : public IAcadApplication {
public:
    FailingApplication(std::shared_ptr<IAcadApplication> real, std::shared_ptr<IAcadDocument> document,
                       FaultPlan& faults)
        : m_real(std::move(real)), m_document(std::move(document)), m_faults(faults)
    {
    }
    std::shared_ptr<IAcadDocument> ActiveDocument() override
    {
        Count();
        return m_document;
    }
    std::shared_ptr<IAcadDocuments> Documents() override
    {
        Count();
        return m_real->Documents();
    }
    std::shared_ptr<IAcadPreferences> Preferences() override
    {
        Count();
        return m_real->Preferences();
    }

private:
    void Count()
    {
        if (m_faults.ShouldFail())
            throw HostError("the host was told to fail");
    }
    std::shared_ptr<IAcadApplication> m_real;
    std::shared_ptr<IAcadDocument> m_document;
    FaultPlan& m_faults;
};

} // namespace sm::app
