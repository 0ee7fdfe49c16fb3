// SPDX-License-Identifier: GPL-3.0-or-later
// The interface by which the suite's front end drives one drawing, sheet by sheet. No operation throws.
#pragma once

#include "ports/IAcadApplication.h"
#include "ports/IAcadPageSetup.h"
#include "ports/IPubDoc.h"

namespace sm {

/// The front end's list of open native documents.
class INativeDocList {
public:
    virtual ~INativeDocList() = default;
    virtual void ReleaseEntry(std::int32_t index) = 0;
};

/// The front end's object that owns the list. Both may throw HostError.
class INativeDocOwner {
public:
    virtual ~INativeDocOwner() = default;
    virtual std::shared_ptr<INativeDocList> Documents() = 0;
};

class INativeDoc {
public:
    virtual ~INativeDoc() = default;

    /// Each of the three wraps one drawing and answers False on an object that wraps one already.
    VariantBool InitGetDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                           const std::shared_ptr<INativeDocOwner>& owner, const std::shared_ptr<IAcadDocument>& doc)
    {
        return INativeDoc_InitGetDoc(index, app, owner, doc);
    }
    VariantBool InitOpenDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                            const std::shared_ptr<INativeDocOwner>& owner, const std::string& fileName)
    {
        return INativeDoc_InitOpenDoc(index, app, owner, fileName);
    }
    VariantBool InitGetDocByName(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                 const std::shared_ptr<INativeDocOwner>& owner, const std::string& fullName)
    {
        return INativeDoc_InitGetDocByName(index, app, owner, fullName);
    }
    /// Plots one layout into the front end's document: a plot status, or -4 when the host can't be reached.
    std::int32_t AddToPubDoc(const std::shared_ptr<IPubDoc>& pubDoc, const std::string& layoutName, VariantBool quiet,
                             std::int32_t resolution, const std::string& jobOptionsFile)
    {
        return INativeDoc_AddToPubDoc(pubDoc, layoutName, quiet, resolution, jobOptionsFile);
    }
    void CloseDoc(VariantBool saveChanges) { INativeDoc_CloseDoc(saveChanges); }
    /// "AUDIT" in any letter case repairs the drawing; any other command does nothing. Gives an empty variant.
    AcadVariant ExeCmd(const std::string& command, const std::string& argument)
    {
        return INativeDoc_ExeCmd(command, argument);
    }
    void ReleaseDoc() { INativeDoc_ReleaseDoc(); }
    /// Name of the layout at a position of the drawing's layout collection.
    AcadVariant GetSheetName(std::int32_t sheetIndex) { return INativeDoc_GetSheetName(sheetIndex); }

    /// -1 until an Init operation set it.
    std::int16_t Index() { return INativeDoc_GetIndex(); }
    std::shared_ptr<IAcadPageSetup> CustomPageSetup() { return INativeDoc_GetCustomPageSetup(); }
    std::int32_t PageSetupSelected() { return INativeDoc_GetPageSetupSelected(); }
    void SetPageSetupSelected(std::int32_t value) { INativeDoc_SetPageSetupSelected(value); }
    std::string FullName() { return INativeDoc_GetFullName(); }
    VariantBool IsActive() { return INativeDoc_GetIsActive(); }
    std::string Name() { return INativeDoc_GetName(); }
    std::int32_t SheetCount() { return INativeDoc_GetSheetCount(); }
    std::int32_t WindowState() { return INativeDoc_GetWindowState(); }
    void SetWindowState(std::int32_t state) { INativeDoc_SetWindowState(state); }

private:
    virtual VariantBool INativeDoc_InitGetDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                              const std::shared_ptr<INativeDocOwner>& owner,
                                              const std::shared_ptr<IAcadDocument>& doc) = 0;
    virtual VariantBool INativeDoc_InitOpenDoc(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                               const std::shared_ptr<INativeDocOwner>& owner,
                                               const std::string& fileName) = 0;
    virtual VariantBool INativeDoc_InitGetDocByName(std::int16_t index, const std::shared_ptr<IAcadApplication>& app,
                                                    const std::shared_ptr<INativeDocOwner>& owner,
                                                    const std::string& fullName) = 0;
    virtual std::int32_t INativeDoc_AddToPubDoc(const std::shared_ptr<IPubDoc>& pubDoc, const std::string& layoutName,
                                                VariantBool quiet, std::int32_t resolution,
                                                const std::string& jobOptionsFile) = 0;
    virtual void INativeDoc_CloseDoc(VariantBool saveChanges) = 0;
    virtual AcadVariant INativeDoc_ExeCmd(const std::string& command, const std::string& argument) = 0;
    virtual void INativeDoc_ReleaseDoc() = 0;
    virtual AcadVariant INativeDoc_GetSheetName(std::int32_t sheetIndex) = 0;
    virtual std::int16_t INativeDoc_GetIndex() = 0;
    virtual std::shared_ptr<IAcadPageSetup> INativeDoc_GetCustomPageSetup() = 0;
    virtual std::int32_t INativeDoc_GetPageSetupSelected() = 0;
    virtual void INativeDoc_SetPageSetupSelected(std::int32_t value) = 0;
    virtual std::string INativeDoc_GetFullName() = 0;
    virtual VariantBool INativeDoc_GetIsActive() = 0;
    virtual std::string INativeDoc_GetName() = 0;
    virtual std::int32_t INativeDoc_GetSheetCount() = 0;
    virtual std::int32_t INativeDoc_GetWindowState() = 0;
    virtual void INativeDoc_SetWindowState(std::int32_t state) = 0;
};

} // namespace sm
