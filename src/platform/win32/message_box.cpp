#include "platform/message_box.h"

#include <windows.h>

namespace platform {

void ShowNotice(const char* caption, const char* text) {
    constexpr UINT kStyle = 64;
    static_assert(kStyle == (MB_ICONINFORMATION | MB_OK));
    MessageBoxA(nullptr, text, caption, kStyle);
}

}  // namespace platform
