// A device that follows a script: the bytes it expects from the driver and what it answers. Bytes
// that differ are shown as two hex dumps; from then on the device is silent.
//
// A conversation is a text of exchanges with blanks between them:
//   21            the driver sends Esc 21
//   95<00         ... and the device answers 00
//   07>#904       the driver sends Esc 07 and data
//   D5<06>0102<00 acknowledgement, data, answer
//   >0102         bytes without Esc and command
// Bytes are hex digits, 'text', 'text'28 (padded with blanks or cut to 28), #904 (32 bits, least
// significant first), FFx30 (30 times); a comma between them is only for the eye.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "support/memory_platform.h"

inline const std::string kLongText(300, 'a');

Bytes FromText(std::string_view text);
std::string Hex(const Bytes& bytes);

// Conversations of the driver's composite steps. `version` counts where the type reports one;
// `page` is the code page of types 8 to 12 (0 852, 1 1250, 2 Mazovia).
extern const std::string kReady;              // a print check that ends at once
extern const std::string kStopped;            // one that ends in 112, but only before a printout
std::string Identify(int type, int version);  // model, and variant where there is one
std::string Session(int type, int version);   // probe, print check, identification
std::string CodePage(int type, int version, int page);
std::string Begin(int type, int version, int page);  // the opening of a receipt

class Script : public memory::Peer {
  public:
    void Play(std::string_view conversation);
    // Reports what of the conversation is missing or was never read. Then starts afresh.
    void ExpectFinished();
    void HostSent(const Bytes& bytes) override;

  private:
    struct Step {
        bool from_host;
        Bytes bytes;
    };
    void Advance();
    void Mismatch(const char* problem, const Bytes& received);

    std::deque<Step> steps_;
    Bytes received_;  // of the host's step at the front
    bool failed_ = false;
};
