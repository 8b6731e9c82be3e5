// The modem link frame by frame: what the driver sends, and what it makes of every reply.
#include "links/modster.h"

#include <fmt/format.h>

#include <map>
#include <sstream>

#include "support/driver_test.h"
#include "support/modem_controller.h"

namespace {

// Bodies of the frames that the driver sends most: a probe, a sequence answered by five bytes, and
// control codes.
constexpr const char* kBodies =
    "P 20010000,1B23 Q 20000500,1B30 D 20000000,1B07,0182FF7F V 0000000001 C "
    "0000000002,'nowe',00x4 "
    "A 0000000003,'code_123' W 0000000004,0400 T 0000000005,2C01 R 0000000006 B 0000000007,FA "
    "N 0000000008";

// Turns exchanges of bodies, "P<0006+R<!0006", into those of frames. A reply is damaged by "!", cut
// off by "%", and taken as it is behind "=".
std::string Frames(const std::string& text) {
    std::string frames, exchange, part, name, body;
    for (std::istringstream exchanges(text); std::getline(exchanges, exchange, '+');) {
        std::istringstream parts(exchange);
        for (char sign = '>'; std::getline(parts, part, '<'); sign = '<') {
            const char kind = part[0];
            if (kind == '!' || kind == '%' || kind == '=') part.erase(0, 1);
            for (std::istringstream bodies(kBodies); bodies >> name >> body;)
                if (name == part) part = body;
            Bytes line = kind == '=' ? FromText(part) : modem::Frame(FromText(part));
            if (kind == '!') line[7] ^= 4;
            if (kind == '%') line.resize(line.size() - 2);
            frames += fmt::format("{}{:02X}", sign, fmt::join(line, ""));
        }
        frames += ' ';
    }
    return frames;
}

// Sequences by their five arguments, their frame and its reply, the controller's channel and speed,
// and the device's type.
constexpr const char* kSequences =
    "7 0 4 0 20000000,1B07,0182FF7F<00 1 9600 0 66 1 2 1 30010100,1B42,0182<00,0600 1 9600 0 "
    "213 1 0 2 2001021D,1BD5<00,06,00FF 1 9600 0 11 110 0 0 206E001B,1B0B<00,06FF 1 9600 0 "
    "35 1 0 0 2A010000,1B23<00,06 3 19200 0 35 1 0 0 6E010000,1B23<00,06 71 19200 0 "
    "35 1 0 0 FF010000,1B23<00,06 0 9600 0 229 0 0 1 60000100,1BE5<00,FD 1 9600 0 "
    "160 0 0 1 60000100,1BA0<00,06 1 9600 115 160 0 0 1 20000100,1BA0<00,00 1 9600 116 "
    "7 0 210 0 20000000,1B07,0182FF7F,00x206<00 1 9600 0 ";

// The limit of repeats, a probe, its outcome: noise and restarted syncs, repeats, lengths that no
// frame has, refused frames, demands, and every reply code.
constexpr const char* kReplies =
    "3 P<=0055AA<00,06 0 3 P<='KO'<00,06 0 3 P<=554F52415880868086E083 0 3 P<00,15 24 "
    "3 P<00 45 3 P 33 3 P<!00,06+R<00,06 0 3 P<!00,06+R<%00,06+R<00,06 0 0 P<!00,06 34 "
    "3 P<!00,06+R<!00,06+R<!00,06+R<00,06 0 3 P<%00,06+R<!00,06+R<!00,06+R<!00,06 34 "
    "0 P<='KORAX',8080 34 0 P<='KORAX',8081 34 0 P<='KORAX',8084 34 0 P<='KORAX',C0FF 34 "
    "0 P<='KORAX',C0FC 34 3 P<01+P<01+P<00,06 0 1 P<01+P<01 35 0 P<01 35 "
    "3 P<10+A<00+P<10 39 3 P<20+W<00+P<40+T<00+P<00,06 0 3 P<20+W<00+P<20 40 3 P<40+T<40 41 "
    "3 P<70+A<60+W<40+T<00+P<00,06 0 3 P<02 36 3 P<03 37 3 P<74 38 3 P<05 20 3 P<45+T<05 20 "
    "3 P<06 21 3 P<07 42 3 P<09 43 3 P<0F 43 3 P<80 43 ";

// Exchanges of an answer in parts, their outcome and what is held then.
constexpr const char* kLongAnswers =
    "Q<08,0001+N<08,020384 0 01020384 Q<08,0001+N<!08,020384+R<08,020384 0 01020384 "
    "Q<!08,0001+R<08,0001+N<08,020384 0 01020384 Q<08,0001+N<00,0001020384 0 01020384 "
    "Q<08,0001+N<18,020384 0 01020384 Q<01+Q<10+A<00+Q<08,00+N<08,01020384 0 01020384 "
    "Q<08,0001+N 33 0001 Q<08,0001+N<01 45 01";

// Demands for the controller's version, their outcome and the version.
constexpr const char* kVersions =
    "V<00,'KONTROLER_27!' 0 KONTROLER_27 V<!00,'?'+R<00,'1.1' 0 1.1 V<01+V<00,'1.0' 0 1.0 "
    "V<%00,'?'+R<00+V<00,'1.2' 0 1.2 V<10+A<00+V<00,'1.3' 0 1.3 V<02 36 -";

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
    // The outcome of something in which exactly these frames have to be exchanged.
    int Talk(const std::string& frames, const std::function<void()>& something) {
        Call(Frames(frames), [&] { return something(), 0; });
        return NumerBledu;
    }
    int Exchange(const std::string& frames, int command, int ack, int data, int answer) {
        const auto byte = [](int value) { return static_cast<uint8_t>(value); };
        return Talk(frames, [=] {
            PoslanieSekwencjiSterujacej(byte(command), byte(ack), byte(data), answer);
        });
    }
    int Probe(const std::string& frames) { return Exchange(frames, 0x23, 1, 0, 0); }
    static Bytes Answer(std::size_t count) {
        return {BajtyOdebrane + 1, BajtyOdebrane + 1 + count};
    }
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
    int command, ack, data, answer, channel, baud, type;
    std::string frames;
    for (std::istringstream rows(kSequences);
         rows >> command >> ack >> data >> answer >> frames >> channel >> baud >> type;) {
        Begin();
        NrKanaluWKontrolerzeModemu = static_cast<uint8_t>(channel);
        SzybkoscTransmisjiMiedzyKasaIKontrolerem = baud;
        SzczegoloweDaneOTypieUrzadzenia.kodTypu = static_cast<uint8_t>(type);
        EXPECT_EQ(Exchange(frames, command, ack, data, answer), 0) << frames;
    }
    EXPECT_EQ(Exchange("", 0x07, 0, 211, 0), 32) << "too long for a frame";
    NumerBledu = 0;
    const auto continuation = [] { OgolnePoslanieSekwencjiSterujacej(2, 0x42, 1, 2, 1); };
    EXPECT_EQ(Talk("30010100,0182<00,0600", continuation), 0);
    Optimize = 1;
    device.Play(Frames("30010100,1B42,0182<00,0600") + ">0182");
    EXPECT_EQ(Exchange("", 0x42, 1, 2, 1), 0) << "the block write goes to the port, as it is meant";
}

TEST_F(Modem, RepliesAndTheirCorrection) {
    int repeats, result;
    std::string frames;
    for (std::istringstream rows(kReplies); rows >> repeats >> frames >> result;) {
        Begin(repeats);
        EXPECT_EQ(Probe(frames), result) << frames;
        EXPECT_EQ(Probe("P<00,06"), 0) << "after " << frames;
    }
    EXPECT_EQ(Exchange("D<!00+R<00", 7, 0, 4, 0), 0);
    EXPECT_EQ(LicznikRetransmisjiZKontroleraModemu - LicznikRetransmisjiDoKontroleraModemu, 1);
}

TEST_F(Modem, LongAnswersComeInParts) {
    int result;
    std::string frames, answer;
    for (std::istringstream rows(kLongAnswers); rows >> frames >> result >> answer;) {
        Begin();
        EXPECT_EQ(Exchange(frames, 0x30, 0, 0, 5), result) << frames;
        EXPECT_EQ(Answer(answer.size() / 2), FromText(answer)) << frames;
    }
    EXPECT_EQ(Exchange("2000FF00,1B30<08,00x200+N<08,07x200", 0x30, 0, 0, 255), 0) << "cut to 255";
    EXPECT_EQ(BajtyOdebrane[199] + BajtyOdebrane[200], 7);
}

TEST_F(Modem, FailuresOfTheLine) {
    TimeoutNadawaniaPrzezModem = 7;
    TimeoutOdbieraniaPrzezModem = 8;
    InicjujKompletniePortSzeregowy();
    EXPECT_NE(os.TakeCalls().find(" w7 r8; pause 100"), std::string::npos);
    TimeoutNadawaniaPrzezModem = TimeoutOdbieraniaPrzezModem = 3;
    for (uint8_t code : Bytes{0, 9, 255}) {
        NumerBledu = 0;
        EXPECT_EQ(Talk("", [=] { PoslanieKoduSterujacegoDoModemu(code); }), 36);
    }
    os.writable_bytes = 5;
    device.Play(">4B4F524158");
    EXPECT_EQ(Probe(""), 32);
    os.modem_lines[0] = os.modem_lines[1] = 0x70;
    EXPECT_EQ(Probe(""), 30);
}

TEST_F(Modem, ControllerCommands) {
    int result;
    std::string frames, version, expected;
    for (std::istringstream rows(kVersions); rows >> frames >> result >> expected;) {
        NumerBledu = 0;
        const auto ask = [&] { version = NumerWersjiProgramuKontroleraModemu(); };
        EXPECT_EQ(Talk(frames, ask), result) << frames;
        EXPECT_EQ(version, result == 0 ? expected : "");
    }
    const auto code = [] { WpisanieHaslaDlaAutoryzacjiDoKontroleraModemu("nowe"); };
    EXPECT_EQ(Talk("C<04", code), 38);
    EXPECT_EQ(Autoryzacja[0], 'c') << "the old one is still in force";
    EXPECT_EQ(Talk("C<00", code), 0);
    EXPECT_EQ(Bytes(Autoryzacja, Autoryzacja + 8), FromText("'nowe',00x4"));
    EXPECT_EQ(Talk("B<01+B<00", [] { WpisanieIlosciDzwonkowDoKontroleraModemu(250); }), 0);
    EXPECT_EQ(Bytes(BajtyDoPoslania + 1, BajtyDoPoslania + 5), FromText("0182FF7F")) << "put back";
}

TEST_F(Modem, StringsForTheModemItself) {
    const std::map<std::string, std::string> strings = {{"ATDT 12", ">'ATDT 12',0D"},
                                                        {"+++", ">'+++'"},
                                                        {"", ""},
                                                        {std::string(300, 'x'), ">78x254,0D"}};
    for (const auto& [text, sent] : strings) {
        device.Play(sent);
        PoslanieNapisuDoModemu(text.c_str());
        device.ExpectFinished();
        EXPECT_EQ(os.TakeCalls(), "pause 100; pause 100");
    }
    EXPECT_EQ(NumerBledu + TimeoutNadawania + BudowacRamkeModemowa, 0 + 4 + 1);
    os.writable_bytes = 0;
    PoslanieNapisuDoModemu("AT");
    EXPECT_EQ(NumerBledu, 32);
}

}  // namespace
