// Writing fixed layouts into BajtyDoPoslania: positions are counted from 1 as the layouts give
// them. What would fall outside the buffer is dropped.
#pragma once

#include <climits>
#include <cstdint>
#include <initializer_list>

// How a text's characters go out.
enum class TextForm {
    kAsGiven,
    kDevice,       // through the conversion to the device's code page
    kDeviceUpper,  // the same in upper case
};

void WpiszBajt(int position, int value);        // its low byte
void WpiszSlowo(int position, int32_t value);   // 2 bytes, low first
void WpiszLiczbe(int position, int32_t value);  // 4 bytes, lowest first
void WpiszOdstepy(int position, int count);     // blanks
// The text's first characters, as many as the field is wide, padded with blanks.
void WpiszPole(int position, int width, const char* text, TextForm form = TextForm::kDevice);
// At most `najwyzej` characters of the text without padding; the position behind them.
int WpiszTekst(int position, const char* text, TextForm form, int at_most = 255);

// Two decimal digits as digit bytes (0 to 9), tens first.
void WpiszCyfry(int position, int32_t value);

// A field in which characters below a blank, and positions behind the text, are blanks.
void WpiszPoleDrukowalne(int position, int width, const char* text);

// Builds a run of bytes of no fixed width from position 1.
class SendRun {
  public:
    SendRun& MoveTo(int position) {
        position_ = position;
        return *this;
    }
    SendRun& Bytes(std::initializer_list<int> bytes) {
        for (const int byte : bytes) WpiszBajt(position_++, byte);
        return *this;
    }
    SendRun& Text(const char* text, TextForm form, int at_most = INT_MAX) {
        position_ = WpiszTekst(position_, text, form, at_most);
        return *this;
    }
    SendRun& Field(int width, const char* text) {
        WpiszPole(position_, width, text);
        return MoveTo(position_ + width);
    }
    SendRun& PrintableField(int width, const char* text) {
        WpiszPoleDrukowalne(position_, width, text);
        return MoveTo(position_ + width);
    }
    int length() const { return position_ - 1; }

  private:
    int position_ = 1;
};
