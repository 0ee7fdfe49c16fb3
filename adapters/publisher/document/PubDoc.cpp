// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/PubDoc.h"

#include "base/files/File.h"
#include "document/SavePdf.h"
#include "pages/PageFile.h"
#include "pdf/PdfName.h"
#include "pdf/PublishStatus.h"
#include "ports/HostError.h"
#include "publisher/JobOptions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <fmt/format.h>
#include <utility>

namespace sm::publisher {

namespace {

/// The largest page in units of its own (PDF 1.7, appendix C): marks further off than that, or than the page is large,
/// leave numbers that readers refuse.
constexpr double kFarthestMark = 14400;

double FarthestMark(const PageSource& page)
{
    return std::max({kFarthestMark, page.width, page.height});
}

/// Why a file can't be read, as the end of a sentence; empty when it can, with its size.
std::string ReadingFault(const std::string& path, std::uint64_t& bytes)
{
    std::error_code error;
    if (base::IsOfTheSystem(path)) {
        return "it is not an ordinary file";
    }
    const base::FileFacts facts = base::FactsOf(path, error); // to open a device may do something
    if (!error && facts.kind != base::FileKind::File) {
        return facts.kind == base::FileKind::Folder ? "it is a folder" : "it is not an ordinary file";
    }
    base::File file = base::File::Open(path, error);
    if (!file.IsOpen()) {
        return base::IsMissing(error) ? "there is no such file" : "it can't be read: " + error.message();
    }
    try {
        char first = 0;
        file.Read(&first, 1);
    } catch (const std::system_error& fault) {
        return "it can't be read: " + fault.code().message();
    }
    bytes = facts.stamp.size;
    return {};
}

} // namespace

PubDoc::PubDoc(const PublisherOptions& options, IDesktop& desktop, std::unique_ptr<IPageMaker> pageMaker)
    : m_options(options), m_desktop(desktop), m_pageMaker(std::move(pageMaker))
{
    m_info.Set("Producer", options.producer);
}

/// Runs `action`, which returns a status; what it throws becomes the error text and its status.
template <typename Action> std::int32_t PubDoc::WithStatus(Action&& action)
{
    m_lastError.clear();
    m_lastFailure.reset();
    try {
        return static_cast<std::int32_t>(action());
    } catch (const PublishFailure& failure) {
        m_lastError = failure.what();
        m_lastFailure = failure.Status();
        return static_cast<std::int32_t>(failure.Status());
    } catch (const std::exception& error) {
        m_lastError = fmt::format("An unexpected error occurred: {}.", error.what());
        return static_cast<std::int32_t>(PublishStatus::Internal);
    }
}

const std::string& PubDoc::Folder()
{
    try {
        if (!m_folder) {
            m_folder = std::make_unique<base::PrivateFolder>(m_options.workFolder);
        }
        return m_folder->Path();
    } catch (const base::FolderFailure& failure) {
        throw PublishFailure(failure.DiskFull() ? PublishStatus::DiskFull : PublishStatus::WorkFolderUnusable,
                             failure.what());
    }
}

void PubDoc::Note(const std::string& line) const
{
    if (m_options.observer.note) {
        m_options.observer.note(line);
    }
}

/// Whoever adds a page learns a status alone: what is wrong with its file, and where, is told beside it.
template <typename Action> auto PubDoc::TellingFailure(Action&& action) const
{
    try {
        return action();
    } catch (const PublishFailure& failure) {
        Note(failure.what());
        throw;
    }
}

std::string PubDoc::NewPsFileName()
{
    try {
        std::string name = fmt::format("{}/page-{}.ps", Folder(), ++m_namesGiven);
        // For a host that may know the system's own separator alone.
        std::ranges::replace(name, '/', static_cast<char>(std::filesystem::path::preferred_separator));
        return name;
    } catch (const PublishFailure& failure) {
        m_lastError = failure.what();
        throw HostError(failure.what());
    }
}

std::int32_t PubDoc::AddPsFile(const std::string& psPath, double width, double height, std::int32_t resolution,
                               std::int32_t /*flag*/, const std::string& jobOptionsPath)
{
    return WithStatus([&] {
        const std::size_t number = m_pages.size() + 1;
        CheckPostScriptFile(psPath, number);
        CheckPageSize(width, height, resolution, number);
        if (!m_jobOptions || m_jobOptions->first != jobOptionsPath) {
            TakeJobOptions(jobOptionsPath);
        }
        const PageSource page{psPath, width, height, resolution, number};
        if (m_options.refusesEarly) {
            TellingFailure([&] { m_pageMaker->CheckPage(page, m_jobOptions->second); });
        }
        m_pages.push_back({page, m_jobOptions->second, {}});
        return PublishStatus::Done;
    });
}

void PubDoc::TakeJobOptions(const std::string& path)
{
    const JobOptions read = TellingFailure([&] { return ReadJobOptionsFile(path); });
    m_jobOptions.emplace(path, read.text);
    m_linearized = m_linearized || read.optimize;
    m_archive = std::max(m_archive, read.archive);
    m_level = std::max(m_level.value_or(read.level), read.level);
}

std::string PubDoc::RemedyText()
{
    const bool mends = m_options.refusesEarly && m_lastFailure == PublishStatus::InterpreterMissing;
    return mends ? m_lastError : std::string();
}

/// The pages' job options have a say beside the caller: the highest version that one of them asks for holds.
PdfForm PubDoc::Form() const
{
    PdfForm form = m_options.form;
    form.linearized = form.linearized || m_linearized;
    form.level = m_level.value_or(form.level);
    form.archive = form.archive == Archive::None ? m_archive : form.archive;
    return form;
}

std::int32_t PubDoc::QueueMark(Mark mark, std::initializer_list<double> coordinates)
{
    return WithStatus([&] {
        if (m_pages.empty()) {
            throw PublishFailure(PublishStatus::NoPage, "A mark can't be added before the first page.");
        }
        // A failing status would end the walk that queues the marks, and lose those behind this one.
        const PageSource& page = m_pages.back().source;
        const double farthest = FarthestMark(page);
        if (std::ranges::all_of(coordinates, [&](double value) { return std::abs(value) <= farthest; })) {
            m_pages.back().marks.push_back(std::move(mark));
        } else {
            Note(fmt::format("Page {}: a mark far off the page is left out", m_pages.size()));
        }
        return PublishStatus::Done;
    });
}

void PubDoc::TellWhenOff(const std::string& mark, double x1, double y1, double x2, double y2)
{
    if (m_pages.empty()) {
        return;
    }
    const PageSource& page = m_pages.back().source;
    if (x2 > 0 && y2 > 0 && x1 < page.width && y1 < page.height) {
        return;
    }
    m_marksOff.push_back(mark);
    const double farthest = FarthestMark(page);
    if (std::ranges::all_of(std::array{x1, y1, x2, y2},
                            [&](double v) { return std::abs(v) <= farthest; })) // else told below
        Note(fmt::format("Page {}: {} lies off the page", m_pages.size(), mark));
}

std::int32_t PubDoc::AddTextStampMark(std::int32_t /*reserved*/, double x, double y, const std::string& text,
                                      const std::string& fontName, std::int32_t fontSize, std::int32_t color,
                                      std::int32_t justification)
{
    // No letter of the standard fonts is wider than its size, none goes further below its line than a third of it.
    const double width = fontSize * static_cast<double>(text.size());
    const double left = justification == 0 ? x : x - width, right = justification == 2 ? x : x + width;
    TellWhenOff(fmt::format("the stamp \"{}\"", text), left, y - fontSize / 3.0, right, y + fontSize);
    return QueueMark(TextStampMark{x, y, text, fontName, fontSize, color, justification}, {x, y});
}

std::int32_t PubDoc::AddSignatureFieldMark(std::int32_t /*reserved*/, double x1, double y1, double x2, double y2,
                                           const std::string& name, const std::string& label)
{
    TellWhenOff(fmt::format("the signature field \"{}\"", name), std::min(x1, x2), std::min(y1, y2), std::max(x1, x2),
                std::max(y1, y2));
    return QueueMark(SignatureFieldMark{x1, y1, x2, y2, name, label}, {x1, y1, x2, y2});
}

std::string PubDoc::ReasonAgainst(const std::string& filePath) const
{
    std::uint64_t bytes = 0;
    const std::string fault = ReadingFault(filePath, bytes);
    return fault.empty() && m_options.refuseAttachment ? m_options.refuseAttachment(filePath, bytes) : fault;
}

std::int32_t PubDoc::AddAttachmentMark(std::int32_t /*reserved*/, double x, double y, const std::string& filePath,
                                       bool& added)
{
    added = false;
    const std::string reason = m_pages.empty() ? std::string() : ReasonAgainst(filePath);
    if (!reason.empty()) {
        Note(fmt::format("Page {}: the file {} could not be attached: {}", m_pages.size(), filePath, reason));
        m_attachmentsLost.push_back(filePath);
        return static_cast<std::int32_t>(PublishStatus::Done);
    }
    TellWhenOff(fmt::format("the icon of the attached file {}", filePath), x, y, x + kAttachmentWidth,
                y + kAttachmentHeight);
    const std::int32_t status = QueueMark(AttachmentMark{x, y, filePath}, {x, y});
    added = status == static_cast<std::int32_t>(PublishStatus::Done);
    return status;
}

std::int32_t PubDoc::AddLinkMark(std::int32_t /*reserved*/, double x1, double y1, double x2, double y2,
                                 const std::string& url)
{
    return QueueMark(LinkMark{x1, y1, x2, y2, url}, {x1, y1, x2, y2});
}

std::int32_t PubDoc::AddPropertyMark(std::int32_t /*reserved*/, const std::string& name, const std::string& value)
{
    return QueueMark(PropertyMark{name, value}, {});
}

std::int32_t PubDoc::PendingMarkCount()
{
    return m_pages.empty() ? 0 : static_cast<std::int32_t>(m_pages.back().marks.size());
}

void PubDoc::DiscardPendingMarks()
{
    if (!m_pages.empty()) {
        m_pages.back().marks.clear();
    }
}

void PubDoc::SetDocInfo(const std::string& key, const std::string& value)
{
    m_info.Set(key, value);
}

void PubDoc::SetDocSummary(const std::string& title, const std::string& author, LocalDateTime creationDate,
                           LocalDateTime modificationDate)
{
    m_info.Set("Title", m_options.title.empty() ? title : m_options.title);
    m_info.Set("Author", author);
    m_info.SetDates(creationDate, modificationDate);
}

std::string PubDoc::PromptForPdfName(const std::string& defaultName, std::int32_t owner, const std::string& hostTitle)
{
    return AskPdfName(m_desktop, defaultName, owner, hostTitle);
}

std::int32_t PubDoc::SaveToPdf(const std::string& pdfPath, std::int32_t /*hostValue*/, bool openInViewer, bool deletePs,
                               std::int32_t /*reserved*/)
{
    return WithStatus([&] {
        if (m_pages.empty()) {
            throw PublishFailure(PublishStatus::NoPage, "There is no page to save. Plot a sheet first.");
        }
        const SaveRequest request{m_pages,
                                  m_info,
                                  pdfPath,
                                  Folder(),
                                  m_options.navigation,
                                  Form(),
                                  m_options.useOf,
                                  m_options.stampTexts,
                                  [this](const std::string& line) { Note(line); }};
        SaveReport report = SavePages(request, *m_pageMaker);
        DisposePostScript(request, deletePs);
        m_pages.clear();
        report.attachmentsLost.insert(report.attachmentsLost.begin(), m_attachmentsLost.begin(),
                                      m_attachmentsLost.end());
        m_attachmentsLost.clear();
        report.marksOff = std::exchange(m_marksOff, {});
        if (m_options.observer.saved) {
            m_options.observer.saved(report);
        }
        if (openInViewer && !m_desktop.OpenDocument(pdfPath)) {
            m_lastError = fmt::format("{} was saved, but there is no program to show it.", pdfPath);
            return PublishStatus::ViewerMissing;
        }
        return PublishStatus::Done;
    });
}

} // namespace sm::publisher
