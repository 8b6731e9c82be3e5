#include "koraxdr/polish_text.h"

#include "koraxdr/polish_letters.h"
#include "koraxdr/state.h"

namespace {

constexpr int32_t kStrona852 = 0;
constexpr int32_t kStrona1250 = 1;
constexpr int32_t kMazovia = 2;

// Null for a character that is none of the letters.
const PolishLetter* PolskaLitera(uint8_t character) {
    for (const PolishLetter& letter : kPolskieLitery) {
        if (letter.cp1250 == character) return &letter;
    }
    return nullptr;
}

uint8_t ZnakStrony(const PolishLetter& letter) {
    return CodePage1250 == kMazovia ? letter.mazovia : letter.cp852;
}

uint8_t WielkaLiteraLacinska(uint8_t character) {
    return character >= 'a' && character <= 'z' ? static_cast<uint8_t>(character - 'a' + 'A')
                                                : character;
}

}  // namespace

bool ZnanaStrona() {
    return CodePage1250 >= kStrona852 && CodePage1250 <= kMazovia;
}

int32_t ZnakDlaUrzadzenia(uint8_t character) {
    if (!ZnanaStrona()) return CodePage1250;
    if (CodePage1250 == kStrona1250) return character;
    const PolishLetter* letter = PolskaLitera(character);
    return letter == nullptr ? character : ZnakStrony(*letter);
}

// Oddity: In code page 1250 Polish letters keep their case. Only the letters a to z are raised, as
// the devices with that page have always been sent them.
int32_t WielkiZnakDlaUrzadzenia(uint8_t character) {
    if (!ZnanaStrona()) return CodePage1250;
    if (CodePage1250 == kStrona1250) return WielkaLiteraLacinska(character);
    const PolishLetter* letter = PolskaLitera(character);
    if (letter == nullptr) return WielkaLiteraLacinska(character);
    const bool is_small = letter - kPolskieLitery >= kWielkichLiter;
    return ZnakStrony(is_small ? *(letter - kWielkichLiter) : *letter);
}

bool PolskaLiteraWStronie852(uint8_t character) {
    for (const PolishLetter& letter : kPolskieLitery) {
        if (letter.cp852 == character) return true;
    }
    return false;
}

CodePage852::CodePage852() : saved_(CodePage1250) {
    CodePage1250 = kStrona852;
}
CodePage852::~CodePage852() {
    CodePage1250 = saved_;
}
