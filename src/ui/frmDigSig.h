// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that edits one digital signature field.
#pragma once

#include "ui/form/RowDialog.h"

namespace sm {

class frmDigSig final : public RowDialog {
public:
    frmDigSig(FormSession& session, Form& settings, std::int32_t& action);

private:
    void Prepare(const ListRow* row) override;
    std::unique_ptr<ListRow> Entered() override;
    [[nodiscard]] bool IsNameTaken() const;
};

} // namespace sm
