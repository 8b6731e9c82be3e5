// A shop with a simulated device on the driver's line.
#pragma once

#include <optional>

#include "sim/device.h"
#include "support/cp1250.h"
#include "support/driver_test.h"

// The device as the far end of the line in memory.
class DeviceLine : public memory::Peer {
  public:
    explicit DeviceLine(const sim::DeviceOptions& options) : device(options) {}
    void HostSent(const Bytes& bytes) override {
        device.Receive(bytes);
        PassAnswer();
    }
    void TimePassed(uint32_t ms) override {
        device.Advance(std::chrono::milliseconds{ms});
        PassAnswer();
    }

    sim::Device device;
    bool silent = false;  // what the device says is lost

  private:
    void PassAnswer() {
        const Bytes answer = device.TakeAnswer();
        if (!silent) os.Answer(answer);
    }
};

class Shop : public testing::Test {
  protected:
    ~Shop() override { ResetDriver(); }
    // Switches a device on and opens a session with it.
    void Open(const sim::DeviceOptions& options);
    void Open(int type) { Open({.type = type}); }
    sim::Device& device() { return line_->device; }
    bool& silent() { return line_->silent; }
    const sim::Receipt& receipt() { return device().receipt(); }
    int32_t Connect() { return CommunicationInit(1, 9600, 5); }

    // Items by their value for rate numbers 1 to 7; a price in hundredths.
    static int32_t Sell(const std::string& name, int32_t rate, int32_t quantity, int32_t decimals,
                        int32_t price, bool sale = true);
    static int32_t SellBread() { return Sell("Chleb żytni", 1, 1500, 3, 250); }
    // A whole small receipt, as the proof that everything works again.
    void ExpectReceipt();

  private:
    std::optional<DeviceLine> line_;
};
