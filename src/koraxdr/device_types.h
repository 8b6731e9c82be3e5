// Sets of device types (the codes of Urzadzenie).
#pragma once

#include <cstdint>
#include <initializer_list>

class DeviceTypes {
  public:
    constexpr DeviceTypes(std::initializer_list<int> types) {
        for (const int type : types) bits_ |= 1u << type;
    }
    constexpr bool Contains(int32_t type) const {
        return type >= 0 && type < 32 && (bits_ >> type & 1u) != 0;
    }

  private:
    uint32_t bits_ = 0;
};

// Sets that several families of functions share; what one function alone asks for stands in its
// file.
inline constexpr DeviceTypes kTypyNowszejRodziny = {8, 9, 10, 11, 12};
inline constexpr DeviceTypes kTypyToliE = {10, 11};
inline constexpr DeviceTypes kTypyRodzinyToliE = {10, 11, 12};
inline constexpr DeviceTypes kTypySiedmiostawkowe = {4, 7, 8, 9, 10, 11, 12, 13};
// Types that know forms of payment, packages, the subtotal and quantities of eight digits.
inline constexpr DeviceTypes kTypyZPlatnosciami = {4, 8, 10, 11, 12, 13};
