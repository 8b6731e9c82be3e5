// Which device is on the line, its code page, and whether it can print.
#include "support/driver_test.h"

namespace {

using Identification = DriverTest;

TEST_F(Identification, AnswersThatNameNoModelOrFail) {
    for (const auto& [conversation, result, expected_type, expected_version] :
         {std::tuple("FF<06FF", 0, 13, 0),
          {"FF<0612 FE<06800900", 0, 7, 9},
          {"FF<062C FE<15", 0, 3, 0},
          {"FF<0602", 0, 1, 66},
          {"FF<0612 FE<067D", 21, 55, 66},
          {"FF<15", 24, 55, 66}}) {
        StartSession(10);
        KomunikacjaInit = 0;  // it starts no session by itself
        int32_t type = 55, version = 66;
        EXPECT_EQ(Call(conversation, DeviceType, &type, &version), result) << conversation;
        EXPECT_EQ(type * 100 + version, expected_type * 100 + expected_version) << conversation;
        EXPECT_EQ(LastError(), result);
    }
    EXPECT_EQ(Call(Identify(12, 4), xProgramVersion), 4);
    EXPECT_EQ(Call("FF<15", xDeviceType), 12);
    EXPECT_EQ(LastError(), 24);
}

TEST_F(Identification, NamesAreThoseOfTheSession) {
    char name[20];
    for (const auto& [type, expected] : {std::pair(7, "QUORRAF (apteczna)"), {12, "TOLA F E"}}) {
        StartSession(type);
        EXPECT_EQ(pDeviceName(name), 0);
        EXPECT_STREQ(name, expected);
    }
    Urzadzenie = 14;
    EXPECT_STREQ(xDeviceName(), "NIEZNANE");
    CommunicationEnd();
    EXPECT_EQ(pDeviceName(name), 2);
    EXPECT_STREQ(name, "TOLA F E") << "untouched";
}

TEST_F(Identification, CodePage) {
    const std::string ask = " CF<06>02,'code_page'40<";
    for (const auto& [type, version, conversation, result, expected] : {
             std::tuple(7, 3, std::string(), 0, 0),  // older types are never asked
             {13, 3, "", 0, 0},
             {8, 3, "C3<06F70000", 0, 0},  // a bit of the status
             {8, 3, "C3<06'19',00", 0, 2},
             {10, 1, "C3<06'19',00", 0, 2},                      // an old one has no parameter
             {10, 2, "C3<06080000" + ask + "00,'16'40", 0, 0},   // against the bit
             {11, 2, "C3<06080000" + ask + "00,'42'40", 0, 1},   // unknown: the bit
             {10, 2, "C3<06'19',00" + ask + "00,'xx'40", 0, 0},  // digits do not count then
             {10, 2, "C3<15", 24, 77},
             {10, 2, "C3<06000000" + ask + "75", 217, 0},
         }) {
        StartSession(type, version);
        int32_t page = 77;
        EXPECT_EQ(Call(Identify(type, version) + conversation, IsCodePage1250, &page), result);
        EXPECT_EQ(page, expected) << conversation;
    }
}

TEST_F(Identification, PrintCheck) {
    const std::string ready = "95<00 94<00 95<00";
    // The states are bits of A, B and B: busy, held, stopped.
    for (const auto& [before, conversation, result] : {
             std::tuple(0, "95<00 " + ready, 0),
             {0, "95<02", 109},
             {0, "95<00 95<80", 102},
             {0, "95<00 95<04", 103},
             {0, "95<84 95<00 94<00 95<C4 95<80", 102},  // failures count at the round's head
             {0, "95<00 95<02 94<00 95<02", 0},          // and paper before the first round
             {1, "95<00 95<00 94<00 95<01 95<00 " + ready, 0},     // 010 polls
             {1, "95<00 95<00 94<02 95<01 95<00 " + ready, 0},     // 110
             {0, "95<00 95<00 94<02 95<00 95<00 " + ready, 0},     // 100, after printing
             {1, "95<00 95<00 94<02 95<00", 112},                  // 100, before printing
             {2, "95<00 95<00 94<02 95<00 " + ready, 0},           // 100 with another argument
             {0, "95<00 95<00 94<00 95<41", 112},                  // 011
             {1, "95<00 95<00 94<02 95<41", 112},                  // 111
             {0, "95<00 95<00 94<00 95<40 " + ready, 0},           // 001 does not ask for paper
             {1, "95<00 95<00 94<02 95<40 95<00 94<FD 95<00", 0},  // 101
             {0, "95<00 95<00 94<00 95<40 95<00 94<00 95", 21},    // silence ends the polling
         }) {
        StartSession(4);
        EXPECT_EQ(Call(conversation, PrintControl, before), result) << conversation;
        EXPECT_EQ(LastError(), result);
    }
}

}  // namespace
