#include "engine/command_rules.h"

#include <cstddef>

#include "engine/commands.h"
#include "port/exchange_cells.h"
#include "port/wire_bytes.h"

namespace {

// Commands that have rules although no function of this library sends them.
constexpr uint8_t kRozkaz9A = 0x9A;
constexpr uint8_t kRozkazA0 = 0xA0;
constexpr uint8_t kRozkazA1 = 0xA1;
constexpr uint8_t kRozkazE5 = 0xE5;
constexpr uint8_t kRozkaz11 = 0x11;
constexpr uint8_t kRozkaz72 = 0x72;
constexpr uint8_t kRozkazF9 = 0xF9;
constexpr uint8_t kRozkazFC = 0xFC;

constexpr uint8_t kPierwszyModelNowszy = 116;  // from here on 0xA0 is answered with 0

template <std::size_t N>
constexpr bool JednaZ(uint8_t value, const uint8_t (&list)[N]) {
    for (const uint8_t item : list) {
        if (item == value) return true;
    }
    return false;
}

struct RecordRule {
    uint8_t command;
    uint8_t length;
};
constexpr RecordRule kRekordyRozkazow[] = {
    {0x47, 13}, {0x48, 13}, {0x61, 38},
    {0xA2, 11}, {0xA3, 11}, {0xA5, 11},
    {0xAD, 16}, {0xAE, 16}, {kZapisStawek7.command, 29},
    {0xD6, 29}, {0xE7, 4},  {0xE9, 20},
    {0xEE, 20}, {0xEA, 8},
};
// Of 0xA1 by its sub-command; each also with the top bit set.
constexpr RecordRule kRekordyRozkazuA1[] = {{0, 17}, {1, 21}, {2, 30}, {3, 38}, {16, 12}};
constexpr uint8_t kRekordA1Wegierski = 33;

template <std::size_t N>
uint8_t DlugoscRekordu(uint8_t command, const RecordRule (&rules)[N]) {
    for (const RecordRule& rule : rules) {
        if (rule.command == command) return rule.length;
    }
    return 0;
}

// A sub-command outside the list has no record length, so that its answer has no early end.
uint8_t DlugoscRekorduA1(uint8_t sub_command, bool hungarian) {
    const uint8_t kind = sub_command & 0x7F;
    if (kind == 2 && hungarian) return kRekordA1Wegierski;
    return DlugoscRekordu(kind, kRekordyRozkazuA1);
}

// Runs of device status bytes and the internal numbers they stand for. Status 6 is left out: after
// the data only 0 means success.
struct StatusRun {
    uint8_t first, last;
    int32_t internal;
};
constexpr StatusRun kStatusy[] = {
    {2, 5, 67},     {7, 18, 71},    {19, 19, kBladSumaXor}, {100, 109, 83},
    {111, 112, 94}, {115, 115, 96}, {117, 117, 97},         {120, 132, 98},
};

}  // namespace

RecordList ListaRekordow(uint8_t command, uint8_t ack_length, uint8_t data_length,
                         uint8_t answer_length, uint8_t first_data_byte, bool hungarian) {
    if (command == 0x0A || command == 0x0B) {
        const bool is_list = ack_length == 110 && data_length == 0 && answer_length == 0;
        return is_list ? RecordList{true, 27} : RecordList{};
    }
    if (command == kRozkazA1) return {true, DlugoscRekorduA1(first_data_byte, hungarian)};
    const uint8_t length = DlugoscRekordu(command, kRekordyRozkazow);
    return {length != 0, length};
}

bool BezPotwierdzenia(uint8_t command) {
    constexpr uint8_t commands[] = {
        kStatusA.command, kStatusB.command, kStatusD.command, kStatusC.command, 0x9F, 0xF4};
    return JednaZ(command, commands);
}

bool BezSprawdzaniaStatusu(uint8_t command) {
    constexpr uint8_t commands[] = {kRozkaz72, kRaportMiesiecznyLubNumerowy.command, kRozkazF9,
                                    kRozkaz11};
    return JednaZ(command, commands);
}

bool ZeStatusemOdlozonym(uint8_t command) {
    constexpr uint8_t commands[] = {kRozkaz9A, kRozkazFC, kOtwarcieFaktury.command};
    return JednaZ(command, commands);
}

bool ZDlugosciaWStatusie(uint8_t command) {
    return command == kRozkazE5;
}

bool ZKrotkaOdpowiedzia(uint8_t command, uint8_t model) {
    return ZDlugosciaWStatusie(command) || BezSprawdzaniaStatusu(command) || command == kRozkaz9A ||
           command == kRozkazFC || ZPotwierdzeniemWStatusie(command, model);
}

bool ZPotwierdzeniemWStatusie(uint8_t command, uint8_t model) {
    return command == kRozkazA0 && model < kPierwszyModelNowszy;
}

int DlugoscPoStatusie(uint8_t status, uint8_t model) {
    switch (status) {
        case 250:
            return model == 24 || model == 27 ? 38 : 42;
        case 251:
            return 17;
        case 252:
            return 8;
        case 253:
        case 254:
            return 0;
        default:
            return -1;
    }
}

bool ModelWegierski(uint8_t model) {
    return model == 117 || model == 118;
}

int32_t BladPotwierdzenia(uint8_t byte, bool simple) {
    if (byte == kNak) return kBladNak;
    if (!simple) {
        if (byte == 1) return kBladPotwierdzenie1;
        if (byte == 101) return kBladPotwierdzenie101;
        if (byte == 200) return kBladPotwierdzenie200;
    }
    return kBladNiepoprawnaOdpowiedz;
}

int32_t BladStatusu(uint8_t status) {
    for (const StatusRun& run : kStatusy) {
        if (status >= run.first && status <= run.last) return run.internal + (status - run.first);
    }
    return kBladNiepoprawnaOdpowiedz;
}
