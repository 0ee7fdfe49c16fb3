#include "publisher/DialectPage.h"

#include <array>
#include <charconv>

namespace sm::publisher {

namespace {

struct Operator {
    std::string_view name;
    std::int32_t operands;
};

constexpr std::array kOperators{
    Operator{"m", 2},  Operator{"l", 2},  Operator{"c", 6},  Operator{"h", 0},  Operator{"S", 0},  Operator{"f", 0},
    Operator{"f*", 0}, Operator{"q", 0},  Operator{"Q", 0},  Operator{"W", 0},  Operator{"W*", 0}, Operator{"n", 0},
    Operator{"cm", 6}, Operator{"w", 1},  Operator{"J", 1},  Operator{"j", 1},  Operator{"M", 1},  Operator{"g", 1},
    Operator{"G", 1},  Operator{"rg", 3}, Operator{"RG", 3}, Operator{"BT", 0}, Operator{"ET", 0}, Operator{"Tr", 1},
    Operator{"Tf", 2}, Operator{"Tm", 6}, Operator{"Tj", 1}, Operator{"TJ", 1}, Operator{"Do", 1}};

bool IsBlank(char c)
{
    return c == ' ' || c == '\n';
}

bool IsNumberPart(char c)
{
    return (c >= '0' && c <= '9') || c == '.' || c == '-';
}

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '*';
}

/// Walks the tokens of a body and copies it with its text blocks wrapped.
class BodyReader {
public:
    BodyReader(std::string_view body, std::size_t pictures) : m_body(body), m_pictures(pictures)
    {
        m_out.reserve(body.size() + body.size() / 64 + 64);
    }

    bool Read()
    {
        while (m_at < m_body.size()) {
            if (IsBlank(m_body[m_at])) {
                ++m_at;
            } else if (!ReadToken()) {
                return false;
            }
        }
        m_out.append(m_body.substr(m_copied));
        return m_operands == 0 && m_depth == 0 && !m_inText;
    }
    std::string Take() { return std::move(m_out); }

private:
    bool ReadToken()
    {
        const char c = m_body[m_at];
        if (IsNumberPart(c)) {
            Skip(IsNumberPart);
            ++m_operands;
            return true;
        }
        if (IsLetter(c)) {
            return ReadOperator();
        }
        ++m_operands;
        return c == '/' ? ReadName() : c == '<' ? ReadString() : c == '[' && ReadArray();
    }

    template <class Test> void Skip(Test test)
    {
        while (m_at < m_body.size() && test(m_body[m_at])) {
            ++m_at;
        }
    }

    bool ReadOperator()
    {
        const std::size_t begin = m_at;
        Skip(IsLetter);
        const std::string_view name = m_body.substr(begin, m_at - begin);
        for (const Operator& known : kOperators) {
            if (known.name == name) {
                const bool right = known.operands == m_operands && m_namesPicture == (name == "Do");
                m_operands = 0;
                m_namesPicture = false;
                return right && Nest(name, begin);
            }
        }
        return false;
    }

    bool Nest(std::string_view name, std::size_t begin)
    {
        if (name == "q") {
            ++m_depth;
        } else if (name == "Q") {
            return --m_depth >= 0;
        } else if (name == "BT" || name == "ET") {
            if (m_inText == (name == "BT")) {
                return false;
            }
            m_inText = !m_inText;
            m_out.append(m_body.substr(m_copied, begin - m_copied)).append(m_inText ? "q BT" : "ET Q");
            m_copied = m_at;
        }
        return true;
    }

    /// "/F12", or "/I3" for one of the page's pictures.
    bool ReadName()
    {
        const char kind = m_at + 1 < m_body.size() ? m_body[m_at + 1] : ' ';
        if (kind != 'F' && kind != 'I') {
            return false;
        }
        m_at += 2;
        const std::size_t begin = m_at;
        Skip([](char c) { return c >= '0' && c <= '9'; });
        if (m_at == begin || m_at - begin >= 6) {
            return false;
        }
        std::size_t number = 0;
        std::from_chars(m_body.data() + begin, m_body.data() + m_at, number);
        m_namesPicture = kind == 'I';
        return kind == 'F' || (m_operands == 1 && number > 0 && number <= m_pictures && m_body[begin] != '0');
    }

    bool ReadString()
    {
        ++m_at;
        Skip(IsHexDigit);
        return m_at < m_body.size() && m_body[m_at++] == '>';
    }

    /// Strings and numbers, no array inside.
    bool ReadArray()
    {
        for (++m_at; m_at < m_body.size();) {
            const char c = m_body[m_at];
            if (c == ']') {
                ++m_at;
                return true;
            }
            if (IsBlank(c)) {
                ++m_at;
            } else if (IsNumberPart(c)) {
                Skip(IsNumberPart);
            } else if (c != '<' || !ReadString()) {
                return false;
            }
        }
        return false;
    }

    std::string_view m_body;
    std::size_t m_at = 0, m_copied = 0;
    std::size_t m_pictures;
    std::int32_t m_operands = 0, m_depth = 0;
    bool m_namesPicture = false; ///< an operand names one
    bool m_inText = false;
    std::string m_out;
};

} // namespace

std::optional<std::string> TranslateDialectBody(std::string_view body, std::size_t pictures)
{
    BodyReader reader(body, pictures);
    if (!reader.Read()) {
        return std::nullopt;
    }
    return reader.Take();
}

} // namespace sm::publisher
