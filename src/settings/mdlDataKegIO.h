// SPDX-License-Identifier: GPL-3.0-or-later
// The records that the plug-in keeps in each drawing, and the settings bundle built from them. Nothing here throws.
#pragma once

#include "plugin/CallContext.h"
#include "ports/Variant.h"
#include "settings/DataKeg.h"

#include <optional>
#include <string>
#include <vector>

namespace sm {

class IAcadLayout;

/// A record's values: position 0 the application name, then the values. Empty when nothing was stored and
/// `expectedCount` is 0, or after a host error. With `expectedCount` above 0 a missing record, or one of another
/// length, comes back as positions 0..expectedCount, all empty. `failed`, when given, tells whether a host error ended
/// the read.
std::vector<std::string> GetDrawingData(CallContext& context, const std::string& recordName, std::int32_t expectedCount,
                                        IAcadDocument& document, bool* failed = nullptr);
/// Replaces the record. `values` holds the values from position 1 on in order; numbers stay numbers. Every host error
/// is ignored: the write is then lost.
void SetDrawingData(CallContext& context, const std::string& recordName, const std::vector<AcadVariant>& values,
                    IAcadDocument& document);

// The records. A reader that meets a host error finds what an absent record holds, and a writer's record is then lost;
// all report success: a record must not keep a conversion from going on.

/// A PageSetupSource; other numbers come back as stored.
std::int32_t ReadPlotSelection(CallContext& context, IAcadDocument& document);
bool WritePlotSelection(CallContext& context, IAcadDocument& document, std::int32_t selection);

/// How a read of the "Plots" record went.
enum class CustomPageSetup { Read, Defaults, HostError };
/// Read: as stored. Defaults: no record, or one of the wrong length; `record` then holds the defaults. HostError:
/// `record` is unchanged.
CustomPageSetup ReadCustomPageSetup(CallContext& context, IAcadDocument& document, PageSetupRecord& record);
bool WriteCustomPageSetup(CallContext& context, IAcadDocument& document, const PageSetupRecord& record);

/// The global page setup of the registry. The read always succeeds.
PageSetupRecord ReadGlobalPageSetup(Surroundings& surroundings);
void WriteGlobalPageSetup(Surroundings& surroundings, const PageSetupRecord& record);

/// A layout's own plot settings, every field of the record, `ConfigName` and paper size included. False when the
/// layout's configuration can't be read; `record` is then unchanged.
bool ReadLayoutPageSetup(CallContext& context, IAcadLayout& layout, PageSetupRecord& record);

/// An empty value takes its default, "0" doesn't.
bool ReadStamp(CallContext& context, IAcadDocument& document, StampSettings& stamp);
bool WriteStamp(CallContext& context, IAcadDocument& document, const StampSettings& stamp);
/// A trailing entry that is cut short is left out, here and below.
bool ReadAttachments(CallContext& context, IAcadDocument& document, std::vector<AttachmentEntry>& attachments);
bool WriteAttachments(CallContext& context, IAcadDocument& document, const std::vector<AttachmentEntry>& attachments);
bool ReadSignatureFields(CallContext& context, IAcadDocument& document, std::vector<SignatureFieldEntry>& fields);
bool WriteSignatureFields(CallContext& context, IAcadDocument& document,
                          const std::vector<SignatureFieldEntry>& fields);

/// The bundle for the annotation pass: the active layout, "Stamp", "Attachs" and "DigSigs"; false when it can't be
/// made, and `keg` is then unchanged.
bool LoadForConversion(CallContext& context, IAcadDocument& document, DataKeg& keg);
/// The bundle for the settings dialog: 0 loaded, -2 the layout's plot settings can't be read, -1 any other failure.
/// "DigSigs" is left out. `keg` changes only when loaded.
std::int32_t LoadForDialog(CallContext& context, IAcadDocument& document, DataKeg& keg);
/// Writes the general settings, the stamp list, then "PltSel", "Plots", "Stamp", "Attachs", "DigSigs" of the first
/// layout entry; false when there is none.
bool SaveFromDialog(CallContext& context, const DataKeg& keg, IAcadDocument& document);

/// "None" and the style tables that the host offers for the layout; "None" alone when they can't be listed.
std::vector<std::string> PlotStyleNames(CallContext& context, IAcadLayout& layout);

/// The value of the host's "LOGINNAME"; empty when it can't be read.
std::string LoginName(CallContext& context, IAcadDocument& document);

} // namespace sm
