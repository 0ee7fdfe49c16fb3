// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line asked for: one plain job a command.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sm::app {

enum class LayoutChoice { Auto, All, Active, Model };
/// Which of a drawing's attached files are embedded: all, or those in its folder and none without them.
enum class AttachmentChoice { All, RefuseOutside };

/// Of an encrypted PDF. Each may be "@FILE" on the command line, for the file's first line.
struct Passwords {
    std::string user, owner;
    friend bool operator==(const Passwords&, const Passwords&) = default;
};

/// What the PDF keeps to, for being kept a long time.
enum class PdfStandard { None, A2b, A3b };

enum class Tone { AsDrawn, Mono, Grey };

struct PlotScaleOption {
    double paper = 1, drawing = 1; ///< millimetres of paper for drawing units
    friend bool operator==(const PlotScaleOption&, const PlotScaleOption&) = default;
};

/// Laid over the page setup in force; nothing in an optional: as that has it.
struct PlotOptions {
    std::optional<std::string> paper{};
    std::optional<bool> landscape{};
    bool fit = false;
    std::optional<PlotScaleOption> scale{};
    bool center = false;
    std::optional<std::string> style{}; ///< a plot style table, or "none"
    Tone tone = Tone::AsDrawn;
    double penScale = 1;
    friend bool operator==(const PlotOptions&, const PlotOptions&) = default;
};

/// What the options of one run lay over the stored settings. Nothing in an optional: the stored setting holds.
struct ConvertOptions {
    std::optional<LayoutChoice> layouts;
    std::vector<std::string> layoutNames;        ///< names, patterns, ranges or numbers; empty: see layouts
    std::optional<std::int32_t> pageSetupSource; ///< see PageSetupSource
    std::optional<std::int32_t> lineQuality;     ///< see LineQuality
    std::optional<std::string> jobOptions;
    bool keepPs = false;
    bool open = false;
    bool asSet = false;
    bool pdfLayers = false;
    std::optional<AttachmentChoice> attachments{};
    bool optimize = false; ///< the PDF is linearised
    std::optional<Passwords> encryption{};
    PlotOptions plot{};
    std::optional<std::string> title{}; ///< of the document; nothing: the drawing's name
    PdfStandard standard = PdfStandard::None;
    bool contents = false; ///< pages in front that list the sheets
    friend bool operator==(const ConvertOptions&, const ConvertOptions&) = default;
};

/// The report on standard output: none, one object at the end, or a line for each drawing as it ends.
enum class ReportForm { None, Json, JsonLines };
/// How much is told on the terminal: failures alone, or also each sheet and the times.
enum class Talk { Quiet, Normal, Verbose };

struct ConvertJob {
    std::vector<std::string> drawings; ///< "-": standard input
    std::optional<std::string> output; ///< a file for one drawing, a folder for several
    ConvertOptions options;
    int workers = 0; ///< 0: as many as the machine has processors
    bool strict = false;
    ReportForm report = ReportForm::None;
    bool noClobber = false;                        ///< what has its PDF already is left out
    int seconds = 0;                               ///< that a drawing may take; 0: by its size
    int mebibytes = 0;                             ///< of memory, likewise
    std::optional<std::string> list{};             ///< a file that names drawings, "-": standard input
    bool update = false;                           ///< what has a newer, whole PDF is left out
    std::optional<std::string> log{}, logFolder{}; ///< in place of the user's log; a folder for one of each drawing
    Talk talk = Talk::Normal;
    friend bool operator==(const ConvertJob&, const ConvertJob&) = default;
};

struct LayoutsJob {
    std::string drawing;
    bool json = false;
    bool names = false; ///< these alone
    friend bool operator==(const LayoutsJob&, const LayoutsJob&) = default;
};

struct GetJob {
    std::string name;
    friend bool operator==(const GetJob&, const GetJob&) = default;
};

struct SetJob {
    std::string name, value;
    friend bool operator==(const SetJob&, const SetJob&) = default;
};

struct ListJob {
    std::string part; ///< only names that contain it; empty: all
    friend bool operator==(const ListJob&, const ListJob&) = default;
};

struct HelpJob {
    std::string topic; ///< a command or a setting; empty: the program
    friend bool operator==(const HelpJob&, const HelpJob&) = default;
};

struct ReportJob {
    std::vector<std::string> files;
    std::optional<std::string> output{}; ///< nothing, or "-": standard output
    ReportForm form = ReportForm::Json;
    std::optional<std::string> list{}; ///< a file that names the drawings that the reports are to tell of
    bool strict = false;
    std::optional<std::string> missing{}; ///< takes the names of those that they don't tell of
    friend bool operator==(const ReportJob&, const ReportJob&) = default;
};

struct LogJob {
    std::string log;   ///< by its number, path or name; empty: the last conversion's
    bool list = false; ///< all that are known
    friend bool operator==(const LogJob&, const LogJob&) = default;
};

struct DoctorJob {
    friend bool operator==(const DoctorJob&, const DoctorJob&) = default;
};

/// What is done with the stamps, attachments or signature fields of a drawing.
enum class RecordAction { List, Add, Change, Remove };

/// Drawing units, here and below.
struct DrawingPoint {
    double x = 0, y = 0;
    friend bool operator==(const DrawingPoint&, const DrawingPoint&) = default;
};

/// Two opposite corners, in any order.
struct DrawingBox {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    friend bool operator==(const DrawingBox&, const DrawingBox&) = default;
};

/// In the record jobs, nothing in an optional: a new entry takes its default, a changed one keeps what it has.
struct StampJob {
    std::string drawing;
    RecordAction action = RecordAction::Add;
    std::optional<std::string> text; ///< a number of the stamp list, or a text
    std::optional<std::string> font;
    std::optional<std::int32_t> size;          ///< points
    std::optional<std::int32_t> color;         ///< red in the low byte
    std::optional<std::int32_t> justification; ///< see kStampJustifications
    std::optional<std::string> layout;
    std::optional<DrawingPoint> at;
    friend bool operator==(const StampJob&, const StampJob&) = default;
};

struct AttachJob {
    std::string drawing;
    RecordAction action = RecordAction::List;
    std::string item;                ///< the file to attach; or an attachment by its number, path or file name
    std::optional<std::string> file; ///< what a changed attachment takes instead
    std::optional<std::string> layout;
    std::optional<DrawingPoint> at;
    friend bool operator==(const AttachJob&, const AttachJob&) = default;
};

struct SignJob {
    std::string drawing;
    RecordAction action = RecordAction::List;
    std::string item;                ///< the new field's name; or a field by its name or number
    std::optional<std::string> name; ///< what a changed field is called from now on
    std::optional<std::string> label;
    std::optional<std::string> layout;
    std::optional<DrawingBox> box;
    friend bool operator==(const SignJob&, const SignJob&) = default;
};

struct PublishJob {
    std::string output;
    std::vector<std::string> sheets; ///< a drawing, or a drawing, ":" and the name of a layout
    bool keepGoing = false;
    ConvertOptions options{}; ///< the layouts are those of the sheets
    bool strict = false;
    ReportForm report = ReportForm::None;
    Talk talk = Talk::Normal;
    int seconds = 0;                   ///< that all may take together; 0: by their size
    int mebibytes = 0;                 ///< of memory, likewise
    std::optional<std::string> log{};  ///< the log's file; nothing: the user's
    bool noClobber = false;            ///< a PDF that exists stays
    bool update = false;               ///< one that is whole and newer than all drawings does
    std::optional<std::string> list{}; ///< a file that names more sheets, a line each; "-": standard input
    int workers =
        0; ///< drawings in hand at a time, one being plotted, the others read; 0: as the machine has processors
    friend bool operator==(const PublishJob&, const PublishJob&) = default;
};

struct SettingsJob {
    std::optional<std::string> drawing; ///< nothing: the user is asked for one
    std::optional<std::string> layout;  ///< becomes the active one while the dialog is up
    friend bool operator==(const SettingsJob&, const SettingsJob&) = default;
};

struct PageSetupJob {
    std::optional<std::string> drawing;     ///< nothing: the user's global page setup
    bool show = false;                      ///< print it; no window, likewise below
    std::vector<std::string> assignments{}; ///< "NAME=VALUE"
    bool remove = false;
    friend bool operator==(const PageSetupJob&, const PageSetupJob&) = default;
};

using Job = std::variant<ConvertJob, LayoutsJob, GetJob, SetJob, ListJob, LogJob, HelpJob, DoctorJob, StampJob,
                         AttachJob, SignJob, PublishJob, ReportJob, SettingsJob, PageSetupJob>;

} // namespace sm::app
