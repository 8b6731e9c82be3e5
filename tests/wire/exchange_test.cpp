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
    static void ExpectLanded(const std::string& text) {
        const Bytes bytes = FromText(text);
        EXPECT_EQ(Hex(Bytes(BajtyOdebrane + 1, BajtyOdebrane + 1 + bytes.size())), Hex(bytes));
    }
};

TEST_F(Exchange, PhasesTellWhereTheBytesLand) {
    const struct {
        const char* conversation;
        int ack;  // bytes answered right after the command
        const char* data;
        int answer;          // bytes answered after the data
        const char* landed;  // found from index 1
    } cases[] = {{"21", 0, "", 0, ""},
                 {"23<06", 1, "", 0, "06"},
                 {"FE<06090807", 4, "", 0, "090807"},  // over the acknowledgement
                 {"07>01021B04", 0, "01021B04", 0, ""},
                 {"D5<06>0102", 1, "0102", 0, "06"},
                 {"30<06>05<00", 1, "05", 1, "00"},
                 {"30>05<0002030405", 0, "05", 5, "02030405"},  // over the status byte
                 {"30<060A0B>05<000C0D", 3, "05", 3, "0C0D"},
                 {"30<000708", 0, "", 3, "0708"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.conversation);
        EXPECT_EQ(Run(c.conversation, c.ack, c.data, c.answer), 0);
        ExpectLanded(c.landed);
    }
}

TEST_F(Exchange, TheStatusByteOfOneCommandTellsTheLength) {
    const struct {
        const char* conversation;
        uint8_t model;
        int answer, result;
        const char* landed;
    } cases[] = {{"E5>77<FA,40x42", 0, 1, 0, "40x42"},
                 {"E5>77<FA,40x38", 27, 1, 0, "40x38"},
                 {"E5>77<FB,40x17", 24, 1, 0, "40x17"},
                 {"E5>77<FC,40x8", 0, 200, 0, "40x8"},
                 {"E5>77<FE", 0, 9, 0, "00"},
                 {"E5>77<F9", 0, 9, 23, "F9"},
                 {"E5>77<FF", 0, 9, 23, "FF"},
                 {"A0>77<06,0102", 115, 3, 0, "0102"},  // 6 is success for older models
                 {"A0>77<06", 116, 3, 23, "06"},
                 {"A0>77<64", 0, 3, 200, "64"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.conversation);
        SzczegoloweDaneOTypieUrzadzenia.type_code = c.model;
        EXPECT_EQ(Run(c.conversation, 0, "77", c.answer), c.result);
        ExpectLanded(c.landed);
    }
}

TEST_F(Exchange, SomeCommandsHaveRulesOfTheirOwn) {
    for (const std::string command : {"94", "95", "96", "9B", "9F", "F4"}) {
        EXPECT_EQ(Run(command + "<C80102", 3, "", 0), 0) << command << ": the answer comes first";
        ExpectLanded("0102");
    }
    for (const std::string command : {"72", "31", "F9", "11"}) {
        EXPECT_EQ(Run(command + "<7A0102", 0, "", 3), 0) << command << ": no status is checked";
        ExpectLanded("0102");
    }
    for (const std::string command : {"9A", "FC", "4D", "E5"}) {
        EXPECT_EQ(Run(command + "<FD" + (command == "E5" ? "" : "00"), 0, "", 2), 0) << command;
        EXPECT_EQ(BajtyOdebrane[255], 0xFD) << command << ": its status is set aside";
        EXPECT_EQ(BajtyOdebrane[1], 0) << command;
    }
}

TEST_F(Exchange, AnAcknowledgementOtherThanAckIsAnErrorByMode) {
    const struct {
        const char* byte;
        int normal, plain;  // a continuation and the plain mode know two errors only
    } cases[] = {{"15", 24, 24}, {"01", 101, 23}, {"65", 201, 23}, {"C8", 26, 23}, {"86", 23, 23}};
    for (const auto& [byte, normal, plain] : cases) {
        SCOPED_TRACE(byte);
        EXPECT_EQ(Run(std::string("D5<") + byte, 2, "0102", 1, kTrybZwykly), normal);
        EXPECT_EQ(Run(std::string("D5<") + byte, 2, "0102", 1, kTrybProstePotwierdzenie), plain);
        os.Answer(FromText(byte));  // a continuation neither purges nor sends the command
        EXPECT_EQ(Run("", 2, "0102", 1, kTrybKontynuacja), plain);
    }
    os.Answer({6});
    EXPECT_EQ(Run(">0102<00", 1, "0102", 1, kTrybKontynuacja), 0) << "from the acknowledgement on";
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

TEST_F(Exchange, TwoBytesBelongToOneStatusInAListOfRecordsToo) {
    // Of the two kinds of command only the second one has records, which FF would end.
    for (const std::string head : {"30>00", "47>00"}) {
        for (const char* bytes : {"0134", "FF34", "34FF", "FFFF"}) {
            SCOPED_TRACE(head + " " + bytes);
            EXPECT_EQ(Run(head + "<7A" + bytes, 0, "00", 100), 222);
            ExpectLanded(bytes);
        }
        EXPECT_EQ(Run(head + "<7A01", 0, "00", 100), 21) << "the second one does not come";
    }
}

TEST_F(Exchange, ListsOfRecordsEndAtTheirMark) {
    // Command and first data byte, length of a record (0: the list has no early end), model code.
    const struct {
        std::string head;
        int length, model;
    } lists[] = {{"47>00", 13, 0},   {"48>00", 13, 0},   {"61>00", 38, 0},   {"A1>83", 38, 0},
                 {"A1>00", 17, 0},   {"A1>80", 17, 0},   {"A1>01", 21, 0},   {"A1>02", 30, 116},
                 {"A1>82", 30, 116}, {"A1>02", 33, 117}, {"A1>82", 33, 118}, {"A1>10", 12, 0},
                 {"A2>00", 11, 0},   {"A3>00", 11, 0},   {"A5>00", 11, 0},   {"AD>00", 16, 0},
                 {"AE>00", 16, 0},   {"D5>00", 29, 0},   {"D6>00", 29, 0},   {"E7>00", 4, 0},
                 {"E9>00", 20, 0},   {"EE>00", 20, 0},   {"EA>00", 8, 0},    {"30>00", 0, 0},
                 {"A1>04", 0, 0}};
    for (const auto& [head, length, model] : lists) {
        SzczegoloweDaneOTypieUrzadzenia.type_code = static_cast<uint8_t>(model);
        // FF inside a record does not end the list, at its beginning it does.
        const std::string records = "01,FFx" + std::to_string(length == 0 ? 98 : length);
        EXPECT_EQ(Run(head + "<00," + records, 0, &head[3], 100), 0) << head;
        ExpectLanded(records);
        const std::string empty = length == 0 ? records : "FF";
        EXPECT_EQ(Run(head + "<00," + empty, 0, &head[3], 100), 0) << head;
    }
    for (const std::string command : {"0A", "0B"}) {
        EXPECT_EQ(Run(command + "<06,01,FFx27", 110, "", 0), 0);
        EXPECT_EQ(Run(command + "<06,FFx108", 109, "", 0), 0) << "only with 110 bytes";
        EXPECT_EQ(Run(command + "<06,FFx109,00", 110, "", 1), 0) << "only with no answer after it";
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
