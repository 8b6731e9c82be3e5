#include "koraxdr/command.h"

#include <cstring>

#include "engine/sysproc.h"
#include "port/sysseria.h"
#include "port/wire_bytes.h"

int32_t Wyslij(const ControlSequence& sequence) {
    return Wyslij(sequence, sequence.data_length);
}

int32_t Wyslij(const ControlSequence& sequence, int data_length) {
    PoslanieSekwencjiSterujacej(sequence.command, sequence.ack_length,
                                static_cast<uint8_t>(data_length), sequence.answer_length);
    return NumerBledu;
}

int32_t OdczytajStatus(const ControlSequence& sequence, uint8_t& status) {
    if (const int32_t error = Wyslij(sequence)) return error;
    status = BajtOdpowiedzi(1);
    return KORAX_E_OK;
}

uint8_t BajtOdpowiedzi(int position) {
    return BajtyOdebrane[position];
}

int32_t SlowoOdpowiedzi(int position) {
    return BajtOdpowiedzi(position) + 256 * BajtOdpowiedzi(position + 1);
}

int32_t LiczbaOdpowiedzi(int position) {
    const auto low = static_cast<uint32_t>(SlowoOdpowiedzi(position));
    const auto high = static_cast<uint32_t>(SlowoOdpowiedzi(position + 2));
    return static_cast<int32_t>(high << 16 | low);
}

void KopiujOdpowiedz(char* target, int position, int count) {
    std::memcpy(target, &BajtyOdebrane[position], static_cast<size_t>(count));
    target[count] = '\0';
}

int32_t OdbierzBajt(uint8_t& byte) {
    OdebranoBajtBezposrednio(byte);
    return NumerBledu;
}

int32_t OdbierzPotwierdzenieBezposrednio() {
    uint8_t byte = 0;
    if (const int32_t error = OdbierzBajt(byte)) return error;
    switch (byte) {
        case kAck:
            NumerBledu = WartoscNumeruBledu(0);
            break;
        case kNak:
            // Oddity: A direct NAK reads as a time-out. The byte's own value, 21, is stored as the
            // error number, so that an application cannot tell a refusal from silence here.
            NumerBledu = kNak;
            break;
        default:
            UstawNumerBledu(kBladNiepoprawnaOdpowiedz);
    }
    return NumerBledu;
}
