#include "port/portpro.h"

#include "platform/clock.h"
#include "trace/line_trace.h"

PortRecord TablicaPortow[kLiczbaRekordowPortow];
uint32_t PortSelector = 1;

namespace {

constexpr uint32_t kOczekiwaniePoOtwarciuMs = 100;
constexpr uint32_t kOczekiwaniePoUstawieniuMs = 100;
constexpr uint32_t kOczekiwaniePrzedParzystosciaMs = 50;
constexpr uint32_t kCzasLaczeniaS = 3;  // where nobody gave a time-out

PortRecord& AktywnyRekord() {
    return TablicaPortow[PortSelector];
}

bool PortOtwarty() {
    return AktywnyRekord().handle != platform::kNoLine;
}

// A negative time-out is none at all.
uint32_t Sekundy(int32_t timeout_s) {
    return timeout_s > 0 ? static_cast<uint32_t>(timeout_s) : 0;
}

uint32_t OtworzPort(platform::DeviceKind kind, uint32_t port, uint32_t baud,
                    int32_t write_timeout_s, int32_t read_timeout_s) {
    PortRecord& record = AktywnyRekord();
    record.number = static_cast<uint8_t>(port);
    // Oddity: CTS flow control is always on. Whatever UstawCTS stored before, every port that is
    // opened waits for CTS, since the devices drop it while they cannot take data.
    record.cts = 1;
    record.baud = baud;
    record.parity = 2;
    record.stop_bits = 0;
    record.byte_size = 8;
    if (!platform::BuildDeviceName(kind, port, record.name)) return platform::kErrorNoSuchDevice;

    uint32_t error = 0;
    record.handle = platform::OpenLine(record.name, Sekundy(write_timeout_s), error);
    if (!PortOtwarty()) return error != 0 ? error : platform::kErrorNoSuchDevice;
    ZapiszOtwarcieLinii(record.name, baud);

    platform::PauseMs(kOczekiwaniePoOtwarciuMs);
    record.write_timeout_s = Sekundy(write_timeout_s);
    record.read_timeout_s = Sekundy(read_timeout_s);
    error = SetSerialParameters();
    if (error != 0) UnInitializePort();
    return error;
}

template <class Change>
bool ZmienionoLinie(Change change, bool raised) {
    return PortOtwarty() && change(AktywnyRekord().handle, raised);
}

}  // namespace

uint32_t InitializePort(uint32_t port, uint32_t baud, int32_t write_timeout_s,
                        int32_t read_timeout_s) {
    return OtworzPort(platform::DeviceKind::kCom, port, baud, write_timeout_s, read_timeout_s);
}

uint32_t pInitializeLPTPort(uint32_t port, uint32_t baud, int32_t write_timeout_s,
                            int32_t read_timeout_s) {
    return OtworzPort(platform::DeviceKind::kLpt, port, baud, write_timeout_s, read_timeout_s);
}

uint32_t UnInitializePort() {
    PortRecord& record = AktywnyRekord();
    if (!PortOtwarty()) return 0;
    const uint32_t error = platform::CloseLine(record.handle);
    record.handle = platform::kNoLine;
    ZapiszZamkniecieLinii();
    return error;
}

uint32_t SetSerialParameters() {
    if (!PortOtwarty()) return kBrakOtwartegoPortu;
    const PortRecord& record = AktywnyRekord();
    const platform::LineSettings settings = {
        .baud = record.baud,
        .byte_size = static_cast<uint8_t>(record.byte_size),
        .parity = record.parity,
        .stop_bits = static_cast<uint8_t>(record.stop_bits),
        .cts_flow_control = record.cts != 0,
        .write_timeout_s = record.write_timeout_s,
        .read_timeout_s = record.read_timeout_s,
    };
    const uint32_t error = platform::ApplySettings(record.handle, settings);
    if (error == 0) platform::PauseMs(kOczekiwaniePoUstawieniuMs);
    return error;
}

uint32_t ClearPort() {
    if (!PortOtwarty()) return kBrakOtwartegoPortu;
    if (ZapisywacLinie) OproznijZapisLinii();
    const uint32_t error = platform::PurgeOutput(AktywnyRekord().handle);
    return error != 0 ? error : platform::PurgeInput(AktywnyRekord().handle);
}

bool ChangeParity(uint8_t parity) {
    ClearPort();
    platform::PauseMs(kOczekiwaniePrzedParzystosciaMs);
    AktywnyRekord().parity = parity;
    return SetSerialParameters() == 0;
}

bool WriteByte(uint8_t byte) {
    return PoslanoCiagBajtow1(&byte, 1);
}

bool ReadByte(uint8_t& byte) {
    if (!PortOtwarty()) return false;
    if (ZapisywacLinie) OproznijZapisWyslanych();
    const bool read = platform::ReadBytes(AktywnyRekord().handle, &byte, 1) == 1;
    if (ZapisywacLinie) {
        if (read) ZapiszBajtyOdebrane(&byte, 1);
        if (!read) ZapiszUwageOLinii("no byte");
    }
    return read;
}

bool PoslanoCiagBajtow1(const uint8_t* buffer, uint32_t count) {
    if (!PortOtwarty()) return false;
    const uint32_t written = platform::WriteBytes(AktywnyRekord().handle, buffer, count);
    if (ZapisywacLinie) {
        ZapiszBajtyWyslane(buffer, written);
        if (written != count) ZapiszUwageOLinii("not sent");
    }
    return written == count;
}

uint8_t ModemStatus() {
    if (!PortOtwarty()) return 0;
    constexpr uint8_t kept =
        platform::kLineCts | platform::kLineDsr | platform::kLineRing | platform::kLineCarrier;
    return platform::ModemLines(AktywnyRekord().handle) & kept;
}

bool SetDTRLine() {
    return ZmienionoLinie(platform::SetDtr, true);
}
bool ClearDTRLine() {
    return ZmienionoLinie(platform::SetDtr, false);
}
bool SetRTSLine() {
    return ZmienionoLinie(platform::SetRts, true);
}
bool ClearRTSLine() {
    return ZmienionoLinie(platform::SetRts, false);
}

void UstawCTS(uint8_t flag) {
    AktywnyRekord().cts = flag;
}

void CharSent() {
    if (!PortOtwarty()) return;
    struct CharacterTime {
        uint32_t baud, ms;
    };
    constexpr CharacterTime times[] = {{300, 64}, {600, 32}, {1200, 16}, {2400, 8},
                                       {4800, 4}, {9600, 2}, {14400, 2}};
    platform::FlushLine(AktywnyRekord().handle);
    uint32_t ms = 1;
    for (const CharacterTime& time : times) {
        if (time.baud == AktywnyRekord().baud) ms = time.ms;
    }
    platform::PauseMs(ms);
}

bool SerialPortPresent(uint32_t number) {
    platform::DeviceName name;
    if (!platform::BuildDeviceName(platform::DeviceKind::kCom, number, name)) return false;
    uint32_t error = 0;
    const platform::LineHandle line = platform::OpenLine(name, kCzasLaczeniaS, error);
    if (line == platform::kNoLine) return false;
    platform::CloseLine(line);
    return true;
}

uint32_t SetComSelector(uint32_t selector) {
    return selector;
}
uint32_t GetComSelector() {
    return 0;
}
uint32_t GetCOMNumber() {
    return 0;
}
uint32_t GetCOMHandle() {
    return 0;
}
uint32_t GetSpeed() {
    return 0;
}
