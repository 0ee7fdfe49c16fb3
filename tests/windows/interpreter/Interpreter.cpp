// SPDX-License-Identifier: GPL-3.0-or-later
// Stands for the PostScript interpreter, which no machine of the tests has for Windows: is called as that is, says what
// the driver program would have it say, and makes one page for each that the driver names, of the size that it names.
// What the pages' own files draw is not looked at.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

struct Page {
    std::string file, width, height;
};

/// Between `begin` and `end`, from `at` on; moves `at` behind it, to npos when there is none.
std::string Between(const std::string& text, const std::string& begin, const std::string& end, std::size_t& at)
{
    const auto from = text.find(begin, at);
    const auto to = from == std::string::npos ? from : text.find(end, from + begin.size());
    at = to == std::string::npos ? to : to + end.size();
    return to == std::string::npos ? "" : text.substr(from + begin.size(), to - from - begin.size());
}

/// The lines "(1.ps) 595 842 600 SmPage".
std::vector<Page> PagesOf(const std::string& driver)
{
    std::vector<Page> pages;
    for (std::size_t at = driver.find("\n(1.ps)"); at != std::string::npos;) {
        const std::string file = Between(driver, "\n(", ") ", at);
        if (at == std::string::npos)
            break;
        std::size_t word = at;
        const std::string width = driver.substr(word, driver.find(' ', word) - word);
        word += width.size() + 1;
        pages.push_back({file, width, driver.substr(word, driver.find(' ', word) - word)});
        at = driver.find('\n', word);
    }
    return pages;
}

std::string Pdf(const std::vector<Page>& pages)
{
    std::string pdf = "%PDF-1.4\n", kids;
    std::vector<std::size_t> places;
    const auto add = [&](const std::string& object) {
        places.push_back(pdf.size());
        pdf += std::to_string(places.size()) + " 0 obj\n" + object + "\nendobj\n";
    };
    for (std::size_t i = 0; i < pages.size(); ++i)
        kids += std::to_string(4 + i) + " 0 R ";
    const std::string body = "BT /F 24 Tf 72 72 Td (interpreted) Tj ET";
    add("<</Type/Catalog/Pages 2 0 R>>");
    add("<</Type/Pages/Count " + std::to_string(pages.size()) + "/Kids[" + kids + "]>>");
    add("<</Length " + std::to_string(body.size()) + ">>\nstream\n" + body + "\nendstream");
    for (const Page& page : pages)
        add("<</Type/Page/Parent 2 0 R/Contents 3 0 R/MediaBox[0 0 " + page.width + " " + page.height +
            "]/Resources<</Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>>>>>");
    const std::size_t table = pdf.size();
    pdf += "xref\n0 " + std::to_string(places.size() + 1) + "\n0000000000 65535 f \n";
    for (const std::size_t place : places) {
        char line[24];
        std::snprintf(line, sizeof line, "%010u 00000 n \n", static_cast<unsigned>(place));
        pdf += line;
    }
    return pdf + "trailer\n<</Size " + std::to_string(places.size() + 1) + "/Root 1 0 R>>\nstartxref\n" +
           std::to_string(table) + "\n%%EOF\n";
}

} // namespace

int main(int count, char** arguments)
{
    const std::string input = arguments[count - 1];
    if (input == "--version") {
        std::puts("10.00.0");
        return 0;
    }
    std::ifstream file(input, std::ios::binary);
    const std::string driver(std::istreambuf_iterator<char>(file), {});
    std::size_t at = 0;
    const std::string nonce = Between(driver, "/SmSay { (\\n", " )", at);
    const std::vector<Page> pages = PagesOf(driver);
    for (const Page& page : pages) {
        std::string first;
        std::getline(std::ifstream(page.file), first);
        if (first.rfind("%!PS", 0) != 0)
            return 1;
        std::printf("\n%s page 1 \n", nonce.c_str());
    }
    std::ofstream("out.pdf", std::ios::binary) << Pdf(pages);
    return pages.empty() ? 1 : 0;
}
