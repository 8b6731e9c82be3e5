// The invoice: a receipt opened with a number, the buyer's lines and tax number.
#include <initializer_list>

#include "koraxdr/command.h"
#include "koraxdr/device_types.h"
#include "koraxdr/document.h"
#include "koraxdr/frame.h"
#include "koraxdr/functions/cancellation.h"
#include "koraxdr/functions/conditions.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/send_layout.h"
#include "koraxdr/session.h"

namespace {

constexpr DeviceTypes kTypyZFakturami = {11};

constexpr int kLiniiNabywcy = 6;
constexpr int kSzerokoscLinii = 40;

bool Pusty(const char* text) {
    return text[0] == '\0';
}

// Oddity: Invoice texts are not cut to their fields. What passes the command's length is not sent,
// and what passes a buyer's field stands in the next one until that is written.
void WpiszBezObciecia(int position, const char* text) {
    WpiszTekst(position, text, TextForm::kDevice);
}

int32_t OtworzFakture(const char* invoice_number) {
    WpiszOdstepy(1, kOtwarcieFaktury.data_length);
    WpiszBezObciecia(1, invoice_number);
    return Wyslij(kOtwarcieFaktury);
}

// The buyer's data are printed in code page 852 whatever page the device uses otherwise.
int32_t WyslijLinieNabywcy(const char* const (&lines)[kLiniiNabywcy]) {
    bool empty = true;
    for (const char* line : lines) empty = empty && Pusty(line);
    if (empty) return KORAX_E_OK;
    const CodePage852 page;
    WpiszOdstepy(1, kLinieNabywcy.data_length);
    for (int i = 0; i < kLiniiNabywcy; ++i) WpiszBezObciecia(1 + kSzerokoscLinii * i, lines[i]);
    return Wyslij(kLinieNabywcy);
}

int32_t WyslijNip(const char* nip) {
    if (Pusty(nip)) return KORAX_E_OK;
    const CodePage852 page;
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
        const char* const lines[kLiniiNabywcy] = {Name1, Name2, Name3, Name4, Name5, Name6};
        for (const char* text : {Number, Name1, Name2, Name3, Name4, Name5, Name6, NIP}) {
            if (text == nullptr) return KORAX_E_NULL;
        }
        if (const int32_t error = RozpocznijSesje()) return error;
        if (!kTypyZFakturami.Contains(Urzadzenie)) return KORAX_E_COMMAND_NOT_AVAILABLE;
        if (const int32_t error = PrzygotujDokument()) return error;
        const int32_t error = OtworzFakture(Number);
        // Oddity: A refused invoice can give 0. Where no condition explains the refusal, the next
        // item finds out that no document is open.
        if (error == KORAX_E_REFUSED) return ZnajdzPowodOdmowy();
        if (error != 0) return error;
        RozpocznijDokument(true);
        if (WyslijLinieNabywcy(lines) != 0) return AnulujParagon();
        if (WyslijNip(NIP) != 0) return AnulujParagon();
        return KORAX_E_OK;
    });
}
