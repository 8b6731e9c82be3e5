// The fixture of the families of functions: most cases are one call with one conversation.
#pragma once

#include <algorithm>
#include <functional>

#include "support/driver_test.h"

// A print check that ends in 112 before a printout; after one a further status byte decides.
inline const std::string kStopped = "95<00 95<00 94<02 95<00 ";
inline const std::string kLongText(300, 'a');

class FamilyTest : public DriverTest {
  protected:
    // The call has exactly this conversation and this outcome, which is the last error as well.
    template <class Function, class... Arguments>
    void Expect(const std::string& conversation, int32_t result, Function f, Arguments... a) {
        SCOPED_TRACE(conversation + ".");
        EXPECT_EQ(Call(conversation, f, a...), result);
        EXPECT_EQ(LastError(), result);
    }
    // The same for each case in words: "conversation = result | conversation = result".
    template <class Function, class... Arguments>
    void ExpectAll(const std::string& head, std::string cases, Function f, Arguments... a) {
        for (cases += " | "; !cases.empty(); cases.erase(0, cases.find(" | ") + 3)) {
            const std::size_t middle = cases.find(" = ");
            Expect(head + cases.substr(0, middle), std::stoi(cases.substr(middle + 3)), f, a...);
        }
    }
    // On the types listed the call has the conversation and succeeds, on the others it is refused.
    // With `asks` it asks for the type first, and another one is known.
    void ByType(bool asks, std::initializer_list<int> served, int32_t refused,
                const std::string& conversation, const std::function<int32_t()>& call) {
        for (int type = 1; type <= 13; ++type) {
            const bool serves = std::find(served.begin(), served.end(), type) != served.end();
            StartSession(asks ? type % 13 + 1 : type);
            Expect((asks ? Identify(type, 3) : "") + (serves ? conversation : ""),
                   serves ? 0 : refused, call);
        }
    }
};
