#include "sim/cancellation.h"

namespace sim {

const char* Describe(Reason reason) {
    switch (reason) {
        case Reason::None:
            return "";
        case Reason::ByHost:
            return "anulowany z komputera";
        case Reason::UnexpectedSequence:
            return "niewłaściwa sekwencja w paragonie";
        case Reason::WrongDiscount:
            return "nieprawidłowy rabat";
        case Reason::WrongOrder:
            return "zła kolejność sekwencji";
        case Reason::ReceiptTooLong:
            return "za długi paragon";
        case Reason::TooManyAdditionalLines:
            return "za dużo linii dodatkowych";
        case Reason::OpenTooLong:
            return "przekroczony czas paragonu";
        case Reason::TotalsDiffer:
            return "niezgodna suma do zapłaty";
        case Reason::UnprintableCharacter:
            return "znak niedrukowalny w nazwie";
        case Reason::NameTooShort:
            return "za krótka nazwa towaru";
        case Reason::ArticleLocked:
            return "towar zablokowany";
        case Reason::NoRoomForTotals:
            return "brak miejsca w bazie towarów";
        case Reason::WrongQuantity:
            return "nieprawidłowa ilość";
        case Reason::WrongPrice:
            return "nieprawidłowa cena";
        case Reason::MarkerMissing:
            return "brak sekwencji stawki";
        case Reason::WrongRate:
            return "nieprawidłowa stawka";
        case Reason::NegativeBalance:
            return "ujemne saldo towaru";
        case Reason::WrongValue:
            return "niezgodna wartość pozycji";
        case Reason::ZeroValue:
            return "zerowa wartość pozycji";
        case Reason::ReceiptTooBig:
            return "za duża kwota paragonu";
        case Reason::ZeroTotal:
            return "zerowa suma paragonu";
        case Reason::SurchargeTooBig:
            return "za duża kwota z narzutem";
        case Reason::NotAfterItem:
            return "rabat lub narzut bez pozycji";
        case Reason::DataTimeout:
            return "przerwa w danych z komputera";
        case Reason::WrongCurrencyPayment:
            return "błędna płatność walutowa";
    }
    return "";
}

}  // namespace sim
