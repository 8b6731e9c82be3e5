// Repeats after a receive time-out, the controlling server's commands, and error numbers.
#include "links/msgqueue.h"
#include "support/driver_test.h"

namespace {

constexpr uint32_t kNumber = 0xC123;

class Routing : public DriverTest {
  protected:
    Routing() { InicjujKompletniePortSzeregowy(); }
    // The outcome of a probe in which this conversation has to take place.
    int Probe(const std::string& conversation) {
        os.calls.clear();
        Call(conversation, [] { return PoslanieSekwencjiSterujacej(0x23, 1, 0, 0), 0; });
        return NumerBledu;
    }
    static platform::WindowMessage Command(int letter, intptr_t value = 0,
                                           uint32_t process = memory::kProcessId) {
        return {kNumber, process, letter | value << 8};
    }
    // The posted messages as "C5 S0".
    static std::string Posted() {
        std::string text;
        for (const auto& message : os.posted) {
            EXPECT_EQ(message.number, kNumber);
            EXPECT_EQ(message.wparam, memory::kProcessId);
            if (!text.empty()) text += " ";
            text += static_cast<char>(message.lparam & 0xFF) + std::to_string(message.lparam >> 8);
        }
        os.posted.clear();
        return text;
    }
};

TEST_F(Routing, OnlyAReceiveTimeoutIsRepeated) {
    for (const auto& [allowed, first, conversation, attempts, result] :
         {std::tuple(0, 0, "23", 1, 21),
          {0, 1, "23", 1, 21},
          {1, 1, "23 23", 2, 21},  // the first exchange
          {1, 0, "23 23 23 23", 4, 21},
          {1, 0, "23 23 23<06", 3, 0},
          {1, 0, "23 23<15", 2, 24}}) {
        SCOPED_TRACE(conversation);
        RetransmitowacSekwencjeSterujaca = static_cast<uint8_t>(allowed);
        PierwszaSekwencjaSterujaca = static_cast<uint8_t>(first);
        LicznikPoslanychSekwencjiSterujacych = 0;
        EXPECT_EQ(Probe(conversation), result);
        EXPECT_EQ(PierwszaSekwencjaSterujaca, 0);
        EXPECT_EQ(LicznikPoslanychSekwencjiSterujacych, static_cast<uint32_t>(attempts));
    }
    Call("30<00", [] { return PoslanieSekwencjiSterujacej(0x30, 0, 0, 257), 0; });
    EXPECT_EQ(NumerBledu, 0) << "the answer's length is used as a byte";
}

TEST_F(Routing, OneServerCommandIsHandledBeforeEachExchange) {
    LicznikPoslanychSekwencjiSterujacych = 41;
    LicznikOdczytanychLiniiZPlikuWejsciowego = 0x1000001;
    LicznikZapisanychLiniiDoPlikuWyjsciowego = 8;
    InitMsgID_(kNumber);
    for (char letter : std::string("lacorbz")) os.pending.push_back(Command(letter));
    for (const char* reply : {"L16777215", "A0", "C43", "O8", "R0"}) {
        EXPECT_EQ(Probe("23<06"), 0);
        EXPECT_EQ(Posted(), reply);
    }
    EXPECT_EQ(Probe(""), 56) << "break";
    EXPECT_EQ(Posted(), "B0");
    EXPECT_EQ(Probe(""), 54) << "an unknown command";
    EXPECT_EQ(Posted(), "");
    EXPECT_EQ(os.TakeCalls(), "") << "the port is not touched";
    EXPECT_EQ(LicznikPoslanychSekwencjiSterujacych, 46u) << "nor is an abandoned exchange counted";

    CoIleSygnalizowacLicznikPoslanychSekwencji = 2;
    for (int i = 0; i < 5; ++i) Probe("23<15");
    EXPECT_EQ(Posted(), "C48 C50") << "the counter, every second exchange";
}

TEST_F(Routing, SuspendedItWaitsForTheServer) {
    InitMsgID_(kNumber);
    os.pending = {Command('s')};
    os.arriving = {Command('s'), Command('c'), {5, 0, 0}, Command('r')};
    EXPECT_EQ(Probe("23<06"), 0);
    EXPECT_EQ(Posted(), "S0 S0 C0 R0");
    const std::string wait = "wait for message; ",
                      calls = "purge out; purge in; close; " + wait + wait + wait + wait + "open";
    EXPECT_EQ(os.TakeCalls().substr(0, calls.size()), calls);
    EXPECT_EQ(os.dispatched, std::vector<uint32_t>{5});
    os.pending = {Command('r')};
    EXPECT_EQ(Probe("23<06"), 0);
    EXPECT_EQ(os.TakeCalls(), "purge out; purge in") << "a RESUME that nothing went before";
    EXPECT_EQ(Posted(), "R0");
    os.pending = {Command('s')};
    os.arriving = {Command('b')};
    EXPECT_EQ(Probe(""), 56);
    EXPECT_EQ(FunkcjaWStanieUspienia, 1) << "only RESUME ends it";
    EXPECT_EQ(ZainicjowanoPortSzeregowy, 0) << "only RESUME opens it";
    EXPECT_EQ(Posted(), "S0 B0");
    EXPECT_EQ(Probe(""), 56) << "a program that is told to quit is not held";
    EXPECT_EQ(FunkcjaWStanieUspienia, 1);
    EXPECT_EQ(Posted(), "") << "the server has not broken it";
}

TEST_F(Routing, OtherMessagesAreDispatchedOrDropped) {
    os.pending = {Command('b'), {1, 0, 0}};
    CoIleSygnalizowacLicznikPoslanychSekwencji = 1;
    EXPECT_EQ(Probe("23<06"), 0) << "an inactive link takes and posts nothing";
    EXPECT_FALSE(MsgToServer_('A', 0));
    EXPECT_EQ(os.pending.size(), 2u);
    EXPECT_EQ(Posted(), "");
    CoIleSygnalizowacLicznikPoslanychSekwencji = 0;
    InitMsgID_(kNumber);
    os.pending = {{kNumber - 1, 0, 0}, {kNumber - 2, 0, 0}, {kNumber + 1, 0, 0},
                  Command('b', 0, 99), Command('B'),        Command('a', 77)};
    EXPECT_EQ(Probe("23<06"), 0) << "a command for another process, and one from a driver";
    EXPECT_EQ(Posted(), "A0");
    EXPECT_EQ(os.dispatched, (std::vector<uint32_t>{kNumber - 1, kNumber + 1}));
    EXPECT_EQ(os.pending.size(), 1u);

    EXPECT_TRUE(WinSndMsg('S', 99, 'b', 5));
    EXPECT_EQ(os.posted[0].wparam, 99u);
    os.pending = {Command('c'), Command('C', 0xFFFFFF, 77)};
    const auto receive = [] {
        uint32_t process = 1, value = 1;
        const char letter = WinRcvMsg('S', &process, &value);
        return std::tuple(letter, process, value);
    };
    EXPECT_EQ(receive(), std::tuple('C', 77u, 0xFFFFFFu)) << "the server's side takes capitals";
    EXPECT_EQ(receive(), std::tuple('\0', 0u, 0u));
}

TEST_F(Routing, InternalNumbersOutsideTheDevicesOwnKeepTheirValueOrAreUnknown) {
    for (const auto& [internal, number] :
         {std::pair(0, 0), {62, 62}, {63, 99}, {66, 101}, {110, 232}, {111, 99}, {-1, 99}})
        EXPECT_EQ(WartoscNumeruBledu(internal), number) << internal;
}

}  // namespace
