// The invoice: a receipt opened with a number, the buyer's lines and tax number.
#include <initializer_list>

#include "koraxdr/device_types.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/receipt.h"
#include "koraxdr/send_layout.h"

namespace {

constexpr ControlSequence kOtwarcieFaktury = {77, 1, 20, 1};
constexpr ControlSequence kLinieNabywcy = {78, 0, 240, 1};
constexpr ControlSequence kNipNabywcy = {79, 0, 13, 1};

constexpr DeviceTypes kTypyZFakturami = {11};

constexpr int kLiniiNabywcy = 6;
constexpr int kSzerokoscLinii = 40;

bool Pusty(const char* tekst) {
    return tekst[0] == '\0';
}

// The text is not cut to its field, on purpose: what passes the command's length is not sent, and
// what passes a buyer's field stands in the next one until that is written.
void WpiszBezObciecia(int pozycja, const char* tekst) {
    WpiszTekst(pozycja, tekst, TextForm::kDevice);
}

int32_t OtworzFakture(const char* numerFaktury) {
    WpiszOdstepy(1, kOtwarcieFaktury.data_length);
    WpiszBezObciecia(1, numerFaktury);
    return Wyslij(kOtwarcieFaktury);
}

// The buyer's data are printed in code page 852 whatever page the device uses otherwise.
int32_t WyslijLinieNabywcy(const char* const (&linie)[kLiniiNabywcy]) {
    bool puste = true;
    for (const char* linia : linie) puste = puste && Pusty(linia);
    if (puste) return blad::kBrak;
    const CodePage852 strona;
    WpiszOdstepy(1, kLinieNabywcy.data_length);
    for (int i = 0; i < kLiniiNabywcy; ++i) WpiszBezObciecia(1 + kSzerokoscLinii * i, linie[i]);
    return Wyslij(kLinieNabywcy);
}

int32_t WyslijNip(const char* nip) {
    if (Pusty(nip)) return blad::kBrak;
    const CodePage852 strona;
    WpiszOdstepy(1, kNipNabywcy.data_length);
    WpiszBezObciecia(1, nip);
    return Wyslij(kNipNabywcy);
}

}  // namespace

int32_t KORAX_CALL pInvoiceBegin(const char* Number, const char* Name1, const char* Name2,
                                 const char* Name3, const char* Name4, const char* Name5,
                                 const char* Name6, const char* NIP) {
    return Funkcja([&]() -> int32_t {
        PokazArgumenty("Sent to function pInvoiceBegin: ", {{"1.Number: ", Number},
                                                            {"2.Name1: ", Name1},
                                                            {"3.Name2: ", Name2},
                                                            {"4.Name3: ", Name3},
                                                            {"5.Name4: ", Name4},
                                                            {"6.Name5: ", Name5},
                                                            {"7.Name6: ", Name6},
                                                            {"8.NIP: ", NIP}});
        const char* const linie[kLiniiNabywcy] = {Name1, Name2, Name3, Name4, Name5, Name6};
        for (const char* tekst : {Number, Name1, Name2, Name3, Name4, Name5, Name6, NIP}) {
            if (tekst == nullptr) return blad::kPustyBufor;
        }
        if (const int32_t numer = RozpocznijSesje()) return numer;
        if (!kTypyZFakturami.Contains(Urzadzenie)) return blad::kRozkazNiedostepny;
        if (const int32_t numer = PrzygotujDokument()) return numer;
        const int32_t numer = OtworzFakture(Number);
        // When no condition explains the refusal the result is 0 although no invoice is open; kept.
        if (numer == blad::kNak) return ReceiptConditions();
        if (numer != 0) return numer;
        RozpocznijDokument(true);
        if (WyslijLinieNabywcy(linie) != 0) return ReceiptCancel();
        if (WyslijNip(NIP) != 0) return ReceiptCancel();
        return blad::kBrak;
    });
}
