// The port layer and its facade: what reaches the operating system, and in which order.
#include "support/driver_test.h"

namespace {

class Port : public DriverTest {
  protected:
    // What the layer asks of the operating system to open the port.
    static std::string Opening() {
        InicjujKompletniePortSzeregowy();
        return os.TakeCalls();
    }
    // Virtual time since it was asked last.
    uint64_t Elapsed() { return os.now_ms - std::exchange(before_ms_, os.now_ms); }

  private:
    uint64_t before_ms_ = 0;
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

    EXPECT_EQ(SetSerialParameters() + ClearPort(), 4u);
    uint8_t byte = 0;
    EXPECT_FALSE(WriteByte(1) || ReadByte(byte) || PoslanoCiagBajtow1(&byte, 1) || SetDTRLine() ||
                 ClearRTSLine() || ChangeParity(0) || ModemStatus() != 0)
        << "a closed port refuses everything";
}

TEST_F(Port, SpeedChoosesNivoParityAndTheCharacterWait) {
    for (const auto& [baud, parity, wait] :
         {std::tuple(9600, 0u, 2u), {19200, 2u, 1u}, {2400, 1u, 8u}, {300, 1u, 64u}}) {
        SzybkoscTransmisji = baud;
        ParzystoscTransmisji = 1;
        InicjujKompletniePortSzeregowyDlaNivy();
        EXPECT_EQ(os.settings.parity, parity);
        EXPECT_TRUE(os.settings.cts_flow_control);
        EXPECT_EQ(SygnalizowacBledyParzystosci + KontrolowacStanLiniiCTS, 0);
        Elapsed();
        CharSent();
        EXPECT_EQ(Elapsed(), wait) << baud;
    }
}

TEST_F(Port, TransfersAreTimedAndReportedByTheFlag) {
    for (const auto& [timeout, delay, byte, took] :
         {std::tuple(2, 1999u, 0x41, 1999u), {2, 2001u, 0, 2000u}, {0, 0u, 0x41, 0u}}) {
        TimeoutOdbierania = timeout;
        Opening();
        os.Answer({0x41}, delay);
        Elapsed();
        EXPECT_EQ(OdbierzZPortuSzeregowego(), byte);
        EXPECT_EQ(BylTimeout, byte == 0);
        EXPECT_EQ(Elapsed(), took);
    }
    OdbierzZPortuSzeregowego();
    EXPECT_EQ(BylTimeout + Elapsed(), 1u) << "a time-out of 0 does not wait";
    os.writable_bytes = 0;
    PoslijNaPortSzeregowy(0x42);
    EXPECT_EQ(BylTimeout + Elapsed(), 3001u);
}

TEST_F(Port, ParityAndLines) {
    Opening();
    EXPECT_TRUE(ChangeParity(1));
    EXPECT_EQ(os.TakeCalls(), "purge out; purge in; pause 50; apply 9600 8O1 cts w3 r3; pause 100");
    os.modem_lines[0] = 0xFF;
    EXPECT_EQ(ModemStatus(), 0xF0);
    EXPECT_TRUE(SetDTRLine() && ClearDTRLine() && SetRTSLine() && ClearRTSLine());
    EXPECT_EQ(os.TakeCalls(), "modem lines; DTR on; DTR off; RTS on; RTS off");
    os.settings_error = 87;
    EXPECT_FALSE(ChangeParity(0));
    os.settings_error = 0;
    OdinicjujPortSzeregowy();
    os.calls.clear();
    EXPECT_FALSE(pInitializeLPTPort(2, 9600, 3, 3) || UnInitializePort());
    EXPECT_EQ(os.TakeCalls(),
              "open LPT2; pause 100; "
              "apply 9600 8E1 cts w3 r3; pause 100; close");
}

}  // namespace
