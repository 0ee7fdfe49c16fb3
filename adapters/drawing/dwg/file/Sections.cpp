// SPDX-License-Identifier: GPL-3.0-or-later
// R13 to R2000: the head of the file lists where its sections lie.
#include "dwg/file/Bytes.h"
#include "dwg/file/Checksums.h"
#include "dwg/file/ContainerBuilder.h"

namespace sm::drawing::dwg {

namespace {

constexpr std::uint64_t kCountAt = 0x15, kFirstRecord = 0x19, kRecordSize = 9;
/// Six are the most that any program writes.
constexpr std::uint32_t kMostRecords = 16;

/// Numbers of sections in their records.
constexpr std::uint8_t kHeader = 0, kClasses = 1, kMap = 2, kTemplate = 4;

void PutSection(ContainerBuilder& builder, std::uint8_t number, std::string_view bytes)
{
    if (number == kHeader)
        builder.Put(Stream::Header, bytes);
    else if (number == kClasses)
        builder.Put(Stream::Classes, bytes);
    else if (number == kMap)
        builder.Put(Stream::Map, bytes);
    else if (number == kTemplate)
        builder.Put(Stream::Template, bytes);
}

} // namespace

void OpenSections(ContainerBuilder& builder)
{
    const std::string_view file = builder.File();
    if (file.size() < kFirstRecord + kRecordSize)
        builder.Refuse("the file is cut off in its head; save the drawing again");
    builder.Put(Stream::Objects, file);
    const auto count = LoadAt<std::uint32_t>(file, kCountAt);
    if (count > kMostRecords) {
        builder.Tell(Damage::HeadDamaged);
        return;
    }
    const std::uint64_t end = kFirstRecord + kRecordSize * count;
    for (std::uint64_t at = kFirstRecord; at < end; at += kRecordSize)
        PutSection(builder, LoadAt<std::uint8_t>(file, at),
                   SliceOf(file, LoadAt<std::uint32_t>(file, at + 1), LoadAt<std::uint32_t>(file, at + 5)));
    if (Crc16(kCrcSeed, file.substr(0, end)) != LoadAt<std::uint16_t>(file, end))
        builder.TellChecksum();
}

} // namespace sm::drawing::dwg
