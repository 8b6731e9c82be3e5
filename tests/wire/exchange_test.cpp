// One control-sequence exchange: bytes, lengths, command-specific rules, failures.
#include "engine/xorpro.h"
#include "support/driver_test.h"

namespace {

class Exchange : public DriverTest {
  protected:
    Exchange() { InicjujKompletniePortSzeregowy(); }
    // The error number of an exchange with this conversation, which begins with the command byte.
    int Run(const std::string& conversation, int ack, const char* data, int answer, int mode = 0) {
        const bool sent = !conversation.empty() && mode != 2;
        const uint8_t command = sent ? FromText(conversation.substr(0, 2))[0] : 0xD5;
        const Bytes bytes = FromText(data);
        std::copy(bytes.begin(), bytes.end(), BajtyDoPoslania + 1);
        return Call(conversation, [&] {
            NumerBledu = 0;
            OgolnePoslanieSekwencjiSterujacej(
                static_cast<uint32_t>(mode), command, static_cast<uint8_t>(ack),
                static_cast<uint8_t>(bytes.size()), static_cast<uint8_t>(answer));
            EXPECT_EQ(WTrakcieSekwencjiSterujacej, 0) << "cleared on every way out";
            return NumerBledu;
        });
    }
};

TEST_F(Exchange, SomeCommandsHaveTheirStatusSetAside) {
    for (const std::string command : {"9A", "FC", "4D", "E5"}) {
        EXPECT_EQ(Run(command + "<FD" + (command == "E5" ? "" : "00"), 0, "", 2), 0) << command;
        EXPECT_EQ(BajtyOdebrane[255], 0xFD) << command;
        EXPECT_EQ(BajtyOdebrane[1], 0) << command;
    }
}

TEST_F(Exchange, StatusBytesBecomeErrorNumbers) {
    for (int status = 1; status < 256; ++status) {
        const bool named = (status > 1 && status <= 18 && status != 6) || status == 115 ||
                           status == 117 || (status >= 100 && status <= 112 && status != 110) ||
                           (status >= 120 && status <= 132);
        const std::string answer =
            Hex({static_cast<uint8_t>(status)}) + (status == 122 ? "FF34" : "");
        const int unnamed = status == 19 ? 46 : 23;
        ASSERT_EQ(Run("30>05<" + answer, 0, "05", 9), named ? status + 100 : unnamed);
    }
}

TEST_F(Exchange, ALinkThatFailsIsTwentyOrTwentyOneAfterOneTimeout) {
    for (const char* conversation : {"FE", "FE<06", "FE<0601"}) {
        const uint64_t start = os.now_ms;
        EXPECT_EQ(Run(conversation, 3, "", 0), 21);
        EXPECT_EQ(os.now_ms - start, 3000u);
    }
    os.peer = nullptr;
    for (uint32_t bytes = 0; bytes < 5; ++bytes) {
        for (Optimize = 0; Optimize < 2; ++Optimize) {
            os.writable_bytes = bytes;
            EXPECT_EQ(Run("", 0, "010203", 1), 20) << bytes;
        }
    }
    OdinicjujPortSzeregowy();
    EXPECT_EQ(Run("", 1, "", 0), 20) << "a closed port";
}

TEST_F(Exchange, OptimizedDataLeaveInOneWriteAndStaleInputIsDiscardedFirst) {
    for (Optimize = 0; Optimize < 2; ++Optimize) {
        EXPECT_EQ(Run("07>010203", 0, "010203", 0), 0);
        EXPECT_EQ(os.writes.back(), Optimize ? 3u : 1u);
    }
    os.calls.clear();
    os.Answer({0x15, 0x15});
    device.Play("FE<060102");
    PoslanieSekwencjiSterujacej(0xFE, 3, 0, 0);
    EXPECT_EQ(NumerBledu, 0);
    EXPECT_EQ(LicznikBajtowOdebranych, 3);
    EXPECT_EQ(std::exchange(os.discarded_bytes, 0), 2u);
    EXPECT_EQ(os.TakeCalls(), "purge out; purge in");
}

TEST_F(Exchange, ARemainderByNothingIsNothing) {
    EXPECT_EQ(Moje_fmod(7, 3), 1);
    EXPECT_EQ(Moje_fmod(7, 0), 0);
}

TEST_F(Exchange, IsMarkedWhileItGoesOn) {
    struct Observer : memory::Peer {
        uint8_t mark = 0;
        void HostSent(const Bytes&) override { mark = WTrakcieSekwencjiSterujacej; }
    } observer;
    os.peer = &observer;
    Run("", 0, "", 0);
    EXPECT_EQ(observer.mark, 1);
}

TEST_F(Exchange, CheckSumsOfReceivedBytesAreVerified) {
    const struct {
        uint8_t first, count;
        int error;
    } cases[] = {{1, 3, 0}, {1, 2, 46}, {1, 0, 46}, {253, 3, 0}, {254, 3, 46}};
    for (const auto& [first, count, error] : cases) {
        std::ranges::copy(FromText("010203"), BajtyOdebrane + 1);
        std::ranges::copy(FromText("010203"), BajtyOdebrane + 253);
        NumerBledu = 0;
        SprawdzSumeXORBajtowOdebranych(0, first, count);
        EXPECT_EQ(NumerBledu, error) << int{first} << " and " << int{count};
    }
}

TEST_F(Exchange, NivoNeedsItsKeyboardHardware) {
    KomunikacjaDlaNivy = 1;
    const struct {
        const char* lines;  // while RTS is low and high: DSR 20, carrier 80; DSR has to follow RTS
        uint8_t required;
        int reason;
    } cases[] = {
        {"0000", 1, 256}, {"A0A0", 1, 256}, {"0020", 1, 257}, {"80A0", 1, 0}, {"0000", 0, 0}};
    for (const auto& [lines, required, reason] : cases) {
        SCOPED_TRACE(lines);
        WymaganySprzetDoFunkcjiSpecjalnych = required;
        std::ranges::copy(FromText(lines), os.modem_lines);
        EXPECT_EQ(Run(reason == 0 ? "23<06" : "", 1, "", 0), reason == 0 ? 0 : 57);
        EXPECT_EQ(DlaczegoNiemozliwaFunkcjaSpecjalna, reason);
    }
    os.calls.clear();
    WykrytoHardwareKlawiaturySpecjalnej();
    EXPECT_EQ(os.TakeCalls(), "RTS on; sleep 100; modem lines; RTS off; sleep 100; modem lines");
}

}  // namespace
