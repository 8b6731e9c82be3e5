// Conversion of a text byte from code page 1250 to the device's code page (CodePage1250).
#pragma once

#include <cstdint>

// CodePage1250 is one of the three modes.
bool ZnanaStrona();

// A mode other than 0, 1 and 2 yields the mode's value instead of a character.
int32_t ZnakDlaUrzadzenia(uint8_t character);
int32_t WielkiZnakDlaUrzadzenia(uint8_t character);

// One of the 18 Polish letters in code page 852.
bool PolskaLiteraWStronie852(uint8_t character);

// Holds CodePage1250 at 0 (code page 852) while it lives.
class CodePage852 {
  public:
    CodePage852();
    ~CodePage852();
    CodePage852(const CodePage852&) = delete;
    CodePage852& operator=(const CodePage852&) = delete;

  private:
    int32_t saved_;
};
