// SPDX-License-Identifier: GPL-3.0-or-later
// Reader of job options files (".joboptions"): settings for making PDF pages from PostScript, in PostScript notation.
//
// Grammar: ( "<<" (/Name value)* ">>" ("setdistillerparams" | "setpagedevice") )*  with "%" comments. Values are
// true, false, null, numbers, names, (strings), <hex strings>, [arrays] and nested << >>. Nothing is executed.
#pragma once

#include "publisher/Archive.h"

#include <string>
#include <string_view>
#include <vector>

namespace sm::publisher {

struct JobOptions {
    /// The settings that are kept, as one clean line per setting for `setdistillerparams`; empty when none are.
    std::string text;
    /// Names of settings that were left out: unknown ones, and those that would spoil the pages' size or order.
    std::vector<std::string> leftOut;
    /// A setting of our own, /SheetmakerLayers true: the drawing's layers become layers of the PDF. Whoever plots the
    /// pages asks for it; it isn't part of `text`.
    bool layers = false;
    /// /Optimize: the document is linearised. It isn't part of `text` either.
    bool optimize = false;
    /// /CompatibilityLevel: the version of PDF.
    double level = 1.7;
    /// Another setting of our own, /SheetmakerPdfA /2b or /3b: the document keeps to that standard.
    Archive archive = Archive::None;
};

/// Reads settings from the bytes of a file. Throws PublishFailure(JobOptionsUnusable) whose text names `path`, the
/// line and the remedy.
JobOptions ParseJobOptions(std::string_view bytes, const std::string& path);

/// Reads the file at `path`; an empty path gives no settings. Throws as above, also when the file is missing,
/// unreadable, a folder, or larger than 1 MB.
JobOptions ReadJobOptionsFile(const std::string& path);

/// The file asks for layers; false also for a file that can't be used, which is told when its pages are added.
bool AsksForLayers(const std::string& path) noexcept;

} // namespace sm::publisher
