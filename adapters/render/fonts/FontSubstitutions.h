// SPDX-License-Identifier: GPL-3.0-or-later
// Which fonts stood in for others, and for whom.
#pragma once

#include <string>
#include <vector>

namespace sm::render {

class FontSubstitutions {
public:
    /// `what`: "txt.shx drawn with standard.lff"; `who`: "style NOTES".
    void Note(const std::string& who, const std::string& what);
    /// "txt.shx drawn with standard.lff (style NOTES, text)": one line for each `what`, in the order of their coming;
    /// of a long list of users the first few are named, the others counted.
    [[nodiscard]] std::vector<std::string> Lines() const;

private:
    struct Substitution {
        std::string what;
        std::vector<std::string> who;
    };
    std::vector<Substitution> m_list;
};

} // namespace sm::render
