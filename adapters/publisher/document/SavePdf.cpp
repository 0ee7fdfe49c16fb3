// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/SavePdf.h"

#include "base/files/FileFacts.h"
#include "base/files/MappedFile.h"
#include "base/files/Paths.h"
#include "document/PdfAssembly.h"
#include "document/SheetTitle.h"
#include "pages/GhostscriptDriver.h"
#include "pdf/TargetFile.h"

#include <chrono>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <tuple>

namespace sm::publisher {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Pages that one run of the page maker can make together.
struct Group {
    std::string jobOptions;
    std::int32_t resolution = 0;
    std::vector<PageSource> pages;
};

/// Where a page maker may make a folder of its files, which goes with this object.
class RunFolder {
public:
    explicit RunFolder(fs::path path) : m_path(std::move(path)) {}
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;
    ~RunFolder()
    {
        std::error_code error;
        fs::remove_all(m_path, error);
    }
    [[nodiscard]] std::string Path() const { return base::ToText(m_path); }

private:
    fs::path m_path;
};

/// What the target's file is to the document: one of its inputs, in words; empty when it is none.
std::string InputAt(const SaveRequest& request)
{
    for (const DocumentPage& page : request.pages) {
        if (base::IsSameFile(page.source.psPath, request.pdfPath)) {
            return fmt::format("the PostScript file of page {}", page.source.number);
        }
        for (const Mark& mark : page.marks) {
            const auto* attachment = std::get_if<AttachmentMark>(&mark);
            if (attachment != nullptr && base::IsSameFile(attachment->filePath, request.pdfPath)) {
                return fmt::format("the attached file {}", attachment->filePath);
            }
        }
    }
    return request.useOf ? request.useOf(request.pdfPath) : std::string();
}

void RefuseInputAsTarget(const SaveRequest& request)
{
    const std::string input = InputAt(request);
    if (!input.empty()) {
        throw PublishFailure(PublishStatus::TargetIsInput,
                             fmt::format("{} can't be saved: it is {}. Choose another name.", request.pdfPath, input));
    }
}

void RefuseCutInput()
{
    try {
        base::MappedFile::RequireWhole();
    } catch (const std::runtime_error& cut) {
        throw PublishFailure(PublishStatus::Internal, cut.what());
    }
}

void RefuseEncryptedArchive(const PdfForm& form)
{
    if (form.archive != Archive::None && form.encryption) {
        throw PublishFailure(PublishStatus::ArchiveRefused,
                             "A document that is encrypted can't keep to PDF/A. Leave out the passwords or PDF/A.");
    }
}

/// What an interpreter writes isn't looked into.
void RequireOwnPages(const MadePages& made, const Group& group, Archive archive)
{
    if (archive != Archive::None && !made.document) {
        throw PublishFailure(PublishStatus::ArchiveRefused,
                             fmt::format("Page {} was made by the PostScript interpreter, whose pages are not kept to "
                                         "PDF/A. Choose job options that leave colours and pictures as they are.",
                                         group.pages.front().number));
    }
}

Group& GroupFor(const DocumentPage& page, std::vector<Group>& groups)
{
    const std::int32_t resolution = UsableResolution(page.source.width, page.source.height, page.source.resolution);
    for (Group& group : groups) {
        if (group.resolution == resolution && group.jobOptions == page.jobOptions) {
            return group;
        }
    }
    return groups.emplace_back(Group{page.jobOptions, resolution, {}});
}

std::vector<Group> GroupPages(const std::vector<DocumentPage>& pages, std::vector<PagePlace>& places)
{
    std::vector<Group> groups;
    for (const DocumentPage& page : pages) {
        Group& group = GroupFor(page, groups);
        places.push_back({static_cast<std::size_t>(&group - groups.data()), group.pages.size(), page.source.width,
                          page.source.height, ReadSheetTitle(page.source.psPath, page.source.number), &page.marks});
        group.pages.push_back(page.source);
    }
    return groups;
}

std::chrono::microseconds Since(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
}

bool LiesIn(const std::string& path, const std::string& folder)
{
    return base::ToPath(path).parent_path() == base::ToPath(folder);
}

void CopyFile(const std::string& from, const std::string& to)
{
    std::ifstream source(base::ToPath(from), std::ios::binary);
    TargetFile target(to);
    std::string block(1 << 18, '\0');
    while (source.read(block.data(), static_cast<std::streamsize>(block.size())), source.gcount() > 0) {
        target.Write(block.data(), static_cast<std::size_t>(source.gcount()));
    }
    if (source.bad()) {
        throw PublishFailure(PublishStatus::PostScriptMissing, fmt::format("{} could not be read to its end", from));
    }
    target.Commit();
}

void MoveFile(const std::string& from, const std::string& to)
{
    std::error_code error;
    fs::rename(base::ToPath(from), base::ToPath(to), error);
    if (error) {
        CopyFile(from, to); // another file system
        fs::remove(base::ToPath(from), error);
    }
}

} // namespace

SaveReport SavePages(const SaveRequest& request, IPageMaker& pageMaker)
{
    RefuseInputAsTarget(request);
    RefuseEncryptedArchive(request.form);
    TargetFile(request.pdfPath); // tells at once when the target can't be written
    const auto start = Clock::now();
    Assembly assembly{{}, {}, request.info, request.navigation, request.form, request.stampTexts, request.note};
    std::vector<std::unique_ptr<RunFolder>> folders;
    for (const Group& group : GroupPages(request.pages, assembly.pages)) {
        folders.push_back(std::make_unique<RunFolder>(base::ToPath(request.workFolder) /
                                                      base::ToPath(fmt::format("run-{}", folders.size() + 1))));
        assembly.sources.push_back(pageMaker.MakePages(group.pages, group.jobOptions, folders.back()->Path()));
        RequireOwnPages(assembly.sources.back(), group, request.form.archive);
    }
    SaveReport report;
    report.makingPages = Since(start);
    const auto assembling = Clock::now();
    TargetFile target(request.pdfPath);
    const MarkTally marks = AssemblePdf(assembly, target);
    RefuseCutInput();
    target.Commit();
    report.assembling = Since(assembling);
    report.pdfPath = request.pdfPath;
    report.pages = marks.contentsPages + request.pages.size();
    report.interpreterRuns = assembly.sources.size();
    report.marksDrawn = marks.drawn;
    report.marksNotDrawn = marks.notDrawn;
    report.embedded = marks.embedded;
    report.attachmentsLost = marks.lost;
    report.pdfBytes = target.BytesWritten();
    return report;
}

void DisposePostScript(const SaveRequest& request, bool deletePs)
{
    const fs::path pdf = base::ToPath(request.pdfPath);
    for (const DocumentPage& page : request.pages) {
        const std::string& path = page.source.psPath;
        const std::string kept = base::ToText(
            pdf.parent_path() / base::ToPath(fmt::format("{}-{}.ps", base::ToText(pdf.stem()), page.source.number)));
        try {
            if (deletePs) {
                fs::remove(base::ToPath(path));
            } else if (LiesIn(path, request.workFolder)) {
                MoveFile(path, kept);
                request.note(fmt::format("The PostScript of page {} was kept as {}", page.source.number, kept));
            }
        } catch (const std::exception& error) {
            request.note(fmt::format("The PostScript file {} of page {} could not be {}: {}", path, page.source.number,
                                     deletePs ? "deleted" : "kept", error.what()));
        }
    }
}

} // namespace sm::publisher
