#include "support/driver_test.h"

#include <algorithm>

#include "port/device_server.h"
#include "support/variables.h"

void ResetDriver() {
    PozostawiacOtwartyPortSzeregowy = 0;
    CommunicationEnd();
    os = {};
    for (const auto& [name, variable] : Variables()) variable.set(variable.loaded);
    ZmiennaDodatkowaDlaTypuX[0] = NazwaFunkcji[0] = '\0';
    SzczegoloweDaneOTypieUrzadzenia = {};
    std::ranges::fill(Total, 0);
    std::ranges::fill(Payments, PaymentSlot{});
    std::ranges::fill(AdditionalLines, LineSlot{});
    std::ranges::fill(Control, ControlSlot{});
    CP1 = {};
    CP2 = {};
    std::ranges::fill(BajtyDoPoslania, uint8_t{0});
    std::ranges::fill(BajtyOdebrane, uint8_t{0});
}

void DriverTest::Fresh() {
    ResetDriver();
    os.peer = &device;
}

void DriverTest::StartSession(int type, int version) {
    Fresh();
    EXPECT_EQ(Call(Session(type, version), CommunicationInit, 1, 9600, 5), 0);
    EXPECT_EQ(Urzadzenie, type);
    os.calls.clear();
    os.writes.clear();
}

void DriverTest::OpenReceipt(int type, int version, int page) {
    StartSession(type, version);
    EXPECT_EQ(Call(Begin(type, version, page), ReceiptBegin), 0);
    EXPECT_EQ(CodePage1250, page);
}

std::string ReceiptState() {
    std::string words;
    if (ParagonRozpoczety) words += " open";
    if (FakturaRozpoczeta) words += " invoice";
    if (PierwszaPozycjaSprzedazy) words += " first";
    if (WydrukowanychLiniiPar) words += " lines=" + std::to_string(WydrukowanychLiniiPar);
    for (int rate = 0; rate <= 7; ++rate) {  // 0: there is no such rate
        if (Total[rate] != 0)
            words += std::string(" ") + "@ABCDEFG"[rate] + "=" + std::to_string(Total[rate]);
    }
    if (Optimize) words += " optimised";
    return words.empty() ? words : words.substr(1);
}
