// A whole exchange with a device or a controller that answers arbitrary bytes. It ends, and on a
// framed link it succeeds only on a good answer.
#include "input.h"

#include "links/controller.h"
#include "support/driver_test.h"

namespace {

struct Hostile : memory::Peer {
    Input& input;
    bool framed = false;
    std::size_t frames = 0;
    Bytes said, tail;

    explicit Hostile(Input& in) : input(in) {}
    void HostSent(const Bytes& bytes) override {
        tail = tail + bytes;
        // A frame is answered when it is whole, bytes of a direct line as they come.
        if (framed && !modem::Unframe(tail)) return;
        tail.clear();
        Require(++frames < 3000, "the exchange ends");
        const Bytes line = framed ? input.Line() : input.Take(input.Byte() & 0x3F);
        said = said + line;
        os.Answer(line);
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, std::size_t count) {
    Input input(bytes, count);
    Hostile hostile(input);
    ResetDriver();
    os.peer = &hostile;
    os.modem_lines[0] = os.modem_lines[1] = platform::kLineCarrier;
    InicjujKompletniePortSzeregowy();
    const uint8_t how = input.Byte();
    TransmisjaPrzezModem = how & 1;
    hostile.framed = TransmisjaPrzezModem != 0;
    RetransmitowacSekwencjeSterujaca = how >> 1 & 1;
    MaksymalnaLiczbaRetransmisji = (how & 0x80) != 0 ? 255 : how >> 2 & 3;
    SzczegoloweDaneOTypieUrzadzenia.type_code = input.Byte();
    for (int i = 1; i < kRozmiarBuforaWymiany; ++i)
        BajtyDoPoslania[i] = static_cast<uint8_t>(i * how);
    const uint32_t mode = (how >> 4 & 3) % 3;
    const uint8_t command = input.Byte(), ack = input.Byte(), data = input.Byte();
    if (mode == 0) {
        PoslanieSekwencjiSterujacej(command, ack, data, input.Byte());
    } else {
        OgolnePoslanieSekwencjiSterujacej(mode, command, ack, data, input.Byte());
    }
    Require(WTrakcieSekwencjiSterujacej == 0, "the exchange is over");
    if (hostile.framed && NumerBledu == 0) {
        const Bytes& said = hostile.said;
        const int flags =
            FlagsOfLastFrame({said.begin(), said.end() - static_cast<long>(os.UnreadBytes())});
        Require(flags == 0 || (flags & 15) == 8, "success is an answer");
    }
    ResetDriver();
    MaksymalnaLiczbaRetransmisji = 3;
    return 0;
}
