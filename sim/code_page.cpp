#include "sim/code_page.h"

#include <algorithm>

namespace sim {
namespace {

// Codes 0x80 to 0xFF of each page; the hard blank is printed as a blank, the soft hyphen as a
// hyphen.
constexpr std::u16string_view kUpperHalf[] = {
    // code page 852
    u"ÇüéâäůćçłëŐőîŹÄĆÉĹĺôöĽľŚśÖÜŤťŁ×čáíóúĄąŽžĘę¬źČş«»░▒▓│┤ÁÂĚŞ╣║╗╝Żż┐"
    u"└┴┬├─┼Ăă╚╔╩╦╠═╬¤đĐĎËďŇÍÎě┘┌█▄ŢŮ▀ÓßÔŃńňŠšŔÚŕŰýÝţ´-˝˛ˇ˘§÷¸°¨˙űŘř■ ",
    // code page 1250
    u"€\uFFFD‚\uFFFD„…†‡\uFFFD‰Š‹ŚŤŽŹ\uFFFD‘’“”•–—\uFFFD™š›śťžź ˇ˘Ł¤Ą¦§¨©Ş«¬-®Ż°±˛ł´µ¶·¸ąş»Ľ˝ľż"
    u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢßŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ˙",
    // Mazovia: code page 437 with the Polish letters over the letters least used in Poland
    u"ÇüéâäàąçêëèïîćÄĄĘęłôöĆûùŚÖÜ¢Ł¥śƒŹŻóÓńŃźż¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
    u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■ ",
};
static_assert(std::ranges::all_of(kUpperHalf, [](auto page) { return page.size() == 128; }));

constexpr char16_t kUnprintable = u'\uFFFD';

// Capitals and small letters, in the same order.
constexpr std::string_view kPolishCapitals = "ĄĆĘŁŃÓŚŹŻ";
constexpr std::string_view kPolishLetters = "ąćęłńóśźż";

char16_t ToUnicode(std::uint8_t byte, CodePage page) {
    if (byte >= 0x80) return kUpperHalf[static_cast<std::size_t>(page)][byte - 0x80u];
    return byte < 0x20 || byte == 0x7F ? kUnprintable : static_cast<char16_t>(byte);
}

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

}  // namespace

void AppendUtf8(std::string& text, char16_t character) {
    const unsigned code = character;
    const auto add = [&text](unsigned byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | code >> 6);
        add(0x80 | (code & 0x3F));
    } else {
        add(0xE0 | code >> 12);
        add(0x80 | (code >> 6 & 0x3F));
        add(0x80 | (code & 0x3F));
    }
}

std::string ToUtf8(std::span<const std::uint8_t> text, CodePage page) {
    std::string result;
    for (const std::uint8_t byte : text) AppendUtf8(result, ToUnicode(byte, page));
    return result;
}

std::size_t Width(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, StartsCharacter));
}

std::string_view Cut(std::string_view text, std::size_t width) {
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end)
        if (StartsCharacter(text[end]) && characters++ == width) break;
    return text.substr(0, end);
}

std::string_view TrimEnd(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    return start == std::string_view::npos ? std::string_view{} : TrimEnd(text.substr(start));
}

std::string Upper(std::string_view text) {
    std::string upper;
    while (!text.empty()) {
        const std::string_view character = Cut(text, 1);
        const char first = character[0];
        const std::size_t polish =
            character.size() > 1 ? kPolishLetters.find(character) : std::string_view::npos;
        if (polish != std::string_view::npos)
            upper += kPolishCapitals.substr(polish, character.size());
        else if (first >= 'a' && first <= 'z')
            upper += static_cast<char>(first - 'a' + 'A');
        else
            upper += character;
        text.remove_prefix(character.size());
    }
    return upper;
}

std::vector<std::string> Wrap(std::string_view text, std::size_t width) {
    std::vector<std::string> lines;
    text = TrimEnd(text);
    while (Width(text) > width) {
        std::string_view line = Cut(text, width);
        const bool word_ends_here = text[line.size()] == ' ';
        if (const std::size_t blank = line.find_last_of(' '); !word_ends_here &&
                                                              blank != std::string_view::npos &&
                                                              !Trim(line.substr(0, blank)).empty())
            line = line.substr(0, blank);
        lines.emplace_back(TrimEnd(line));
        text.remove_prefix(line.size());
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    lines.emplace_back(text);
    return lines;
}

std::size_t SignificantCharacters(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty()) {
        const std::string_view character = Cut(text, 1);
        const char first = character[0];
        const bool letter = (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z');
        const bool digit = first >= '0' && first <= '9';
        const bool sign = std::string_view(",.%/\\").find(first) != std::string_view::npos;
        const bool polish =
            character.size() > 1 && (kPolishCapitals.find(character) != std::string_view::npos ||
                                     kPolishLetters.find(character) != std::string_view::npos);
        count += letter || digit || sign || polish;
        text.remove_prefix(character.size());
    }
    return count;
}

}  // namespace sim
