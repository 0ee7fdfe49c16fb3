#include "database/FoldCase.h"

#include <clocale>
#include <cwchar>
#include <cwctype>
#include <locale.h>

namespace sm::store {
namespace {

/// The locale of the calling thread for as long as this lives; the process's own locale stays as it is.
class UnicodeCharacters {
public:
    UnicodeCharacters() : m_locale(newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{}))
    {
        if (m_locale)
            m_former = uselocale(m_locale);
    }
    ~UnicodeCharacters()
    {
        if (!m_locale)
            return;
        uselocale(m_former);
        freelocale(m_locale);
    }
    UnicodeCharacters(const UnicodeCharacters&) = delete;
    UnicodeCharacters& operator=(const UnicodeCharacters&) = delete;

private:
    locale_t m_locale;
    locale_t m_former{};
};

bool IsAscii(const std::string& text)
{
    for (const unsigned char character : text)
        if (character >= 0x80)
            return false;
    return true;
}

std::string FoldAscii(std::string text)
{
    for (char& character : text)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return text;
}

} // namespace

std::string FoldCase(const std::string& utf8)
{
    if (IsAscii(utf8))
        return FoldAscii(utf8);
    const UnicodeCharacters guard;
    std::string folded;
    std::mbstate_t reading{}, writing{};
    const char* end = utf8.data() + utf8.size();
    for (const char* next = utf8.data(); next < end;) {
        wchar_t wide = 0;
        const std::size_t taken = std::mbrtowc(&wide, next, static_cast<std::size_t>(end - next), &reading);
        if (taken == 0 || taken > utf8.size())
            return FoldAscii(utf8);
        char bytes[16];
        const std::size_t written = std::wcrtomb(bytes, static_cast<wchar_t>(std::towlower(wide)), &writing);
        if (written > sizeof bytes)
            return FoldAscii(utf8);
        folded.append(bytes, written);
        next += taken;
    }
    return folded;
}

std::string FoldKeyPath(const std::string& path)
{
    std::string folded;
    for (const char character : FoldCase(path)) {
        if (character == '\\' && (folded.empty() || folded.back() == '\\'))
            continue;
        folded += character;
    }
    if (!folded.empty() && folded.back() == '\\')
        folded.pop_back();
    return folded;
}

} // namespace sm::store
