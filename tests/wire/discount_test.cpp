// Discounts on the last item, packages, subtotal, drawers; opening an invoice.
#include "support/driver_test.h"

namespace {

class Discount : public DriverTest {
  protected:
    // With an invoice that has 10.00 at rate B; `state` is what the call leaves of it.
    template <class Function, class... Arguments>
    void InReceipt(const std::string& conversation, int32_t result, const std::string& state,
                   Function function, Arguments... arguments) {
        ParagonRozpoczety = FakturaRozpoczeta = 1;
        std::fill(std::begin(Total), std::end(Total), 0);
        Total[2] = 1000;
        Expect(conversation, result, function, arguments...);
        EXPECT_EQ(ReceiptState(), state) << conversation;
    }
    const std::string kept = "open invoice B=1000";
};

TEST_F(Discount, ChangesTheTotalsWhichPackagesDoNot) {
    StartSession(13);
    const auto amount = DiscountOrSurcharge, percent = PercentDiscountOrSurcharge;
    OstatniaStawka = 2;  // an amount changes the last rate's total, without a lower bound
    InReceipt("18>2D,#500 50<0600", 0, "open invoice B=500", amount, 1, 500);
    InReceipt("18>2D,#1500 50<0600", 0, "open invoice B=-500", amount, -1, 1500);
    InReceipt("18>20,#7 50<15", 24, kept, amount, 0, 7);
    Call("18>2D,#-2147483648 50<0600", amount, 1, INT32_MIN);  // no overflow
    for (int32_t rate : {0, 8, -1}) {
        OstatniaStawka = rate;
        InReceipt("18>20,#7 50<0600", 0, kept, amount, 0, 7);
    }
    InReceipt("1C>'R',E803 50<0600 85<06,#1,#0,#3,#0,#256,#6,#-7", 0,
              "open invoice A=1 C=3 E=256 F=6 G=-7", percent, -1, 1000);
    InReceipt("1C>'R',0500 50<0680", 210, "B=1000", percent, 2, 5);
    for (int type = 1; type <= 13; ++type) {
        StartSession(type);
        for (int32_t drawer : {1, 2, 3})
            InReceipt("5" + std::to_string(drawer + 6) + "<06", 0, kept, OpenDrawer, drawer);
        const int no = type == 8 || type == 10 || type == 11 || type == 13 ? 0 : 213;
        InReceipt(no ? "" : "18>2D,#0 50<0600", no, kept, amount, 1, 0);
        InReceipt(no ? "" : "1C>'N',0100 50<15", no ? no : 24, kept, percent, 0, 65537);
        const int no_package = type == 4 || type == 12 ? 0 : no;
        InReceipt(no_package ? "" : "80", no_package, kept, PrintSubtotal);
        const std::string check = no_package ? "" : type == 4 ? "95<EF" : "50<0600";
        for (int32_t kind : {-1, 4, 256})
            InReceipt(check, no_package ? 213 : 214, kept, PackageItem, kind, 1, 2, 3);
        if (no_package) continue;
        const char* const kinds[] = {" 17>' S'", " 17>' Z'", " 17>'-S'", " 17>'-Z'"};
        const char* const fields = ",0201,E803,#-500";
        const char* const answers = "<06 = 0 | <15 = 238 | <00 = 238 |  = 21";
        for (int32_t kind : {0, 1, 2, 3})
            ExpectAll(check + kinds[kind] + fields, answers, PackageItem, kind, 258, 66536, -500);
        EXPECT_EQ(ReceiptState(), kept);
        InReceipt(type == 4 ? "95<10" : "50<0608", 210, "B=1000", PackageItem, 4, 1, 2, 3);
    }
    for (int32_t drawer : {0, 4, -1, 257}) Expect("", 212, OpenDrawer, drawer);
}

class Invoice : public DriverTest {
  protected:
    void SetUp() override { StartSession(11); }
    // With five lines and a total left over; the driver believes a receipt open where 5F is asked.
    void Open(const std::string& conversation, int32_t result, const char* state,
              std::vector<std::string> n = {}, const std::string& nip = "",
              const std::string& no = "FV 1") {
        ParagonRozpoczety = conversation.starts_with("5F");
        FakturaRozpoczeta = 0;
        WydrukowanychLiniiPar = 5;
        Total[3] = 9;
        n.resize(6);
        Expect(conversation, result, pInvoiceBegin, no.c_str(), n[0].c_str(), n[1].c_str(),
               n[2].c_str(), n[3].c_str(), n[4].c_str(), n[5].c_str(), nip.c_str());
        EXPECT_EQ(ReceiptState(), state) << conversation;
    }
    const std::string page = CodePage(11, 3, 0), number = page + "4D<06>'FV 1'20<00 ";
};

TEST_F(Invoice, TextsRunOnBehindTheirFieldsAndTheDeviceDecides) {
    const std::string a = kLongText, fifty(50, 'a');
    const char* const opened = "open invoice";
    Open(number + "4E>61x40,'bb',61x8,20x190<00", 0, opened, {fifty, "bb"});
    Open(number + "4E>61x160,'e',61x39,'ff',61x38<00", 0, opened, {a, "", "", fifty, "e", "ff"});
    Open(page + "4D<06>61x20<FF", 0, opened, {}, "", a);  // whatever status opens it
    for (const auto& [code_page, letter] : {std::pair(0, "A5"), {1, "B9"}, {2, "86"}}) {
        const std::string buyer = ",20x19<00 4E>A5,20x239<00 4F>A5,20x12<";  // in code page 852
        const std::string opening = CodePage(11, 3, code_page) + "4D<06>" + letter + buyer;
        Open(opening + "00", 0, opened, {"\xB9"}, "\xB9", "\xB9");
        EXPECT_EQ(CodePage1250, code_page) << "restored";
        Open(opening + "08 95<10", 210, "", {"\xB9"}, "\xB9", "\xB9");
        EXPECT_EQ(CodePage1250, code_page) << "after a failure too";
    }
    // The device says whether a receipt is open and whether it takes the data.
    const std::string refused = page + "4D<15 9B<03 94<00 95<00 96<00 F5<0600 ";
    Open("5F<0602", 200, "open lines=5 C=9");
    Open("5F<06FD " + number, 0, "open invoice");
    Open("5F<0600 " + page + "4D<15 9B<00 94<00 95<00 96<00 F5<15", 100, "C=9");
    Open(refused + "D1<06,00x14 " + kReady, 0, "C=9");  // no reason found: 0, though not open
    const std::string buyer = number + "4E>'Jan'240";
    Open(buyer + "<08 95<00 23<06 " + kReady, 0, "", {"Jan"}, "1");
    Open(buyer + "<00 4F>'1'13 95<00 23<06 95<02", 109, "", {"Jan"}, "1");
    Optimize = PierwszaPozycjaSprzedazy = 1;
    Open("4D<06>'FV 1'20<00", 0, "open invoice first optimised");  // without the code-page query
    ByType(false, {11}, 213, number, [] {
        ParagonRozpoczety = Urzadzenie != 11;  // the type is checked before the open receipt
        return pInvoiceBegin("FV 1", "", "", "", "", "", "", "");
    });
}

}  // namespace
