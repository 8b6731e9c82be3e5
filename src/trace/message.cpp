#include "trace/message.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "numbers/io_util.h"

namespace {

constexpr int kNajwiecejSegmentow = 18;
constexpr int kDlugoscLiteralu = 18;

// One parsed piece of a format: a directive and the literal text that follows it.
struct Segment {
    char directive;  // ' ' for the text before the first '%'
    char literal[kDlugoscLiteralu + 1];
    uint32_t width;
};

char Buf[224];
char S[160];
Segment Par[kNajwiecejSegmentow];

// Appends what fits; a longer line is outside the log's contract and is cut.
template <size_t Size>
void Dopisz(char (&target)[Size], const char* text) {
    const size_t used = std::strlen(target);
    const size_t kept = std::min(std::strlen(text), Size - 1 - used);
    std::memcpy(target + used, text, kept);
    target[used + kept] = '\0';
}

bool Cyfra(char c) {
    return c >= '0' && c <= '9';
}

// Reads the width behind %d or %s.
// Oddity: Widths in trace formats are reversed. Of two digits the first is the units and the second
// the tens, so "%d12" asks for 21; existing formats rely on it.
const char* OdczytajSzerokosc(const char* text, uint32_t& width) {
    if (!Cyfra(*text)) return text;
    width = static_cast<uint32_t>(*text++ - '0');
    if (Cyfra(*text)) width += 10 * static_cast<uint32_t>(*text++ - '0');
    return text;
}

// The count of segments, or -1 when there are more than the table holds.
int RozlozFormat(const char* format) {
    int count = 0;
    char directive = ' ';
    const char* text = format;
    if (*text == '%') directive = '\0';  // no leading literal text
    while (true) {
        Segment segment = {directive, "", 0};
        if (directive != ' ') {
            segment.directive = *++text;
            if (*text != '\0') ++text;
            if (segment.directive == 'd' || segment.directive == 's') {
                text = OdczytajSzerokosc(text, segment.width);
            }
        }
        const size_t length = std::strcspn(text, "%");
        std::memcpy(segment.literal, text, std::min<size_t>(length, kDlugoscLiteralu));
        text += length;
        if (count == kNajwiecejSegmentow) return -1;
        Par[count++] = segment;
        if (*text == '\0') return count;
        directive = '\0';
    }
}

// Oddity: A trace line is itself a format. A '%' that came in through an argument is interpreted, as
// it has always been; it finds these instead of arguments that were never passed.
void WypiszJakoFormat(const char* line) {
    static char none[16];
    std::memset(none, 0, sizeof none);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::printf(line, none, none, none, none, none, none, none, none);
#pragma GCC diagnostic pop
    std::fflush(stdout);
}

}  // namespace

void Printf(int32_t ignored, const char* format, ...) {
    (void)ignored;
    Buf[0] = '\0';
    S[0] = '\0';
    char file_name[64] = "debug.txt";

    const int count = RozlozFormat(format);
    if (count < 0) {
        std::printf("ERROR: funkcji Printf, za duzo parametrow !!!");
        std::fflush(stdout);
        return;
    }
    Dopisz(Buf, "***DEBUG*");
    if (std::strchr(format, '%') == nullptr) {
        Dopisz(Buf, format);
        WypiszJakoFormat(Buf);
        ToFile(file_name, Buf);
        return;
    }

    std::va_list values;
    va_start(values, format);
    for (int i = 0; i < count; ++i) {
        const Segment& segment = Par[i];
        switch (segment.directive) {
            case ' ':
                Dopisz(Buf, segment.literal);
                break;
            case 'd':
                IntToStr(static_cast<uint32_t>(va_arg(values, int)), S, segment.width);
                Dopisz(Buf, S);
                Dopisz(Buf, segment.literal);
                break;
            case 's':
                S[0] = '\0';
                Dopisz(S, va_arg(values, const char*));
                Dopisz(Buf, S);
                Dopisz(Buf, segment.literal);
                break;
            case 'F':  // the text behind it is dropped
                Dopisz(file_name, va_arg(values, const char*));
                break;
            case 'c':
                // Oddity: %c in a trace format ends the program. Nobody has ever asked for a single
                // character, and one that begins to is to see it at once.
                __builtin_trap();
            default:  // takes no value, and the text behind it is dropped
                break;
        }
    }
    va_end(values);

    WypiszJakoFormat(Buf);
    ToFile(file_name, Buf);
    // Oddity: The trace waits for Enter. On a console the reader confirms each line.
    std::getchar();
    std::fflush(stdout);
    ToFile(file_name, "");  // an empty line behind the entry
}

void ToFile(const char* file_name, const char* text) {
    std::FILE* file = std::fopen(file_name, "a");
    if (file == nullptr) return;
    char line[296] = "";
    Dopisz(line, text);
    std::fprintf(file, "%s%s", line, "\n");
    std::fclose(file);
}
