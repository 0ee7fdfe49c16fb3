// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that edits one file attachment.
#pragma once

#include "ui/form/RowDialog.h"

namespace sm {

class frmAttach final : public RowDialog {
public:
    frmAttach(FormSession& session, Form& settings, std::int32_t& action);

private:
    void Prepare(const ListRow* row) override;
    std::unique_ptr<ListRow> Entered() override;
    void Browse();
};

} // namespace sm
