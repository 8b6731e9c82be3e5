// The port layer: what reaches the operating system, and in which order. Several devices on one
// line: the channel multiplexer, and the device server behind a socket.
#include <fmt/format.h>
#include <unistd.h>

#include "port/device_server.h"
#include "port/sockpro.h"
#include "support/driver_test.h"
#include "support/loopback_server.h"

namespace {

class Port : public DriverTest {
  protected:
    // What the layer asks of the operating system to open the port.
    static std::string Opening() {
        InicjujKompletniePortSzeregowy();
        return os.TakeCalls();
    }
};

const std::string kOpen = "open COM1; pause 100; apply 9600 8E1 cts w3 r3; pause 100";
const std::string kClose = "purge out; purge in; close";

TEST_F(Port, FullOpenSettlesThenSetsParityAndChannel) {
    EXPECT_EQ(Opening(), kOpen + "; purge out; purge in; pause 50; apply 9600 8E1 cts w3 r3" +
                             "; pause 100; pause 1");
    KontrolowacStanLiniiCTS = 0;  // flow control on CTS stays on whatever is wished
    ParzystoscTransmisji = 7;     // no parity code: the step is left out
    EXPECT_EQ(Opening(), kClose + "; " + kOpen + "; pause 1");
    NumerBledu = 20;
    EXPECT_EQ(Opening(), kClose + "; " + kOpen) << "a standing error leaves parity and channel out";
    UstawieniePozostawiacOtwartyPortSzeregowy(1);
    OdinicjujPortSzeregowy();
    EXPECT_EQ(Opening(), "") << "kept open it survives open and close";
    UstawieniePozostawiacOtwartyPortSzeregowy(0);
    EXPECT_EQ(os.TakeCalls(), kClose);

    EXPECT_EQ(SetComSelector(5), 5u) << "the selectors are inert";
    for (const auto inert : {GetComSelector, GetCOMNumber, GetCOMHandle, GetSpeed}) {
        EXPECT_EQ(inert(), 0u);
    }
    // A closed port refuses everything.
    uint8_t byte = 0;
    EXPECT_EQ(SetSerialParameters(), 2u);
    EXPECT_EQ(ClearPort(), 2u);
    EXPECT_EQ(ModemStatus(), 0);
    EXPECT_FALSE(WriteByte(1));
    EXPECT_FALSE(ReadByte(byte));
    EXPECT_FALSE(SetDTRLine());
    EXPECT_FALSE(ClearRTSLine());
    EXPECT_FALSE(ChangeParity(0));
    EXPECT_EQ(os.TakeCalls(), "pause 50");
}

TEST_F(Port, SpeedChoosesNivoParityAndTheCharacterWait) {
    for (const auto& [baud, parity, wait] :
         {std::tuple(9600, 0u, 2u), {19200, 2u, 1u}, {2400, 1u, 8u}, {300, 1u, 64u}}) {
        SzybkoscTransmisji = baud;
        ParzystoscTransmisji = 1;
        InicjujKompletniePortSzeregowyDlaNivy();
        EXPECT_EQ(os.settings.parity, parity);
        EXPECT_TRUE(os.settings.cts_flow_control);
        EXPECT_EQ(SygnalizowacBledyParzystosci, 0);
        EXPECT_EQ(KontrolowacStanLiniiCTS, 0);
        os.now_ms = 0;
        CharSent();
        EXPECT_EQ(os.now_ms, wait) << baud;
    }
}

TEST_F(Port, ParityAndLines) {
    Opening();
    EXPECT_TRUE(ChangeParity(1));
    EXPECT_EQ(os.TakeCalls(), "purge out; purge in; pause 50; apply 9600 8O1 cts w3 r3; pause 100");
    os.modem_lines[0] = 0xFF;
    EXPECT_EQ(ModemStatus(), 0xF0);
    EXPECT_TRUE(SetDTRLine());
    EXPECT_TRUE(ClearDTRLine());
    EXPECT_TRUE(SetRTSLine());
    EXPECT_TRUE(ClearRTSLine());
    EXPECT_EQ(os.TakeCalls(), "modem lines; DTR on; DTR off; RTS on; RTS off");
    OdinicjujPortSzeregowy();
    os.calls.clear();
    EXPECT_EQ(pInitializeLPTPort(2, 9600, 3, -3), 0u);
    EXPECT_EQ(UnInitializePort(), 0u);
    EXPECT_EQ(os.TakeCalls(), "open LPT2; pause 100; apply 9600 8E1 cts w3 r0; pause 100; close");
}

const std::string kApplied = " 8E1 cts w3 r3; pause 100";

const std::pair<int32_t, std::string> kSpeeds[] = {
    {150, "PBR8 "},   {300, "PBR9 "},   {600, "PBR10 "},  {1200, "PBR0 "},  {2400, "PBR1 "},
    {4800, "PBR2 "},  {9600, "PBR3 "},  {14400, ""},      {19200, "PBR4 "}, {28800, "PBR11 "},
    {38400, "PBR5 "}, {57600, "PBR6 "}, {115200, "PBR7 "}};

class Channel : public DriverTest {
  protected:
    ~Channel() override { WyborSerweraUrzadzen = 0; }
    // The calls of a full open at 19200 behind the setting of the parity.
    std::string Open(int kind, int32_t channel, const std::string& conversation = "") {
        Fresh();
        NrMultipleksera = static_cast<uint8_t>(kind);
        NrKanalu = channel;
        SzybkoscTransmisji = 19200;
        Call(conversation, [] { return InicjujKompletniePortSzeregowy(), 0; });
        EXPECT_EQ(NumerBledu, 0);
        const std::string calls = os.TakeCalls(),
                          parity = "pause 50; apply 19200" + kApplied + "; ";
        return calls.substr(calls.find(parity) + parity.size());
    }
};

TEST_F(Channel, SelectedByLinesOrRawBytes) {
    EXPECT_EQ(Open(0, 1), "pause 1");
    const char* lines[] = {
        "", "DTR off; RTS on; ", "DTR on; RTS on; ", "DTR off; RTS off; ", "DTR on; RTS off; ", ""};
    for (int channel = 0; channel <= 5; ++channel)
        for (int kind : {1, 5, 255})
            EXPECT_EQ(Open(kind, channel), std::string(lines[channel]) + "pause 1");
    os.vanished = true;
    EXPECT_FALSE(UstawionoKanal(2));
    EXPECT_FALSE(UstawionoSzybkosc(9600));
    EXPECT_EQ(Open(4, 0x102, ">FE02"), "RTS on; RTS off");
    for (uint32_t bytes : {0u, 1u}) {
        os.writable_bytes = bytes;
        Call(bytes == 0 ? "" : ">FE", [] { return PrzelaczNaKanal(), 0; });
        EXPECT_EQ(NumerBledu, 52);
        EXPECT_EQ(os.TakeCalls(), "RTS on") << "and stays raised";
    }
}

TEST_F(Channel, SelectedBySequence) {
    const std::string calls = "apply 9600" + kApplied +
                              "; pause 10; RTS on; purge out; purge in; RTS off; apply 19200" +
                              kApplied + "; pause 10";
    EXPECT_EQ(Open(3, 0x105, "01>05"), calls);
    BajtyDoPoslania[1] = 7;
    BylTimeout = 1;
    Call("01>05", [] { return PrzelaczNaKanal(), 0; });
    EXPECT_EQ(NumerBledu, 0) << "an old time-out is not this one's";
    EXPECT_EQ(BajtyDoPoslania[1], 7) << "a sequence that waits for the server keeps its data";
    os.calls.clear();
    os.writable_bytes = 0;
    PrzelaczNaKanal();
    EXPECT_EQ(NumerBledu, 20) << "the sequence's own error";
    EXPECT_EQ(os.TakeCalls(), calls) << "the line is put back";
}

TEST_F(Channel, InertDeviceServerMovesNothing) {
    EXPECT_TRUE(TibboWykonalo3Rozkazy("", "", ""));
    EXPECT_TRUE(ZamknietoGniazdoTransmisji());
    EXPECT_FALSE(UstawionoSzybkoscLubKanalTibbo("127.0.0.1", 1, 9600, true)) << "no 'A' comes";
    EXPECT_EQ(NumerBledu, 65);
    NumerBledu = 0;
    TransmisjaPrzezTCP = 1;
    InicjujKompletniePortSzeregowy();
    EXPECT_EQ(ZainicjowanoPortSzeregowy, 1);
    PoslanieSekwencjiSterujacej(0x23, 1, 0, 0);
    EXPECT_EQ(NumerBledu, 33);
    WyborSerweraUrzadzen = 1;
    PortTransmisjiSerweraUrzadzen = 0;
    EXPECT_EQ(CommunicationInit(1, 9600, 5), 2) << "nobody listens";
    EXPECT_EQ(os.TakeCalls(), "") << "the serial line has no part in it";
}

TEST_F(Channel, DeviceServerIsProgrammed) {
    // The port is fixed, so each test run has an address of its own.
    const std::string address =
        fmt::format("127.{}.{}.1", getpid() / 250 % 250, getpid() % 250 + 1);
    std::string commands;
    std::ptrdiff_t refusal = 0;  // of which command; 7 hangs up
    // What is sent, and "!" when it fails.
    const auto program = [&](int32_t channel, int32_t baud, bool set) {
        commands.clear();
        NumerBledu = 0;
        const bool done = UstawionoSzybkoscLubKanalTibbo(address.c_str(), channel, baud, set);
        EXPECT_EQ(NumerBledu, done ? 0 : 65);
        return commands + (done ? "" : "!");
    };
    WyborSerweraUrzadzen = 1;
    address.copy(AdresSerweraUrzadzen, sizeof AdresSerweraUrzadzen - 1);
    EXPECT_EQ(program(1, 9600, true), "!") << "nobody listens";
    const LoopbackServer server(address.c_str(), 65535, [&](const Bytes& bytes) {
        commands += std::string(bytes.begin(), bytes.end()) + " ";
        const bool refused = std::count(commands.begin(), commands.end(), ' ') == refusal;
        return FromText(refusal == 7 ? "" : refused ? "'N'" : "'A'");
    });
    const std::string first = "R PS11 PS31 ";
    const char* channels[] = {"", "PS00 PS11 ", "PS00 PS10 ", "PS01 PS11 ", "PS01 PS10 ", ""};
    for (const auto& [baud, command] : kSpeeds) {
        for (int32_t channel = 0; channel <= 5; ++channel)
            EXPECT_EQ(program(channel, baud, true), first + channels[channel] + command);
        EXPECT_EQ(program(1, baud, false), first + command);
    }
    const std::string all = first + channels[4] + "PBR3 ";
    std::size_t end = 0;
    for (refusal = 1; refusal <= 6; ++refusal) {
        end = all.find(' ', end) + 1;
        EXPECT_EQ(program(4, 9600, true), all.substr(0, end) + "!") << "the first failure stops it";
    }
    EXPECT_EQ(program(4, 9600, true), "R !") << "the server hangs up";
    refusal = 0;
    commands.clear();
    SzybkoscTransmisji = 19200;
    EXPECT_TRUE(UstawionoKanal(2));
    EXPECT_TRUE(UstawSzybkoscTransmisji());
    EXPECT_EQ(commands, first + "PS00 PS10 PBR4 " + first + "PBR4 ");
    NumerBledu = 24;
    EXPECT_FALSE(TibboWykonalo1Rozkaz("R")) << "not connected";
    EXPECT_EQ(NumerBledu, 24) << "an older error stands";
}

}  // namespace
