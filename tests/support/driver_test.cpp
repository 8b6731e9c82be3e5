#include "support/driver_test.h"

#include <algorithm>

#include "links/msgqueue.h"
#include "numbers/konwers.h"
#include "port/device_server.h"
#include "port/sockpro.h"

void ResetDriver() {
    PozostawiacOtwartyPortSzeregowy = 0;
    CommunicationEnd();
    os = {};
    // The session.
    ErrorLastError = MsgID = ProcessIDFromFile = 0;
    NumerPortuDrukarki = Optimize = CodePage1250 = DebugMode = KomunikacjaInit = 0;
    SzybkTrans = SzybkoscTransmisji = 9600;
    Timeouty = 5;
    Urzadzenie = 13;
    Prog = 1;
    ZmiennaDodatkowaDlaTypuX[0] = NazwaFunkcji[0] = '\0';
    // The receipt.
    ParagonRozpoczety = FakturaRozpoczeta = PierwszaPozycjaSprzedazy = WydrukowanychLiniiPar = 0;
    SposobZaokraglania = WyliczonaWartoscPoz = OstatniaStawka = 0;
    std::ranges::fill(Total, 0);
    std::ranges::fill(Payments, PaymentSlot{});
    std::ranges::fill(AdditionalLines, LineSlot{});
    std::ranges::fill(Control, ControlSlot{});
    CP1 = {};
    CP2 = {};
    // The exchange.
    std::ranges::fill(BajtyDoPoslania, uint8_t{0});
    std::ranges::fill(BajtyOdebrane, uint8_t{0});
    NumerBledu = RetransmitowacSekwencjeSterujaca = PierwszaSekwencjaSterujaca = 0;
    LicznikPoslanychSekwencjiSterujacych = CoIleSygnalizowacLicznikPoslanychSekwencji = 0;
    LicznikOdczytanychLiniiZPlikuWejsciowego = LicznikZapisanychLiniiDoPlikuWyjsciowego = 0;
    FunkcjaWStanieUspienia = DebugowacDzialanieFunkcji = KomunikacjaDlaNivy = 0;
    WymaganySprzetDoFunkcjiSpecjalnych = 1;
    SzczegoloweDaneOTypieUrzadzenia = {};
    f_konwersja = 0;
    // The port.
    ParzystoscTransmisji = 2;
    TimeoutNadawania = TimeoutOdbierania = 3;
    NrPortu = KontrolowacStanLiniiCTS = SygnalizowacBledyParzystosci = 1;
    BylTimeout = LicznikBajtowOdebranych = TransmisjaPrzezModem = TransmisjaPrzezTCP = 0;
    NrMultipleksera = 0;
    NrKanalu = 1;
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
