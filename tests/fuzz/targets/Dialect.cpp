// SPDX-License-Identifier: GPL-3.0-or-later
// Our own reader of our own pages: any head, set-up and body in a frame that is right.
#include "fuzz/Target.h"
#include "fuzz/targets/Pages.h"
#include "fuzz/targets/SmallDrawings.h"
#include "fuzz/targets/Targets.h"
#include "prologue/Procedures.h"

#include <stdexcept>

namespace sm::fuzz {

namespace {

/// Between the parts of an input.
constexpr char kMark = '\x1E';
constexpr std::string_view kProlog = "%%BeginProlog\n", kSetup = "%%EndProlog\n%%BeginSetup\n",
                           kPage = "%%EndSetup\n%%Page: 1 1\n%%ViewingOrientation: ",
                           kTail = "\n%%PageTrailer\nshowpage\n%%Trailer\n%%EOF\n";

std::string_view Take(std::string_view& input)
{
    const std::size_t end = input.find(kMark);
    const std::string_view part = input.substr(0, end);
    input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
    return part;
}

std::string Framed(std::string_view input)
{
    const std::string_view head = Take(input), setup = Take(input), body = Take(input);
    std::string file = "%!PS-Adobe-3.0\n%%Title: (x)\n";
    file.append(head).append(kProlog).append(dialect::kProcedures).append(kSetup);
    file.append("<</PageSize[595 842]>>setpagedevice\n").append(setup).append(kPage).append("1 0 0 1\n");
    return file.append(body).append(kTail);
}

/// Nothing when the page isn't as this target frames it.
std::string PartsOf(std::string_view page)
{
    const std::size_t head = page.find("\n%%", 20), prolog = page.find(kProlog), setup = page.find(kSetup),
                      body = page.find(kPage);
    if (head == std::string_view::npos || !page.ends_with(kTail) || body == std::string_view::npos)
        return "";
    const std::size_t titleEnd = page.find('\n', page.find("%%Title: ")) + 1;
    const std::size_t setupBegin = page.find('\n', setup + kSetup.size()) + 1;
    const std::size_t bodyBegin = page.find('\n', body + kPage.size()) + 1;
    std::string parts(page.substr(titleEnd, prolog - titleEnd));
    parts += kMark;
    parts += page.substr(setupBegin, body - setupBegin);
    parts += kMark;
    parts += page.substr(bodyBegin, page.size() - kTail.size() - bodyBegin);
    return parts;
}

} // namespace

/// Three parts: comments of the head, set-up, body. Without marks all is a body. A whole file begins with "%!".
void FuzzDialect(std::string_view input)
{
    std::string file;
    if (input.starts_with("%!"))
        file = input;
    else if (input.find(kMark) == std::string_view::npos)
        file = Framed(std::string{kMark} + kMark + std::string(input));
    else
        file = Framed(input);
    if (auto page = publisher::ReadDialectPage(file))
        (void)MakePage(std::move(*page));
}

Inputs DialectSeeds()
{
    Inputs seeds{"1 0 0 RG\n10 20 m\n30 -40 l\nS\n",
                 "q 1 0 0 1 .5 -.5 cm 2 w 1 J 0 j 10 M 0 G .5 g 0 0 1 rg 1 2 m 1 2 3 4 5 6 c h f f* W n W* n Q\n",
                 "BT\n/F1 8 Tf\n1 2 Td\n(A B) Tj\nET\nS\n",
                 "BT /F1 1 Tf 8 0 0 8 1 2 Tm [(ab)-20<43> -3.5 <44>] TJ ET\n",
                 "q BT 3 Tr /F12 1 Tf 1 2 Td <> Tj ET Q\n",
                 "/OC /L3 BDC\n1 2 m S\nEMC\n/A128 gs\n5 5 9 9 re\nf\n/I1 Do\n"};
    constexpr std::size_t kLongest = 4000;
    const DrawingPieces layers{"0\nLINE\n8\nA\n62\n1\n370\n50\n10\n1\n20\n2\n11\n30\n21\n40\n440\n33554559\n", "", "",
                               ""};
    const DrawingPieces text{"0\nTEXT\n10\n5\n20\n5\n40\n5\n1\nA\n", "", "", ""};
    for (const DrawingPieces& pieces : {layers, text}) {
        for (const std::string& page : PlotPages(DrawingOf(pieces), true, 1))
            if (std::string parts = PartsOf(page); !parts.empty() && parts.size() < kLongest)
                seeds.push_back(std::move(parts));
    }
    return seeds;
}

} // namespace sm::fuzz
