// An application that passes arbitrary arguments to the exported functions, and a device that
// answers arbitrary bytes. After a while the line fails, so that every wait of the driver ends.
#include "input.h"

#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "support/driver_test.h"

namespace {

struct Device : memory::Peer {
    Input& input;
    unsigned events = 0;

    explicit Device(Input& in) : input(in) {}
    void HostSent(const Bytes&) override {
        Tire(20);
        const uint8_t kind = input.Byte();
        const Bytes answers[] = {{6}, {0}, {6, 0}, Bytes(kind >> 3, 0), input.Take(kind >> 2)};
        os.Answer(input.Empty() ? Bytes{6} : answers[kind % 5]);
    }
    void TimePassed(uint32_t) override { Tire(1); }
    void Tire(unsigned by) {
        events += by;
        if (events > 40000) os.vanished = true;
    }
};

// The arguments of one call; they live until it is over. Each buffer is a block of its own, so that
// a write behind its end is seen.
class Arguments {
  public:
    Arguments(Input& input, bool nulls) : input_(input), nulls_(nulls) {}

    template <class T>
    T Make() {
        if constexpr (std::is_pointer_v<T>) {
            using Pointed = std::remove_pointer_t<T>;
            if (input_.Byte() < 8 && nulls_) return nullptr;
            if constexpr (std::is_same_v<Pointed, const char>) {
                const Bytes text = input_.Take(input_.Byte());
                return reinterpret_cast<T>(Block(text + Bytes{0}));
            } else {
                return reinterpret_cast<T>(Block(Bytes(kBuffer, 0x41)));
            }
        } else if constexpr (sizeof(T) > 1) {
            static constexpr uint32_t edges[] = {0,   1,          2,          10,
                                                 100, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
            const uint8_t kind = input_.Byte();
            if (kind < 0x60) return static_cast<T>(edges[kind % 8]);
            return static_cast<T>(kind < 0xD0 ? input_.Byte() : input_.Word());
        } else {
            return static_cast<T>(input_.Byte());
        }
    }

  private:
    static constexpr std::size_t kBuffer = 256;  // what the longest result needs
    uint8_t* Block(const Bytes& bytes) {
        blocks_.push_back(std::make_unique<uint8_t[]>(bytes.size()));
        std::copy(bytes.begin(), bytes.end(), blocks_.back().get());
        return blocks_.back().get();
    }
    Input& input_;
    bool nulls_;
    std::vector<std::unique_ptr<uint8_t[]>> blocks_;
};

// Functions that do not check their pointers, on purpose.
constexpr std::string_view kTrusting[] = {"ReceiptNumber",  "ReadVAT",       "DailyReportNumber",
                                          "pReadSelTotal",  "xReadSelTotal", "ReadStatus",
                                          "ReadConfigBytes"};

template <class Result, class... Parameters>
void Call(const char* name, Result (*function)(Parameters...), Input& input) {
    const bool trusting = std::count(std::begin(kTrusting), std::end(kTrusting), name) != 0;
    Arguments arguments(input, !trusting);
    // In braces the arguments are made from left to right.
    std::apply(function, std::tuple<Parameters...>{arguments.Make<Parameters>()...});
}

using Caller = void (*)(Input&);
constexpr Caller kFunctions[] = {
#define KORAX_EXPORTED(name) [](Input& input) { Call(#name, name, input); },
#include "exported_functions.inc"
#undef KORAX_EXPORTED
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, std::size_t count) {
    Input input(bytes, count);
    Device device(input);
    ResetDriver();
    os.peer = &device;
    if (input.Byte() % 4 != 0) {
        // A session is there already: the functions themselves are the matter.
        NrPortu = 1;
        InicjujKompletniePortSzeregowy();
        KomunikacjaInit = 1;
        Urzadzenie = input.Byte() % 14;
        Prog = input.Byte();
        CodePage1250 = input.Byte() % 4;
        ParagonRozpoczety = input.Byte() & 1;
    }
    for (int call = 0; call < 20 && !input.Empty(); ++call) {
        const auto function = static_cast<std::size_t>(input.Byte() % std::size(kFunctions));
        kFunctions[function](input);
        LastError();
    }
    ResetDriver();
    return 0;
}
