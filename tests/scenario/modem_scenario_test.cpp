// Receipts through a modem controller, over TCP and straight on the line print the same paper.
#include <cstring>

#include "port/sockpro.h"
#include "scenario/shop.h"
#include "support/modem_controller.h"

namespace {

using modem::Damage;

enum class Link { kDirect, kModem, kTcp };

// The direct line of a device.
struct Line : memory::Peer {
    explicit Line(modem::Device behind) : device(std::move(behind)) {}
    void HostSent(const Bytes& bytes) override { os.Answer(device(bytes)); }
    modem::Device device;
};

class Framed : public testing::Test {
  protected:
    ~Framed() override { Choose(Link::kDirect); }
    static void Choose(Link link) {
        ResetDriver();
        os.modem_lines[0] = os.modem_lines[1] = platform::kLineCarrier;
        TransmisjaPrzezModem = link == Link::kModem;
        TransmisjaPrzezTCP = link == Link::kTcp;
        WyborSerweraUrzadzen = TransmisjaPrzezTCP;
    }
    static int32_t Sell() {
        int32_t result = CommunicationInit(1, 9600, 5) + ReceiptBegin();
        for (const std::string name : {"Chleb żytni", "Gęś, jaźń"})
            result += pReceiptItemEx(1, Cp1250(name).c_str(), 2, 0, 1500, 3, "szt.", 250);
        return result + pFillPayment(1, Cp1250("Gotówka").c_str(), 1400, 650) + ReceiptEnd(0);
    }
    // What two receipts print over a link that fails every n-th frame, or whose controller has
    // demands and cuts its answers in two.
    static std::string Paper(int type, Link link, unsigned every = 0, Damage damage = {}) {
        sim::Device device({.type = type});
        const auto said = [&](const Bytes& bytes) {
            return device.Receive(bytes), device.TakeAnswer();
        };
        Line direct(said);
        modem::Controller controller(said);
        controller.every = every;
        controller.damage = damage;
        if (every == 0) controller.replies = {0x10, 1, 0x20, 0x40, 1};
        if (every == 0) controller.part = 5;
        const modem::LoopbackServer server("127.0.0.1", 0, [&](const Bytes& bytes) {
            Bytes line;
            for (const auto& part : controller.Receive(bytes)) line = line + part.first;
            return line;
        });
        Choose(link);
        std::strcpy(AdresSerweraUrzadzen, "127.0.0.1");
        PortTransmisjiSerweraUrzadzen = server.port;
        os.peer = &direct;
        if (link != Link::kDirect) os.peer = &controller;
        EXPECT_EQ(Sell() + Sell(), 0);
        EXPECT_EQ(os.writes.empty(), link == Link::kTcp);
        EXPECT_EQ(controller.codes.substr(0, 3) == "345", link != Link::kDirect && every == 0);
        EXPECT_EQ(controller.damaged == 0, every == 0);
        EXPECT_EQ(device.receipt_counter(), 2);
        Choose(Link::kDirect);
        std::string paper;
        for (const sim::PaperLine& line : device.paper()) paper += line.text + "\n";
        return paper;
    }
};

TEST_F(Framed, ThePaperIsThatOfTheDirectLine) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        const std::string paper = Paper(type, Link::kDirect);
        for (const Link link : {Link::kModem, Link::kTcp})
            for (const unsigned every : {0u, 3u}) EXPECT_EQ(Paper(type, link, every), paper);
        for (const Damage damage : {Damage::kDelay, Damage::kSplit, Damage::kRepeat})
            EXPECT_EQ(Paper(type, Link::kModem, 4, damage), paper) << static_cast<int>(damage);
    }
}

}  // namespace
