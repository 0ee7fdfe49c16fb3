// SPDX-License-Identifier: GPL-3.0-or-later
#include "records/MarkBoard.h"

#include "base/Units.h"
#include "base/files/Paths.h"
#include "base/text/NumberText.h"
#include "commandline/MarkValues.h"
#include "records/StampList.h"
#include "settings/StampChoices.h"
#include "settings/mdlDataKegIO.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace sm::app {
namespace {

using beside::MarkField;
using beside::PageMark;
using beside::PageMarkKind;

/// The forms keep places to the hundredth, too.
double Rounded(double length)
{
    return std::round(length * 100) / 100;
}

/// False, and `number` as it was, for a text that is none.
bool TakeNumber(const std::string& text, double& number)
{
    const std::string_view digits = base::Trimmed(text);
    double read = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), read);
    if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(read))
        return false;
    number = read;
    return true;
}

/// Why not, naming the first of `numbers` that can't be read.
std::string TakeNumbers(const std::vector<std::pair<std::string, double*>>& numbers)
{
    std::vector<double> read(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (!TakeNumber(numbers[i].first, read[i]))
            return "\"" + numbers[i].first + "\" is no number; the decimal sign is \".\".";
    for (std::size_t i = 0; i < numbers.size(); ++i)
        *numbers[i].second = read[i];
    return {};
}

std::string ChangeStamp(StampSettings& stamp, const std::vector<std::string>& values)
{
    double x = 0, y = 0, size = 0;
    if (std::string why = TakeNumbers({{values[0], &x}, {values[1], &y}, {values[2], &size}}); !why.empty())
        return why;
    constexpr double kLargest = 1000; // points
    if (size < 1 || size > kLargest || size != std::floor(size))
        return "The font size is a whole number of points from 1 to 1000.";
    stamp.X = x;
    stamp.Y = y;
    stamp.FontSize = static_cast<std::int32_t>(size);
    return {};
}

std::string ChangeFile(AttachmentEntry& file, const std::vector<std::string>& values)
{
    std::error_code unreadable;
    const bool isOther = values[0] != file.FilePath;
    if (isOther && !std::filesystem::is_regular_file(base::ToPath(values[0]), unreadable))
        return "There is no file " + values[0] + ".";
    if (const std::string why = RecordTextError(values[0]); !why.empty())
        return "The path " + why + ".";
    if (std::string why = TakeNumbers({{values[1], &file.X}, {values[2], &file.Y}}); !why.empty())
        return why;
    if (isOther)
        file.FilePath = base::ToText(std::filesystem::absolute(base::ToPath(values[0]), unreadable));
    return {};
}

} // namespace

MarkBoard::MarkBoard(const std::string& drawing, const Install& install, terminal::Console& console)
    : m_editor(drawing, install, console)
{
    ReadStamp(m_editor.Context(), m_editor.Document(), m_stored.stamp);
    ReadAttachments(m_editor.Context(), m_editor.Document(), m_stored.files);
    ReadSignatureFields(m_editor.Context(), m_editor.Document(), m_stored.fields);
    m_now = m_stored;
    const auto texts = StoredStampTexts(m_editor.Settings());
    const auto index = static_cast<std::size_t>(m_stored.stamp.StampIndex);
    if (m_stored.stamp.StampIndex > 0 && index < texts.size())
        m_stampText = texts[index];
}

std::vector<MarkBoard::Entry> MarkBoard::EntriesOn(const std::string& layout)
{
    std::vector<Entry> entries;
    if (m_now.stamp.StampIndex > 0 && (m_now.stamp.LayoutName == layout || m_now.stamp.LayoutName == kAllLayouts))
        entries.push_back({&m_now.stamp, nullptr, nullptr});
    for (AttachmentEntry& file : m_now.files)
        if (file.LayoutName == layout)
            entries.push_back({nullptr, &file, nullptr});
    for (SignatureFieldEntry& field : m_now.fields)
        if (field.LayoutName == layout)
            entries.push_back({nullptr, nullptr, &field});
    return entries;
}

MarkBoard::Entry MarkBoard::EntryAt(const std::string& layout, std::size_t mark)
{
    const std::vector<Entry> entries = EntriesOn(layout);
    return mark < entries.size() ? entries[mark] : Entry();
}

std::vector<PageMark> MarkBoard::MarksOn(const std::string& layout)
{
    std::vector<PageMark> marks;
    for (const Entry& entry : EntriesOn(layout)) {
        if (const StampSettings* const stamp = entry.stamp)
            marks.push_back({PageMarkKind::Stamp,
                             {stamp->X, stamp->Y},
                             {stamp->X, stamp->Y},
                             m_stampText,
                             stamp->FontName,
                             base::MillimetresOfPoints(stamp->FontSize),
                             stamp->Color,
                             stamp->Justification});
        else if (const AttachmentEntry* const file = entry.file)
            marks.push_back({PageMarkKind::Attachment, {file->X, file->Y}, {file->X, file->Y}, file->FilePath});
        else
            marks.push_back({PageMarkKind::Field,
                             {entry.field->X1, entry.field->Y1},
                             {entry.field->X2, entry.field->Y2},
                             entry.field->FieldName});
    }
    return marks;
}

std::string MarkBoard::Move(const std::string& layout, std::size_t mark, Vec2 by)
{
    const auto move = [&](double& x, double& y) {
        x = Rounded(x + by.x);
        y = Rounded(y + by.y);
    };
    const Entry entry = EntryAt(layout, mark);
    if (entry.stamp != nullptr) {
        move(entry.stamp->X, entry.stamp->Y);
    } else if (entry.file != nullptr) {
        move(entry.file->X, entry.file->Y);
    } else if (entry.field != nullptr) {
        move(entry.field->X1, entry.field->Y1);
        move(entry.field->X2, entry.field->Y2);
    }
    return {};
}

std::vector<MarkField> MarkBoard::Fields(const std::string& layout, std::size_t mark)
{
    const Entry entry = EntryAt(layout, mark);
    if (const StampSettings* const stamp = entry.stamp)
        return {
            {"X", NumberText(stamp->X)}, {"Y", NumberText(stamp->Y)}, {"Font size", std::to_string(stamp->FontSize)}};
    if (const AttachmentEntry* const file = entry.file)
        return {{"File", file->FilePath}, {"X", NumberText(file->X)}, {"Y", NumberText(file->Y)}};
    if (const SignatureFieldEntry* const field = entry.field)
        return {{"Title", field->FieldName},   {"Description", field->FieldLabel}, {"X1", NumberText(field->X1)},
                {"Y1", NumberText(field->Y1)}, {"X2", NumberText(field->X2)},      {"Y2", NumberText(field->Y2)}};
    return {};
}

std::string MarkBoard::ChangeField(SignatureFieldEntry& field, const std::vector<std::string>& values)
{
    const std::string name(base::Trimmed(values[0])), label(base::Trimmed(values[1]));
    if (name.empty())
        return "A signature field has a title.";
    for (const auto& [what, text] : {std::pair("The title ", name), std::pair("The description ", label)})
        if (const std::string why = RecordTextError(text); !why.empty())
            return what + why + ".";
    const bool isTaken = std::any_of(m_now.fields.begin(), m_now.fields.end(), [&](const SignatureFieldEntry& other) {
        return &other != &field && other.FieldName == name;
    });
    if (isTaken)
        return "There is a signature field \"" + name + "\" already.";
    SignatureFieldEntry changed = field;
    if (std::string why = TakeNumbers(
            {{values[2], &changed.X1}, {values[3], &changed.Y1}, {values[4], &changed.X2}, {values[5], &changed.Y2}});
        !why.empty())
        return why;
    if (changed.X1 == changed.X2 || changed.Y1 == changed.Y2)
        return "The rectangle has no area.";
    changed.FieldName = name;
    changed.FieldLabel = label;
    field = changed;
    return {};
}

std::string MarkBoard::Change(const std::string& layout, std::size_t mark, const std::vector<std::string>& values)
{
    const Entry entry = EntryAt(layout, mark);
    if (values.size() != Fields(layout, mark).size())
        return "There is no such mark any more.";
    if (entry.stamp != nullptr)
        return ChangeStamp(*entry.stamp, values);
    if (entry.file != nullptr)
        return ChangeFile(*entry.file, values);
    return entry.field != nullptr ? ChangeField(*entry.field, values) : "There is no such mark any more.";
}

void MarkBoard::Save()
{
    CallContext& context = m_editor.Context();
    IAcadDocument& document = m_editor.Document();
    Lists kept;
    if (!(m_now.stamp == m_stored.stamp)) {
        WriteStamp(context, document, m_now.stamp);
        ReadStamp(context, document, kept.stamp);
        m_editor.RequireKept(kept.stamp == m_now.stamp);
    }
    if (m_now.files != m_stored.files) {
        WriteAttachments(context, document, m_now.files);
        ReadAttachments(context, document, kept.files);
        m_editor.RequireKept(kept.files == m_now.files);
    }
    if (m_now.fields != m_stored.fields) {
        WriteSignatureFields(context, document, m_now.fields);
        ReadSignatureFields(context, document, kept.fields);
        m_editor.RequireKept(kept.fields == m_now.fields);
    }
    m_editor.Save();
}

} // namespace sm::app
