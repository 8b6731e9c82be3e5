// The frame coder and decoder: every body comes back, and a line is accepted only when it ends with
// a whole frame whose check sum is right by another decoder.
#include "input.h"

#include "links/controller.h"
#include "links/frame_coder.h"
#include "support/driver_test.h"

namespace {

void RoundTrip(Input input) {
    const Bytes body = input.Take(210);
    ResetDriver();
    TransmisjaPrzezModem = 1;
    os.modem_lines[0] = os.modem_lines[1] = platform::kLineCarrier;
    struct : memory::Peer {
        Bytes line;
        void HostSent(const Bytes& bytes) override { line = line + bytes; }
    } peer;
    os.peer = &peer;
    InicjujKompletniePortSzeregowy();
    std::copy(body.begin(), body.end(), BajtyDoPoslania + 1);
    PoslanieSekwencjiSterujacej(7, 0, static_cast<uint8_t>(body.size()), 0);
    const auto sent = modem::Unframe(peer.line);
    Require(sent && *sent == Bytes{0x20, 0, 0, 0, 0x1B, 7} + body, "the frame tells its data");
    os.peer = nullptr;
}

void Decode(Input input) {
    ResetDriver();
    TransmisjaPrzezModem = 1;
    os.modem_lines[0] = os.modem_lines[1] = platform::kLineCarrier;
    InicjujKompletniePortSzeregowy();
    OdebranoPierwszaCzescDanych = input.Byte() & 1;
    Bytes line;
    while (!input.Empty()) line = line + input.Line();
    os.Answer(line);
    OdebranieRamkiZModemu();
    const Bytes taken(line.begin(), line.end() - static_cast<long>(os.UnreadBytes()));
    const int flags = FlagsOfLastFrame(taken);
    const auto whole = modem::Unframe(line);
    const bool answer = whole && whole->front() == 0 && modem::Frame(*whole) == line;
    Require(!answer || NumerBledu == 0, "a good frame is accepted");
    if (NumerBledu == 33 || NumerBledu == 34) return;
    Require(flags >= 0, "a damaged frame is not accepted");
    Require(NumerBledu != 0 || flags == 0 || (flags & 15) == 8, "success is an answer");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, std::size_t count) {
    RoundTrip({bytes, count});
    Decode({bytes, count});
    ResetDriver();
    return 0;
}
