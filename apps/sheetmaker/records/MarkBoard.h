// SPDX-License-Identifier: GPL-3.0-or-later
// A drawing's stamp, attachments and signature fields, changed in the drawing's window and saved as "stamp", "attach"
// and "sign" save them.
#pragma once

#include "beside/MarkBoard.h"
#include "records/RecordEditor.h"
#include "settings/DataKeg.h"

namespace sm::app {

class MarkBoard final : public beside::IMarkBoard {
public:
    /// Opens the drawing and keeps other processes from changing it as long as the board stays. Throws like
    /// RecordEditor.
    MarkBoard(const std::string& drawing, const Install& install, terminal::Console& console);

    [[nodiscard]] const drawing::Drawing& Drawing() { return m_editor.Drawing(); }
    [[nodiscard]] bool IsChanged() const { return !(m_now == m_stored); }
    /// Writes the lists that have changed. Throws like RecordEditor, and the file is as it was.
    void Save();

    [[nodiscard]] std::vector<beside::PageMark> MarksOn(const std::string& layout) override;
    std::string Move(const std::string& layout, std::size_t mark, Vec2 by) override;
    [[nodiscard]] std::vector<beside::MarkField> Fields(const std::string& layout, std::size_t mark) override;
    std::string Change(const std::string& layout, std::size_t mark, const std::vector<std::string>& values) override;

private:
    struct Lists {
        StampSettings stamp;
        std::vector<AttachmentEntry> files;
        std::vector<SignatureFieldEntry> fields;
        friend bool operator==(const Lists&, const Lists&) = default;
    };
    /// One of them; all null: there is none at that place.
    struct Entry {
        StampSettings* stamp = nullptr;
        AttachmentEntry* file = nullptr;
        SignatureFieldEntry* field = nullptr;
    };
    std::vector<Entry> EntriesOn(const std::string& layout);
    Entry EntryAt(const std::string& layout, std::size_t mark);
    std::string ChangeField(SignatureFieldEntry& field, const std::vector<std::string>& values);

    RecordEditor m_editor;
    std::string m_stampText; ///< that the stored stamp shows
    Lists m_stored, m_now;
};

} // namespace sm::app
