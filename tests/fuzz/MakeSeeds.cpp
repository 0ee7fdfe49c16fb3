// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what a fuzzer begins with: small files that the tests' writers make and, from drawings that are given to it,
// inputs with a few objects of each type. What comes from drawings of other people is never committed.
//
//     seeds_dwg FOLDER [DWG...]
#include "drawing/Drawing.h"
#include "drawing/dwg/DwgFiles.h"
#include "dwg/read/ObjectIndex.h"
#include "dwg/recovery/ObjectSearch.h"
#include "fuzz/BuiltFile.h"
#include "fuzz/FuzzDwg.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace {

using namespace sm::drawing;
using namespace sm::drawing::dwg;
using namespace sm::drawing::dwg::testing;

class Folder {
public:
    explicit Folder(std::filesystem::path path) : m_path(std::move(path))
    {
        std::filesystem::create_directories(m_path);
    }
    void Write(const std::string& name, const std::string& bytes)
    {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        ++m_count;
    }
    [[nodiscard]] unsigned Count() const { return m_count; }

private:
    std::filesystem::path m_path;
    unsigned m_count = 0;
};

void WriteOwn(Folder& folder)
{
    for (const auto& [name, input] : OwnInputs())
        folder.Write(name, input);
}

/// The objects of one drawing as parts of an input.
class Cutter {
public:
    explicit Cutter(const std::string& file) : m_container(Container::Open(file, "seed.dwg", m_findings))
    {
        m_classes = ReadClasses(m_container);
        const ObjectIndex index(m_container, m_classes, m_findings);
        ObjectIndex copy = index;
        for (const IndexedObject& one : copy.All())
            m_byType[one.type].push_back(one);
    }

    void Write(Folder& folder, const std::string& name)
    {
        const auto release = static_cast<unsigned>(m_container.FileRelease());
        for (const auto& [type, list] : m_byType) {
            std::string input{'\2', static_cast<char>(release)};
            // Spaces and layers first; without a list of objects, all of them are searched.
            for (const std::uint32_t base : {48U, 49U, 50U, 51U})
                input += Parts(base, 2);
            input += PartBytes(Part::Map, "") + Parts(type, 4);
            folder.Write(name + "-" + std::to_string(type), input);
            if (release == 1) // R13 differs from R14 by its magic
                folder.Write(name + "-13-" + std::to_string(type), input.replace(1, 1, 1, '\0'));
        }
        const std::string start{'\2', static_cast<char>(release)};
        folder.Write(name + "-header", start + PartBytes(Part::Header, Inner(m_container.Header())) + Parts(49, 2));
        folder.Write(name + "-classes", start + PartBytes(Part::Classes, Inner(m_container.Classes())));
        if (const std::string data(m_container.DataStore()); !data.empty() && data.size() < 20'000)
            folder.Write(name + "-data", start + PartBytes(Part::Data, data) + Parts(38, 2) + Parts(49, 2));
    }

private:
    /// Between size and checksum; a size of eight bytes leaves four of them in front, which is as good.
    static std::string Inner(std::string_view section)
    {
        return std::string(section.substr(std::min<std::size_t>(4, section.size()))).substr(0, 20'000);
    }

    [[nodiscard]] bool IsTable(std::uint32_t type) const
    {
        const auto one = std::ranges::find(m_classes, type, &ObjectClass::number);
        return one != m_classes.end() && one->name == "ACAD_TABLE";
    }

    /// Small ones of that type, evenly over the drawing. Tables are never small.
    std::string Parts(std::uint32_t type, std::size_t most)
    {
        constexpr std::size_t kLargest = 1500, kLargestTable = 4500;
        const std::size_t largest = IsTable(type) ? kLargestTable : kLargest;
        if (IsTable(type))
            most = 1;
        std::string parts;
        const auto& list = m_byType[type];
        std::size_t taken = 0;
        for (std::size_t i = 0; i < list.size() && taken < most;
             i += type < 52 && type > 47 ? 1 : std::max<std::size_t>(1, list.size() / most)) {
            const Frame frame = ReadFrame(m_container.Objects(), list[i].offset, m_container.FileRelease());
            std::string content(m_container.Objects().substr(frame.first / 8, (frame.end - frame.first) / 8));
            if (content.size() > largest)
                continue;
            Renumber(content, type);
            const std::uint64_t links = frame.links <= frame.end ? frame.end - frame.links : 0;
            parts += PartBytes(Part::Object, Le16(static_cast<unsigned>(links)) + content);
            ++taken;
        }
        return parts;
    }

    /// Classes have the numbers of our own table in the input.
    void Renumber(std::string& content, std::uint32_t type) const
    {
        const auto one = std::ranges::find(m_classes, type, &ObjectClass::number);
        if (one == m_classes.end())
            return;
        const auto& names = ClassNames();
        const auto number = 500U + static_cast<unsigned>(std::ranges::find(names, one->name) - names.begin());
        const bool newer = m_container.FileRelease() >= Release::R2010;
        const auto first = static_cast<unsigned char>(content[0]) >> 6U;
        const unsigned value = newer && first == 1 ? number - 0x1F0 : number;
        const unsigned bytes = newer && first == 1 ? 1 : 2;
        if (!newer && first != 0)
            return;
        for (unsigned i = 0; i < bytes; ++i)
            PutByte(content, 2 + 8 * i, value >> (8 * i) & 0xFFU);
    }

    static void PutByte(std::string& content, unsigned bit, unsigned value)
    {
        for (unsigned i = 0; i < 8; ++i) {
            const unsigned at = bit + i;
            const auto mask = static_cast<unsigned char>(0x80U >> (at % 8));
            auto byte = static_cast<unsigned char>(content.at(at / 8));
            byte = (value >> (7 - i) & 1U) != 0 ? byte | mask : byte & static_cast<unsigned char>(~mask);
            content[at / 8] = static_cast<char>(byte);
        }
    }

    FindingList m_findings;
    Container m_container;
    std::vector<ObjectClass> m_classes;
    std::map<std::uint32_t, std::vector<IndexedObject>> m_byType;
};

void WriteFrom(Folder& folder, const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (bytes.size() < 6 || bytes.compare(0, 4, "AC10") != 0 || bytes.compare(0, 6, "AC1009") <= 0)
        return;
    try {
        Cutter(bytes).Write(folder, path.stem().string());
    } catch (const DrawingError& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

} // namespace

int main(int count, char** words)
{
    if (count < 2) {
        std::fprintf(stderr, "seeds_dwg FOLDER [DWG...]\n");
        return 2;
    }
    Folder folder(words[1]);
    WriteOwn(folder);
    for (int i = 2; i < count; ++i)
        WriteFrom(folder, words[i]);
    std::printf("%u seeds\n", folder.Count());
    return 0;
}
