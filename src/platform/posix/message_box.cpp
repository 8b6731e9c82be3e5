// The notice as a frame on standard error. A terminal's user confirms it with Enter; without a
// terminal nobody could, and the driver goes on at once.
#include "platform/message_box.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

struct Letter {
    uint8_t code;  // in code page 1250
    const char* utf8;
};

constexpr Letter kPolishLetters[] = {
    {0xA5, "Ą"}, {0xC6, "Ć"}, {0xCA, "Ę"}, {0xA3, "Ł"}, {0xD1, "Ń"}, {0xD3, "Ó"},
    {0x8C, "Ś"}, {0x8F, "Ź"}, {0xAF, "Ż"}, {0xB9, "ą"}, {0xE6, "ć"}, {0xEA, "ę"},
    {0xB3, "ł"}, {0xF1, "ń"}, {0xF3, "ó"}, {0x9C, "ś"}, {0x9F, "ź"}, {0xBF, "ż"},
};

// Collects the output, so that the notice goes out in few pieces. A stream that is closed or broken
// loses it, which is no failure of the driver.
class Output {
  public:
    ~Output() { Flush(); }

    void Text(const char* text) { Bytes(text, std::strlen(text)); }

    void Repeated(char character, std::size_t times) {
        for (; times > 0; --times) Bytes(&character, 1);
    }

    void Character(char character) {
        const auto code = static_cast<uint8_t>(character);
        if (code >= 0x20 && code < 0x7F) return Bytes(&character, 1);
        for (const Letter& letter : kPolishLetters) {
            if (letter.code == code) return Text(letter.utf8);
        }
        Text("?");
    }

    void Flush() {
        for (std::size_t done = 0; done < used_ && !IsBroken();) {
            const ssize_t step = write(STDERR_FILENO, buffer_ + done, used_ - done);
            if (step > 0) {
                done += static_cast<std::size_t>(step);
            } else if (errno != EINTR) {
                break;
            }
        }
        used_ = 0;
    }

  private:
    // A pipe that nobody reads any more would end the process with a signal.
    static bool IsBroken() {
        pollfd watched{STDERR_FILENO, POLLOUT, 0};
        return poll(&watched, 1, 0) > 0 && (watched.revents & (POLLERR | POLLNVAL)) != 0;
    }

    void Bytes(const char* bytes, std::size_t count) {
        if (used_ + count > sizeof buffer_) Flush();
        count = std::min(count, sizeof buffer_);
        std::memcpy(buffer_ + used_, bytes, count);
        used_ += count;
    }

    char buffer_[1024];
    std::size_t used_ = 0;
};

struct TextLine {
    const char* start;
    std::size_t length;  // characters
    const char* next;    // null after the last line
};

TextLine FirstLine(const char* text) {
    std::size_t length = std::strcspn(text, "\r\n");
    const char* end = text + length;
    if (*end == '\r' && end[1] == '\n') ++end;
    const bool more = *end != '\0' && end[1] != '\0';
    return {text, length, more ? end + 1 : nullptr};
}

std::size_t WidestLine(const char* text) {
    std::size_t width = 0;
    for (const char* at = text; at != nullptr;) {
        const TextLine line = FirstLine(at);
        width = std::max(width, line.length);
        at = line.next;
    }
    return width;
}

void DrawEdge(Output& output, const char* caption, std::size_t width) {
    output.Text("+-");
    output.Text(caption);
    output.Repeated('-', width + 1 - std::min(width + 1, std::strlen(caption)));
    output.Text("+\n");
}

void DrawFrame(const char* caption, const char* text) {
    Output output;
    const std::size_t width = std::max(WidestLine(text), std::strlen(caption));
    DrawEdge(output, caption, width);
    for (const char* at = text; at != nullptr;) {
        const TextLine line = FirstLine(at);
        output.Text("| ");
        for (std::size_t i = 0; i < line.length; ++i) output.Character(line.start[i]);
        output.Repeated(' ', width - line.length);
        output.Text(" |\n");
        at = line.next;
    }
    DrawEdge(output, "", width);
}

void WaitForEnter() {
    char key = 0;
    ssize_t count = 0;
    do {
        count = read(STDIN_FILENO, &key, 1);
    } while ((count == 1 && key != '\n') || (count < 0 && errno == EINTR));
}

}  // namespace

void ShowNotice(const char* caption, const char* text) {
    DrawFrame(caption, text);
    if (isatty(STDIN_FILENO) != 0) WaitForEnter();
}

}  // namespace platform
