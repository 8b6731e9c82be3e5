// The bytes that one read call took from the line, served one by one.
#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

enum class TakenByte { kGood, kDamaged, kNone };

// The terminal marks what it delivers (PARMRK): 0xFF 0x00 x is a byte x that arrived with a parity
// or framing error (a break is such a byte 0), 0xFF 0xFF is a byte 0xFF. A mark may be split
// between two reads.
class TakenInput {
  public:
    static constexpr std::size_t kRoom = 256;

    uint8_t* Buffer() { return bytes_; }
    void Filled(std::size_t count) {
        next_ = 0;
        count_ = count;
    }
    void Discard() {
        Filled(0);
        mark_ = Mark::kNone;
    }

    TakenByte Next(uint8_t& byte) {
        while (next_ < count_) {
            const uint8_t taken = bytes_[next_++];
            switch (mark_) {
                case Mark::kNone:
                    if (taken != 0xFF) {
                        byte = taken;
                        return TakenByte::kGood;
                    }
                    mark_ = Mark::kLead;
                    break;
                case Mark::kLead:
                    if (taken == 0x00) {
                        mark_ = Mark::kDamagedByteFollows;
                        break;
                    }
                    mark_ = Mark::kNone;
                    byte = taken;
                    return taken == 0xFF ? TakenByte::kGood : TakenByte::kDamaged;
                case Mark::kDamagedByteFollows:
                    mark_ = Mark::kNone;
                    return TakenByte::kDamaged;
            }
        }
        return TakenByte::kNone;
    }

  private:
    enum class Mark : uint8_t { kNone, kLead, kDamagedByteFollows };

    uint8_t bytes_[kRoom]{};
    std::size_t next_ = 0;
    std::size_t count_ = 0;
    Mark mark_ = Mark::kNone;
};

}  // namespace platform
