#include "koraxdr/frame.h"

#include <cstdio>

#include "numbers/io_util.h"
#include "platform/message_box.h"

namespace {

// The text of a debug box. Texts of any length may be passed to the functions; what does not fit
// here is not shown.
class DebugText {
  public:
    DebugText(const char* head, std::initializer_list<DebugArgument> arguments) {
        Append(head);
        Append("\n");
        for (const DebugArgument& argument : arguments) {
            char number[12];
            IntToStr(static_cast<uint32_t>(argument.number), number, 0);
            Append(argument.label);
            Append(argument.is_text ? argument.text : number);
            Append("\n");
        }
    }
    const char* c_str() const { return text_; }

  private:
    void Append(const char* text) {
        while (text != nullptr && *text != '\0' && used_ < sizeof text_ - 1) {
            text_[used_++] = *text++;
        }
        text_[used_] = '\0';
    }

    char text_[4096] = "";
    size_t used_ = 0;
};

}  // namespace

void PokazArgumenty(const char* head, std::initializer_list<DebugArgument> arguments) {
    if (!DebugMode) return;
    platform::ShowNotice("DEBUG MODE", DebugText(head, arguments).c_str());
}

void WypiszArgumenty(const char* head, std::initializer_list<DebugArgument> arguments) {
    if (!DebugMode) return;
    std::printf("%s", DebugText(head, arguments).c_str());
}
