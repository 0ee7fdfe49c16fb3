// SPDX-License-Identifier: GPL-3.0-or-later
#include "publisher/JobOptions.h"

#include "base/files/File.h"
#include "base/text/TextDecoding.h"
#include "joboptions/JobOptionsTable.h"
#include "joboptions/JobOptionsValue.h"
#include "pdf/PdfNumbers.h"
#include "pdf/PublishStatus.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace sm::publisher {

namespace {

using Kind = JobOptionsValue::Kind;

constexpr std::size_t kLargestFile = 1 << 20;
constexpr JobOptionsRule kLayersRule{"SheetmakerLayers", JobOptionsRule::Kind::Boolean};
constexpr JobOptionsRule kOptimizeRule{"Optimize", JobOptionsRule::Kind::Boolean};
constexpr JobOptionsRule kArchiveRule{"SheetmakerPdfA", JobOptionsRule::Kind::Choice, 0, 0, "2b 3b"};
/// Settings that ask for a document by a standard which this publisher doesn't make.
constexpr std::string_view kStandards[] = {"CheckCompliance", "PDFX1aCheck", "PDFX3Check", "PDFXCompliantPDFOnly",
                                           "PDFA"};

bool IsWholeWithin(const JobOptionsValue& value, const JobOptionsRule& rule)
{
    return value.kind == Kind::Number && value.number == std::trunc(value.number) && value.number >= rule.low &&
           value.number <= rule.high;
}

/// Checks values by their rules and writes them out clean.
class Checker {
public:
    explicit Checker(const JobOptionsScanner& scanner) : m_scanner(scanner) {}

    /// Empty when the setting is to be left out.
    std::string Clean(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        switch (rule.kind) {
        case JobOptionsRule::Kind::Boolean:
            return Boolean(rule, value);
        case JobOptionsRule::Kind::Integer:
        case JobOptionsRule::Kind::Real:
            return Number(rule, value);
        case JobOptionsRule::Kind::Choice:
            return Choice(rule, value);
        case JobOptionsRule::Kind::ImageDict:
            return ImageDict(rule, value);
        case JobOptionsRule::Kind::FontList:
            return FontList(rule, value);
        case JobOptionsRule::Kind::Samples:
            return Samples(rule, value);
        }
        return {};
    }

private:
    [[noreturn]] void Refuse(const JobOptionsRule& rule, const JobOptionsValue& value, const std::string& wanted) const
    {
        m_scanner.Fail(value.line, fmt::format("/{} must be {}", rule.name, wanted),
                       "Correct the value or choose other job options.");
    }

    std::string Boolean(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        if (value.kind != Kind::Boolean) {
            Refuse(rule, value, "true or false");
        }
        return value.boolean ? "true" : "false";
    }

    std::string Number(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        const bool whole = rule.kind == JobOptionsRule::Kind::Integer;
        const bool within = value.kind == Kind::Number && value.number >= rule.low && value.number <= rule.high;
        if (!within || (whole && !IsWholeWithin(value, rule))) {
            Refuse(rule, value,
                   fmt::format("a {} from {} to {}", whole ? "whole number" : "number", NumberText(rule.low),
                               NumberText(rule.high)));
        }
        return NumberText(value.number);
    }

    std::string Choice(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        std::string offered;
        std::string_view rest = rule.choices;
        while (!rest.empty()) {
            const std::string_view entry = rest.substr(0, rest.find(' '));
            rest.remove_prefix(std::min(entry.size() + 1, rest.size()));
            const std::string_view name = entry.substr(0, entry.find('='));
            if (value.kind == Kind::Name && value.text == name) {
                const std::string_view kept = name.size() == entry.size() ? name : entry.substr(name.size() + 1);
                return kept.empty() ? std::string() : fmt::format("/{}", kept);
            }
            offered += fmt::format("{}/{}", offered.empty() ? "" : ", ", name);
        }
        Refuse(rule, value, fmt::format("one of {}", offered));
    }

    std::string ImageDict(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        if (value.kind != Kind::Dictionary) {
            Refuse(rule, value, "a dictionary in << >>");
        }
        std::string text = "<<";
        for (std::size_t i = 0; i + 1 < value.items.size(); i += 2) {
            if (const auto* entry = FindRule(ImageDictRules(), value.items[i].text)) {
                text += fmt::format(" /{} {}", entry->name, Clean(*entry, value.items[i + 1]));
            }
        }
        return text + " >>";
    }

    std::string Samples(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        std::string text = "[";
        const bool right = value.kind == Kind::Array && (value.items.size() == 3 || value.items.size() == 4) &&
                           std::ranges::all_of(value.items, [&](const auto& v) { return IsWholeWithin(v, rule); });
        if (!right) {
            Refuse(rule, value, "an array of three or four whole numbers from 1 to 4");
        }
        for (const JobOptionsValue& item : value.items) {
            text += fmt::format("{}{}", text.size() > 1 ? " " : "", NumberText(item.number));
        }
        return text + "]";
    }

    std::string FontList(const JobOptionsRule& rule, const JobOptionsValue& value) const
    {
        const auto isFont = [](const JobOptionsValue& v) { return v.kind == Kind::Name || v.kind == Kind::Boolean; };
        if (value.kind != Kind::Array || !std::ranges::all_of(value.items, isFont)) {
            Refuse(rule, value, "an array of font names");
        }
        std::string text = "[";
        for (const JobOptionsValue& item : value.items) {
            if (item.kind == Kind::Name && !item.text.empty()) {
                text += fmt::format("{}/{}", text.size() > 1 ? " " : "", item.text);
            }
        }
        return text + "]";
    }

    const JobOptionsScanner& m_scanner;
};

/// Whether a setting asks for something: neither null, false, zero or /None, nor an array of nothing but these.
bool AsksForSomething(const JobOptionsValue& value)
{
    switch (value.kind) {
    case Kind::Boolean:
        return value.boolean;
    case Kind::Number:
        return value.number != 0;
    case Kind::Name:
        return value.text != "None";
    case Kind::Array:
        return std::ranges::any_of(value.items, AsksForSomething);
    case Kind::Null:
        return false;
    default:
        return true;
    }
}

/// A document that only says that it keeps to a standard is worse than none.
void RefuseStandard(const JobOptionsScanner& scanner, const std::string& name, const JobOptionsValue& value)
{
    if (std::ranges::find(kStandards, name) != std::end(kStandards) && AsksForSomething(value)) {
        scanner.Fail(value.line, fmt::format("/{} asks for a document by PDF/A or PDF/X, which isn't made", name),
                     "Take the setting out or choose other job options.");
    }
}

/// The settings kept so far; a later one of the same name takes the earlier one's place.
class Keeper {
public:
    void Add(const JobOptionsScanner& scanner, const JobOptionsValue& dictionary)
    {
        for (std::size_t i = 0; i + 1 < dictionary.items.size(); i += 2) {
            const std::string& name = dictionary.items[i].text;
            if (TakeOwn(Checker(scanner), name, dictionary.items[i + 1])) {
                continue;
            }
            RefuseStandard(scanner, name, dictionary.items[i + 1]);
            const JobOptionsRule* rule = FindRule(JobOptionsRules(), name);
            const std::string clean =
                rule != nullptr ? Checker(scanner).Clean(*rule, dictionary.items[i + 1]) : std::string();
            std::erase_if(m_kept, [&](const auto& kept) { return kept.first == name; });
            if (clean.empty()) {
                m_result.leftOut.push_back(name);
            } else {
                m_kept.emplace_back(name, clean);
            }
        }
    }

    void LeaveOutPageDevice() { m_result.leftOut.emplace_back("setpagedevice"); }

    JobOptions Take()
    {
        for (const auto& [name, value] : m_kept) {
            m_result.text += fmt::format("/{} {}\n", name, value);
            if (name == "CompatibilityLevel") {
                m_result.level = std::strtod(value.c_str(), nullptr);
            }
        }
        return std::move(m_result);
    }

private:
    /// Settings that the publisher or the plotter honours, not the interpreter.
    bool TakeOwn(const Checker& checker, const std::string& name, const JobOptionsValue& value)
    {
        if (name == kLayersRule.name) {
            m_result.layers = checker.Clean(kLayersRule, value) == "true";
        } else if (name == kOptimizeRule.name) {
            m_result.optimize = checker.Clean(kOptimizeRule, value) == "true";
        } else if (name == kArchiveRule.name) {
            m_result.archive = checker.Clean(kArchiveRule, value) == "/2b" ? Archive::A2b : Archive::A3b;
        } else {
            return false;
        }
        return true;
    }

    std::vector<std::pair<std::string, std::string>> m_kept;
    JobOptions m_result;
};

[[noreturn]] void FailFile(const std::string& path, const std::string& what)
{
    throw PublishFailure(
        PublishStatus::JobOptionsUnusable,
        fmt::format("The job options file {} {}. Choose other job options or put the file in place.", path, what));
}

/// One byte more than the file should have, or than the most that is read.
std::string ReadWhole(base::File& file, const std::string& path)
{
    std::string bytes(std::min<std::uint64_t>(file.Facts().stamp.size, kLargestFile) + 1, '\0');
    try {
        bytes.resize(file.Read(bytes.data(), bytes.size()));
    } catch (const std::system_error& error) {
        FailFile(path, fmt::format("can't be read: {}", error.code().message()));
    }
    return bytes;
}

} // namespace

JobOptions ParseJobOptions(std::string_view bytes, const std::string& path)
{
    const std::string text = base::DecodeText(bytes);
    JobOptionsScanner scanner(text, path);
    Keeper keeper;
    bool any = false;
    while (!scanner.AtEnd()) {
        const JobOptionsValue dictionary = scanner.NextValue();
        if (dictionary.kind != Kind::Dictionary) {
            scanner.Fail(dictionary.line, "\"<<\" is expected");
        }
        const std::string word = scanner.NextWord();
        if (word == "setdistillerparams") {
            keeper.Add(scanner, dictionary);
            any = true;
        } else if (word == "setpagedevice") {
            keeper.LeaveOutPageDevice();
        } else {
            scanner.Fail(scanner.Line(), "\"setdistillerparams\" is missing after the \">>\"");
        }
    }
    if (!any) {
        scanner.Fail(scanner.Line(), "the file holds no job options");
    }
    return keeper.Take();
}

JobOptions ReadJobOptionsFile(const std::string& path)
{
    if (path.empty()) {
        return {};
    }
    std::error_code error;
    base::File file = base::File::Open(path, error);
    if (!file.IsOpen()) {
        FailFile(path, error == std::errc::no_such_file_or_directory
                           ? "does not exist"
                           : fmt::format("can't be opened: {}", error.message()));
    }
    if (file.Facts().kind != base::FileKind::File) {
        FailFile(path, "is not an ordinary file");
    }
    const std::string bytes = ReadWhole(file, path);
    if (bytes.size() > kLargestFile) {
        FailFile(path, "is larger than 1 MB");
    }
    return ParseJobOptions(bytes, path);
}

bool AsksForLayers(const std::string& path) noexcept
{
    try {
        return ReadJobOptionsFile(path).layers;
    } catch (...) {
        return false;
    }
}

} // namespace sm::publisher
