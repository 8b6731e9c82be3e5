// The fixture of all tests of the driver: a fresh library, a line in memory, a scripted device.
#pragma once

#include <gtest/gtest.h>

#include "engine/sysproc.h"
#include "koraxdr.h"
#include "koraxdr/state.h"
#include "port/opening.h"
#include "port/portpro.h"
#include "port/sysseria.h"
#include "support/memory_platform.h"
#include "support/script.h"

using memory::os;

// Every global of the driver as it is when the library is loaded, and a silent line.
void ResetDriver();

class DriverTest : public testing::Test {
  public:
    DriverTest() { Fresh(); }
    ~DriverTest() override { ResetDriver(); }

  protected:
    void Fresh();
    // A fresh library with a session on COM1 (time-outs 5 s) with a device of the type.
    void StartSession(int type, int version = 3);
    // The same with a receipt just opened, texts in the code page (0 852, 1 1250, 2 Mazovia).
    void OpenReceipt(int type, int version = 3, int page = 0);

    // Calls a function of the driver, in which exactly this conversation has to take place.
    template <class Function, class... Arguments>
    auto Call(const std::string& conversation, Function function, Arguments... arguments) {
        device.Play(conversation);
        const auto result = function(arguments...);
        device.ExpectFinished();
        return result;
    }
    // The call has exactly this conversation and this outcome, which is the last error as well.
    template <class Function, class... Arguments>
    void Expect(const std::string& conversation, int32_t result, Function f, Arguments... a) {
        SCOPED_TRACE(conversation + ".");
        EXPECT_EQ(Call(conversation, f, a...), result);
        EXPECT_EQ(LastError(), result);
    }
    Script device;
};

// The receipt's state in words: "open invoice first lines=2 A=375 G=100 optimised"; empty if none.
std::string ReceiptState();
