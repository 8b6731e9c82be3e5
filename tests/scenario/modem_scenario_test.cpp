// Receipts through a modem controller, over TCP and straight on the line print the same paper.
#include <cstring>

#include "port/sockpro.h"
#include "scenario/shop.h"
#include "support/modem_controller.h"

namespace {

enum class Link { kDirect, kModem, kTcp };

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
    // What two receipts print over a link that fails every n-th frame.
    static std::string Paper(int type, Link link, unsigned every = 0, bool repeats = false) {
        DeviceLine line({.type = type});
        sim::Device& device = line.device;
        modem::Controller controller(
            [&](const Bytes& bytes) { return device.Receive(bytes), device.TakeAnswer(); });
        controller.every = every;
        controller.repeats = repeats;
        const modem::LoopbackServer server(
            "127.0.0.1", 0, [&](const Bytes& bytes) { return controller.Receive(bytes); });
        Choose(link);
        std::strcpy(AdresSerweraUrzadzen, "127.0.0.1");
        PortTransmisjiSerweraUrzadzen = server.port;
        os.peer = &line;
        if (link != Link::kDirect) os.peer = &controller;
        EXPECT_EQ(Sell() + Sell(), 0);
        EXPECT_EQ(os.writes.empty(), link == Link::kTcp);
        EXPECT_EQ(device.receipt_counter(), 2);
        Choose(Link::kDirect);
        std::string paper;
        for (const sim::PaperLine& printed : device.paper()) paper += printed.text + "\n";
        return paper;
    }
};

TEST_F(Framed, ThePaperIsThatOfTheDirectLine) {
    for (int type = sim::kFirstType; type <= sim::kLastType; ++type) {
        SCOPED_TRACE(type);
        const std::string paper = Paper(type, Link::kDirect);
        for (const Link link : {Link::kModem, Link::kTcp})
            for (const unsigned every : {0u, 3u}) EXPECT_EQ(Paper(type, link, every), paper);
        EXPECT_EQ(Paper(type, Link::kModem, 4, true), paper);
    }
}

}  // namespace
