// The modem link frame by frame: what the driver sends, and what it makes of every reply.
#include <fmt/format.h>

#include <cstring>
#include <fstream>
#include <map>
#include <semaphore>
#include <sstream>

#include "links/controller.h"
#include "port/device_server.h"
#include "support/driver_test.h"
#include "support/loopback_server.h"
#include "support/modem_frame.h"

namespace {

// The driver's frames by their names in modem_exchanges.txt.
const std::map<std::string, std::string> kBodies = {
    {"probe", "20010000,1B23"},
    {"ask", "20000500,1B30"},
    {"send", "20000000,1B07,0182FF7F"},
    {"version", "0000000001"},
    {"code", "0000000002,'nowe',00x4"},
    {"access", "0000000003,'code_123'"},
    {"write", "0000000004,0400"},
    {"read", "0000000005,2C01"},
    {"repeat", "0000000006"},
    {"rings", "0000000007,FA"},
    {"next", "0000000008"},
};

std::string Sent(const std::string& body) {
    return fmt::format(">{:02X}", fmt::join(modem::Frame(FromText(body)), ""));
}

std::string Reply(const std::string& text) {
    const char kind = text[0];
    const std::string rest = kind == '!' || kind == '~' || kind == '=' ? text.substr(1) : text;
    Bytes line = kind == '=' ? FromText(rest) : modem::Frame(FromText(rest));
    if (kind == '!') line[7] ^= 4;
    if (kind == '~') line.resize(line.size() - 2);
    return fmt::format("<{:02X}", fmt::join(line, ""));
}

// The bytes of a conversation of frames, as modem_exchanges.txt has them.
std::string Frames(const std::string& conversation) {
    std::string bytes, exchange, part;
    for (std::istringstream exchanges(conversation); exchanges >> exchange;) {
        std::istringstream parts(exchange);
        std::getline(parts, part, '<');
        bytes += Sent(kBodies.at(part));
        while (std::getline(parts, part, '<')) bytes += Reply(part);
    }
    return bytes;
}

class Modem : public DriverTest {
  protected:
    Modem() { Begin(); }
    ~Modem() override { Begin(); }
    void Begin(int repeats = 3) {
        Fresh();
        NrKanaluWKontrolerzeModemu = TransmisjaPrzezModem = 1;
        SzybkoscTransmisjiMiedzyKasaIKontrolerem = 9600;
        MaksymalnaLiczbaRetransmisji = static_cast<uint8_t>(repeats);
        os.modem_lines[0] = os.modem_lines[1] = platform::kLineCarrier;
        std::copy_n("code_123", kRozmiarAutoryzacji, Autoryzacja);
        std::copy_n("\x01\x82\xFF\x7F", 4, BajtyDoPoslania + 1);
        InicjujKompletniePortSzeregowy();
        TimeoutNadawania = 4;
        TimeoutOdbierania = 300;
        os.calls.clear();
    }
    // The outcome of something in which exactly these bytes have to be exchanged.
    int Talk(const std::string& bytes, const std::function<void()>& something) {
        device.Play(bytes);
        NumerBledu = 0;
        something();
        device.ExpectFinished();
        return NumerBledu;
    }
    int Exchange(const std::string& bytes, uint8_t command, uint8_t ack, uint8_t data, int answer) {
        return Talk(bytes, [=] { PoslanieSekwencjiSterujacej(command, ack, data, answer); });
    }
    // Does what a row of modem_exchanges.txt asks for.
    int Do(const std::string& task, const std::string& bytes) {
        if (task == "probe") return Exchange(bytes, 0x23, 1, 0, 0);
        if (task == "ask") return Exchange(bytes, 0x30, 0, 0, 5);
        if (task == "send") return Exchange(bytes, 0x07, 0, 4, 0);
        if (task == "version") {
            return Talk(bytes, [this] { version_ = NumerWersjiProgramuKontroleraModemu(); });
        }
        if (task == "code") {
            return Talk(bytes, [] { WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu("nowe"); });
        }
        EXPECT_EQ(task, "rings");
        return Talk(bytes, [] { WpisanieIlosciDzwonkowDoKontroleraModemu(250); });
    }
    // What a row of modem_exchanges.txt says about it, of which an answer has so many digits.
    std::string Held(const std::string& task, std::size_t hex_digits) const {
        if (task == "version") return version_;
        if (task == "code") return {Autoryzacja, std::find(Autoryzacja, Autoryzacja + 8, 0)};
        return fmt::format("{:02X}", fmt::join(Answer(hex_digits / 2), ""));
    }
    static Bytes Answer(std::size_t count) {
        return {BajtyOdebrane + 1, BajtyOdebrane + 1 + count};
    }

  private:
    std::string version_;
};

// Seven body bytes take eight on the line, eight take ten; top bits in every place.
TEST_F(Modem, FramesAreTheseBytes) {
    std::copy_n("\xD5\x82", 2, BajtyDoPoslania + 1);
    device.Play(">4B4F524158818DB08184809BFEF0D582F3A5<4B4F524158848B808680FF8182E082A1");
    PoslanieSekwencjiSterujacej(0xFE, 1, 2, 4);
    device.ExpectFinished();
    EXPECT_EQ(Answer(3), (Bytes{0xFF, 1, 2}));
}

TEST_F(Modem, AFrameTellsTheWholeSequence) {
    struct Row {
        uint8_t command, ack, data, answer;
        const char *body, *reply;
        uint8_t channel = 1;
        int baud = 9600;
        uint8_t type = 0;
    };
    for (const Row& row : {
             Row{0x07, 0, 4, 0, "20000000,1B07,0182FF7F", "00"},
             {0x42, 1, 2, 1, "30010100,1B42,0182", "00,0600"},
             {0xD5, 1, 0, 2, "2001021D,1BD5", "00,06,00FF"},  // a list of records
             {0x0B, 110, 0, 0, "206E001B,1B0B", "00,06FF"},
             {0x23, 1, 0, 0, "2A010000,1B23", "00,06", 3, 19200},
             {0x23, 1, 0, 0, "6E010000,1B23", "00,06", 71, 19200},
             {0x23, 1, 0, 0, "FF010000,1B23", "00,06", 0},
             {0xE5, 0, 0, 1, "60000100,1BE5", "00,FD"},  // a short answer
             {0xA0, 0, 0, 1, "60000100,1BA0", "00,06", 1, 9600, 115},
             {0xA0, 0, 0, 1, "20000100,1BA0", "00,00", 1, 9600, 116},
             {0x07, 0, 210, 0, "20000000,1B07,0182FF7F,00x206", "00"},
         }) {
        SCOPED_TRACE(row.body);
        Begin();
        NrKanaluWKontrolerzeModemu = row.channel;
        SzybkoscTransmisjiMiedzyKasaIKontrolerem = row.baud;
        SzczegoloweDaneOTypieUrzadzenia.type_code = row.type;
        const std::string bytes = Sent(row.body) + Reply(row.reply);
        EXPECT_EQ(Exchange(bytes, row.command, row.ack, row.data, row.answer), 0);
    }
    EXPECT_EQ(Exchange("", 0x07, 0, 211, 0), 32) << "too long for a frame";
    const auto continuation = [] { OgolnePoslanieSekwencjiSterujacej(2, 0x42, 1, 2, 1); };
    EXPECT_EQ(Talk(Sent("30010100,0182") + Reply("00,0600"), continuation), 0);
    Optimize = 1;
    const std::string frame = Sent("30010100,1B42,0182") + Reply("00,0600");
    EXPECT_EQ(Exchange(frame + ">0182", 0x42, 1, 2, 1), 0)
        << "the block write goes to the port, as it is meant";
}

TEST_F(Modem, RepliesAndTheirCorrection) {
    std::ifstream file(TESTS_DIR "/wire/modem_exchanges.txt");
    int rows = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        SCOPED_TRACE(line);
        std::istringstream columns(line);
        std::string repeats, task, conversation, outcome, held;
        for (std::string* column : {&repeats, &task, &conversation, &outcome, &held}) {
            std::getline(columns >> std::ws, *column, '|');
            column->erase(column->find_last_not_of(' ') + 1);
        }
        Begin(std::stoi(repeats));
        EXPECT_EQ(Do(task, Frames(conversation)), std::stoi(outcome));
        EXPECT_EQ(Held(task, held.size()), held);
        EXPECT_EQ(Bytes(BajtyDoPoslania + 1, BajtyDoPoslania + 5), FromText("0182FF7F"));
        EXPECT_EQ(Do("probe", Frames("probe<00,06")), 0) << "the next exchange is not touched";
        ++rows;
    }
    EXPECT_GT(rows, 60);
}

TEST_F(Modem, ALongAnswerIsCutToTheBuffer) {
    const std::string parts =
        Sent("2000FF00,1B30") + Reply("08,00x200") + Sent(kBodies.at("next")) + Reply("08,07x200");
    EXPECT_EQ(Exchange(parts, 0x30, 0, 0, 255), 0);
    EXPECT_EQ(BajtyOdebrane[199], 0);
    EXPECT_EQ(BajtyOdebrane[200], 7);
}

TEST_F(Modem, FailuresOfTheLine) {
    TimeoutNadawaniaPrzezModem = 7;
    TimeoutOdbieraniaPrzezModem = 8;
    InicjujKompletniePortSzeregowy();
    EXPECT_NE(os.TakeCalls().find(" w7 r8; pause 100"), std::string::npos);
    for (uint8_t code : Bytes{0, 9, 255}) {
        EXPECT_EQ(Talk("", [=] { PoslanieKoduSterujacegoDoModemu(code); }), 36) << int{code};
    }
    os.writable_bytes = 5;
    EXPECT_EQ(Do("probe", ">4B4F524158"), 32);
    os.modem_lines[0] = os.modem_lines[1] = 0x70;
    EXPECT_EQ(Do("probe", ""), 30);
}

// At every frame, not only when an exchange of the device's begins.
TEST_F(Modem, WhatTheLineStillHoldsIsNotTheReply) {
    os.Answer(modem::Frame(FromText("00,'old'")));
    device.Play(Frames("version<00,'new'"));
    EXPECT_STREQ(NumerWersjiProgramuKontroleraModemu(), "new");
}

TEST_F(Modem, StringsForTheModemItself) {
    const std::map<std::string, std::string> strings = {{"ATDT 12", ">'ATDT 12',0D"},
                                                        {"+++", ">'+++'"},
                                                        {"", ""},
                                                        {std::string(300, 'x'), ">78x254,0D"}};
    for (const auto& [text, sent] : strings) {
        EXPECT_EQ(Talk(sent, [&] { PoslanieNapisuDoModemu(text.c_str()); }), 0) << text;
        EXPECT_EQ(os.TakeCalls(), "pause 100; pause 100");
    }
    EXPECT_EQ(TimeoutNadawania, 4) << "put back";
    EXPECT_EQ(BudowacRamkeModemowa, 1) << "put back";
    os.writable_bytes = 0;
    EXPECT_EQ(Talk("", [] { PoslanieNapisuDoModemu("AT"); }), 32);
}

class FramesOverTcp : public DriverTest {
  protected:
    FramesOverTcp() { WyborSerweraUrzadzen = TransmisjaPrzezTCP = 1; }
    ~FramesOverTcp() override { WyborSerweraUrzadzen = 0; }
    static void Connect(const LoopbackServer& server) {
        std::strcpy(AdresSerweraUrzadzen, "127.0.0.1");
        PortTransmisjiSerweraUrzadzen = server.port();
        InicjujKompletniePortSzeregowy();
        ASSERT_EQ(ZainicjowanoPortSzeregowy, 1);
    }
    // Asks for one byte; the outcome.
    static int Ask() {
        PoslanieSekwencjiSterujacej(0x30, 0, 0, 2);
        return NumerBledu;
    }
};

TEST_F(FramesOverTcp, AnAnswerThatCameTooLateIsNotTheNextOnes) {
    std::counting_semaphore<9> may_answer(0);
    uint8_t asked = 0;
    const LoopbackServer server("127.0.0.1", 0, [&](const Bytes& bytes) {
        EXPECT_EQ(modem::Unframe(bytes), FromText("20000200,1B30"));
        may_answer.acquire();
        return modem::Frame({0, 0, ++asked});
    });
    Connect(server);
    TimeoutOdbierania = 0;
    EXPECT_EQ(Ask(), 33);
    may_answer.release();
    server.AwaitDelivered(1);
    TimeoutOdbierania = 5;
    for (uint8_t question = 2; question < 5; ++question) {
        may_answer.release();
        EXPECT_EQ(Ask(), 0);
        EXPECT_EQ(BajtyOdebrane[1], question);
    }
    EXPECT_EQ(os.TakeCalls(), "") << "the serial line has no part in it";
    OdinicjujPortSzeregowy();
}

TEST_F(FramesOverTcp, AConnectionThatIsGoneFailsTheExchange) {
    std::strcpy(AdresSerweraUrzadzen, "no address");
    InicjujKompletniePortSzeregowy();
    EXPECT_EQ(ZainicjowanoPortSzeregowy, 0);
    const LoopbackServer server("127.0.0.1", 0, [](const Bytes&) { return Bytes{}; });
    Connect(server);
    EXPECT_EQ(Ask(), 33);
    const int again = Ask();  // the system may know already when the frame is sent
    EXPECT_TRUE(again == 32 || again == 33) << again;
    OdinicjujPortSzeregowy();
}

}  // namespace
