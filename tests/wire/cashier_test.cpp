// Non-fiscal printouts, line feed, article query, raw sequence, user lines, register and cashier
// codes, and the customer display: three kinds, told apart by flags of which one is stale by
// design.
#include "support/driver_test.h"

namespace {

using Cashier = DriverTest;

TEST_F(Cashier, RawFramesHaveALengthThatWraps) {
    StartSession(2);
    CodePage1250 = 2;
    const auto line = [&](const std::string& words, int number, int feed, const char* sent) {
        Expect(sent, 0, pNonFiscalPrintoutLine, number, words.c_str(), feed);
    };
    line("ABC", 12, -1, ">'12ABC',0A");
    line(std::string(252, 'a'), 1, 1, ">'01',61x252,0A");
    line(std::string(253, 'a'), 1, 1, "");
    line(std::string(300, 'a'), 1, 1, ">'01',61x45");
    Expect("", 215, pNonFiscalPrintoutLine, 100, "x", 0);
    const auto free = [&](const std::string& words, const std::string& cases) {
        ExpectAll("", cases, pAddNonFiscalPrintoutLine, words.c_str());
    };
    free("", ">1B,'c',0A = 0");
    free(std::string(253, 'a'), " = 0");
    free(std::string(300, 'a'), ">1B,'c',61x45 = 0");
    const std::string head = ">1BB0'qBI:N1:10:30:',";
    free("B", head + "1BB3<06 = 0 | " + head + "1BB3<15 = 24 | " + head + "1BB3 = 21");
    free("Bx\xB9", head + "'x',B9,1BB3<00 = 0");
    free("B" + std::string(238, 'a'), head + "61x238,1BB3<06 = 0");
    free("B" + std::string(239, 'a'), " = 21");  // nothing is sent, an answer is waited for
}

TEST_F(Cashier, PrintoutsWaitForThePrinterAndTheirLinesDoNot) {
    StartSession(10);
    const std::string begin = kStopped + " = 112 | " + kReady, page = CodePage(10, 3, 2),
                      end = kReady + " = 0 | " + kStopped + "95<02 = 109";
    ExpectAll("", begin + "73<15 = 24 | " + kReady + "73<06>'99' = 0", NonFiscalPrintoutBegin, 99);
    Expect("", 215, NonFiscalPrintoutBegin, 100);
    ExpectAll("51 ", end, NonFiscalPrintoutEnd);
    const std::string control = "FF<15 = 24 | " + kReady + page + "3F<15 = 24 | " + kReady + page;
    ExpectAll("", begin + control + "3F<06 = 0", pControlPrintout, 1, nullptr, 0);
    EXPECT_EQ(CodePage1250, 2) << "asked at the beginning";
    ExpectAll("51 ", end, pControlPrintout, 2, nullptr, 0);
    for (int32_t line : {5, 0, -1, 257})
        Expect(">02,86,'leb',20x24", 0, pControlPrintout, line, "\xB9leb", 258);
    Expect(">01,'-- --'28", 0, pControlPrintout, 3, "-- --", 1);  // nothing significant: sent
    // A failed raw send gives the send time-out as the error.
    const auto failing = [&](const char* conversation, int32_t result, auto function, auto... a) {
        os.writable_bytes = 2;
        Expect(conversation, result, function, a...);
    };
    failing(">'01'", 5, pNonFiscalPrintoutLine, 1, "x", 1);  // the seconds of the time-out
    TimeoutNadawania = 70;
    failing(">1BB0<15", 105, pAddNonFiscalPrintoutLine, "Bx");  // NAK to half a frame
    failing(">02'x'", 20, pControlPrintout, 3, "x", 2);         // but not here
}

TEST_F(Cashier, ArticleQueryAndLineFeed) {
    int32_t rate = -1, kind = -1;
    for (int type = 1; type <= 13; ++type) {
        StartSession(type);
        const bool served = type >= 8 && type <= 12;
        const char* query = type <= 9 ? "EF<06>A5,'b'27<00,FEFE" : "EF<06>A4,'B'27<00,FEFE";
        const auto call = [&] { return pCheckArticle("\xB9\x62", &rate, &kind); };
        EXPECT_EQ(Call(served ? query : "", call), served ? 0 : 224);
        EXPECT_EQ(LastError(), 0) << "224 is not stored";
    }
    EXPECT_EQ(rate * 10 + kind, 2541);
    StartSession(10);
    Expect("EF<06>20x28<00,FFFF", 0, pCheckArticle, "", &rate, &kind);
    EXPECT_EQ(Call("EF<06>41x28<42", pCheckArticle, kLongText.c_str(), &rate, &kind), 202);
    EXPECT_EQ(LastError(), 0) << "202 is not stored";
    ExpectAll("EF", " = 21 | <15 = 24", pCheckArticle, "", &rate, &kind);  // the B is stale
    ExpectAll("EF<06>20x28<", "43 = 23 | 69 = 205 | 00,42 = 21", pCheckArticle, "", &rate, &kind);
    EXPECT_EQ(rate + kind, 0) << "untouched by failures";
    ExpectAll("46<", "06>2C = 0 | 15 = 24", WriteLineFeed, 300);
}

TEST_F(Cashier, RawSequenceNeedsNoSession) {
    OpenPort(1, 9600, 1, 1);
    ParagonRozpoczety = 1;
    uint8_t in[257], out[257];
    std::fill(in, in + 257, 0x55);
    std::fill(out, out + 257, 0x31);
    BajtyOdebrane[3] = 0xEE;
    Expect("66<06,0102", 0, RSSequence, 0x166, 3, 0, in, nullptr);
    EXPECT_EQ(Hex(Bytes(in, in + 4)), "01 02 EE 55");
    Expect("46", 0, RSSequence, 0x46, -1, INT32_MIN, in, out);
    Expect("12<06,77x254>31x255", 0, RSSequence, 0x12, INT32_MAX, 256, in, out);
    EXPECT_EQ(in[253] * 256 + in[255], 0x7755) << "at most 255 bytes";
}

TEST_F(Cashier, CodesByType) {
    for (int type = 1; type <= 13; ++type) {
        StartSession(type);
        CodePage1250 = 2;
        const bool framed = type == 10 || type == 11;
        const auto write = [&](std::string frame, std::string plain, int code, const char* text) {
            frame = framed ? ">1BB0'J'," + frame + ",1BB3<06" : "43<06>" + plain;
            Expect(frame, 0, pWriteECRCashierCode, code, text);
        };
        write("'7'3,'A'21", "'07A '", 7, "A");
        write("'-1'3,86,8D,91,20x18", "'-1',B9E6", -1, "\xB9\xE6\xEA");
        write("'12'3,'ab  z'21", "'12ab'", 12, "ab\x1F\x01z");
        const std::string sent = framed ? ">1BB0'J','7'3,'x'21,1BB3" : "43";
        ExpectAll(sent, "<15 = 24 |  = 21", pWriteECRCashierCode, 7, "x");
    }
}

TEST_F(Cashier, UserLineAndDisplayFrames) {
    StartSession(2);
    CodePage1250 = 2;
    Expect("94<7E 9C<06>0101,86,'bc'19<00", 0, WriteUserQuorra, 257, 1, "\xB9\x62\x63");
    const std::string line = "<00 9C<06>0000,61x40<00 = 0 | <00 9C<06>0000,61x40<6C = 208 | ",
                      status = "<81 = 107 | <80 = 102 | <15 = 107 |  = 21";  // NAK is one too
    ExpectAll("94", line + status, WriteUserQuorra, 0, 0, kLongText.c_str());
    const auto show = [&](const std::string& cases, int32_t number, const char* text, int stale) {
        for (uint8_t i = 1; i < 16; ++i) BajtyDoPoslania[i] = static_cast<uint8_t>(0xE0 + i);
        BajtyOdebrane[2] = static_cast<uint8_t>(stale);
        ExpectAll("56<06", cases, pDisplayGX450, number, text);
    };
    const std::string odd = "\xB9" + std::string(299, 'b');
    // The first kind: even positions keep what the buffer held (E2, E4, E6, E8).
    show("01 52<06>0A1B53 = 0 | 01 52<15 = 24", 2, "x", 0);
    show("FB 52<06>86,E2,86,E4,86,E6,86,0A1B53 = 0", 2, odd.c_str(), 0);
    // Numbered.
    show("04 52<06>0B'2ABC',0A1B53 = 0 | 04 52<01 = 101", 2, "ABC", 2);
    // Two lines, or none.
    show("00 52<06>0B,86,62x19,0A1B53 52<06>0C0A1B53 = 0", 0, odd.substr(0, 20).c_str(), 2);
    show("FA = 0", 0, "x", 0xFD);
    // Number 4 on each.
    show("05 52<06>0B300A1B53 75<06 = 0 | 04 52<15 = 24", 4, "x", 0);
    show("01 75<06 = 0 | 00 75<15 = 24", 4, "x", 2);
    const std::string numbered = "56<0604 52<06>0B'1x',0A1B53";
    ByType(false, {1, 2, 3, 5, 6}, 213, numbered, [] { return pDisplayGX450(1, "x"); });
    StartSession(3);
    show("00 52<06>19'x',0A1B53 52<06>0C0A1B53 = 0", 1, "x", 2);
}

}  // namespace
