// The layouts in which an item goes to the device.
#pragma once

#include <cstddef>
#include <cstdint>

#include "koraxdr/article_name.h"

// The arguments of one item, and what the call makes of them.
struct Item {
    bool sale;
    const char* name;
    uint32_t rate_given;  // as the caller counts it, A to G
    uint32_t rate;        // as it is sent
    uint32_t message;
    int32_t quantity;  // scaled by 10 to the decimals
    uint32_t decimals;
    const char* unit;
    int32_t price;    // hundredths
    int32_t* amount;  // hundredths
    char work_name[kBuforNazwy];
    int32_t check;  // the last argument check that failed
};

enum class ItemLayout {
    kShort,    // a name of 28 characters
    kCutLong,  // the first bytes of the long layout
    kLong,     // a name of 40 characters
    kText,     // a name of up to 120 characters on lines of its own
};

// Which of them a name of this length gets on the device in force.
ItemLayout UkladPozycji(std::size_t name_length);

// Writes the item with a name field of so many characters.
void WpiszPozycje(const Item& item, int name_width);

// Write the opening of text items, and a text item; the bytes written.
int WpiszOtwarcieTekstowe();
int WpiszPozycjeTekstowa(const Item& item);
