// One exchange over a pseudo-terminal: the driver against the same bytes moved by bare write and
// blocking one-byte read calls. Both use the same terminal with the same settings and the same
// device thread, in turn, so that what is compared is the driver's own cost.
//
//   exchange_bench [options of the benchmark library]
//   exchange_bench --only EXCHANGE COUNT    the driver's side alone, for counting system calls
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sched.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "engine/sysproc.h"
#include "koraxdr.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kPort = 200;
constexpr uint8_t kEsc = 0x1B;
constexpr uint8_t kAck = 0x06;

// Keeps the calling thread, and those that it starts, on the given one of the processors that this
// program may use. Driver and device on one processor wake each other cheaply, on two of them they
// do not; a scheduler that changes its mind in the middle would make the comparison one of these
// two cases with each other. A real device is always somewhere else.
void StayOnProcessor(std::size_t wanted) {
    static const cpu_set_t all = [] {
        cpu_set_t allowed;
        CPU_ZERO(&allowed);
        sched_getaffinity(0, sizeof allowed, &allowed);
        return allowed;
    }();
    if (CPU_COUNT(&all) < 2) return;
    for (std::size_t processor = 0; processor < CPU_SETSIZE; ++processor) {
        if (!CPU_ISSET(processor, &all) || wanted-- > 0) continue;
        cpu_set_t chosen;
        CPU_ZERO(&chosen);
        CPU_SET(processor, &chosen);
        sched_setaffinity(0, sizeof chosen, &chosen);
        return;
    }
}

// One control sequence as the engine is asked for it.
struct Sequence {
    uint8_t command;
    uint8_t ack_length;
    uint8_t data_length;
};

struct Exchange {
    const char* name;
    std::vector<Sequence> sequences;
    bool data_in_one_block;
    double ratio_target;  // driver to bare
    int system_calls_target;
};

const Exchange kExchanges[] = {
    {"status", {{0x23, 1, 0}}, false, 1.15, 4},
    {"item", {{0x06, 0, 49}, {0x23, 1, 0}}, false, 1.10, 55},
    {"item_optimized", {{0x06, 0, 49}, {0x23, 1, 0}}, true, 1.10, 7},
    {"totals", {{0x24, 36, 0}}, false, 0.75, 4},
};

// The device: takes as many bytes as an exchange has, then answers in one write.
class Device {
  public:
    Device() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0 ||
            ptsname_r(master_, name_, sizeof name_) != 0) {
            Fail("no pseudo-terminal");
        }
        StayOnProcessor(1);
        thread_ = std::thread([this] { Answer(); });
        StayOnProcessor(0);
    }
    ~Device() {
        // The line is closed by now; a last write through it ends the thread's read.
        questions_ = 0;
        const int line = open(name_, O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (write(line, "", 1) != 1) Fail("cannot stop the device");
        thread_.join();
        close(line);
        close(master_);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    const char* name() const { return name_; }

    void Serve(const Exchange& exchange) {
        std::size_t question = 0;
        std::size_t answer = 0;
        for (const Sequence& sequence : exchange.sequences) {
            question += 2U + sequence.data_length;
            answer += sequence.ack_length;
        }
        answer_ = answer;
        questions_ = question;
    }

    [[noreturn]] static void Fail(const char* what) {
        std::fprintf(stderr, "exchange_bench: %s\n", what);
        std::exit(1);
    }

  private:
    void Answer() {
        uint8_t bytes[256];
        std::memset(bytes, kAck, sizeof bytes);
        for (std::size_t received = 0;;) {
            uint8_t ignored[256];
            const ssize_t count = read(master_, ignored, sizeof ignored);
            const std::size_t question = questions_;
            if (count <= 0 || question == 0) return;
            received += static_cast<std::size_t>(count);
            if (received < question) continue;
            received = 0;
            if (write(master_, bytes, answer_) < 0) return;
        }
    }

    int master_;
    char name_[64] = "";
    std::atomic<std::size_t> questions_ = 1;
    std::atomic<std::size_t> answer_ = 0;
    std::thread thread_;
};

void DriverExchange(const Exchange& exchange) {
    Optimize = exchange.data_in_one_block ? 1 : 0;
    for (const Sequence& sequence : exchange.sequences) {
        PoslanieSekwencjiSterujacej(sequence.command, sequence.ack_length, sequence.data_length, 0);
        if (NumerBledu != 0) Device::Fail("the driver's exchange failed");
    }
}

void Write(int line, const uint8_t* bytes, std::size_t count) {
    if (write(line, bytes, count) != static_cast<ssize_t>(count)) Device::Fail("bare write failed");
}

// The same writes as the driver makes, and one read call for each byte.
void BareExchange(int line, const Exchange& exchange) {
    static const uint8_t data[256]{};
    for (const Sequence& sequence : exchange.sequences) {
        const uint8_t start[] = {kEsc, sequence.command};
        Write(line, start, sizeof start);
        const std::size_t block = exchange.data_in_one_block ? sequence.data_length : 1;
        for (std::size_t sent = 0; sent < sequence.data_length; sent += block) {
            Write(line, data + sent, block);
        }
        for (int i = 0; i < sequence.ack_length; ++i) {
            uint8_t byte = 0;
            if (read(line, &byte, 1) != 1) Device::Fail("bare read failed");
        }
    }
}

void OpenDriver(const Device& device) {
    if (SetPortDevice(kPort, device.name()) != 0 || OpenPort(kPort, 9600, 3, 3) != 0) {
        Device::Fail("the driver cannot open the port");
    }
}

template <class Work>
double Microseconds(Work work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double Median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void CompareExchange(benchmark::State& state, const Exchange& exchange) {
    Device device;
    device.Serve(exchange);
    OpenDriver(device);
    const int line = open(device.name(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::vector<double> driver;
    std::vector<double> bare;
    for (auto _ : state) {
        driver.push_back(Microseconds([&] { DriverExchange(exchange); }));
        bare.push_back(Microseconds([&] { BareExchange(line, exchange); }));
        state.SetIterationTime(driver.back() / 1e6);
    }
    const double driver_us = Median(driver);
    const double bare_us = Median(bare);
    state.counters["driver_us"] = driver_us;
    state.counters["bare_us"] = bare_us;
    state.counters["ratio"] = driver_us / bare_us;
    state.counters["target"] = exchange.ratio_target;
    state.counters["calls_target"] = exchange.system_calls_target;
    close(line);
    ClosePort();
}

double Least(const std::vector<double>& values) {
    return *std::min_element(values.begin(), values.end());
}

int RunDriverOnly(const char* name, int count) {
    for (const Exchange& exchange : kExchanges) {
        if (std::strcmp(exchange.name, name) != 0) continue;
        Device device;
        device.Serve(exchange);
        OpenDriver(device);
        for (int i = 0; i < count; ++i) DriverExchange(exchange);
        ClosePort();
        return 0;
    }
    Device::Fail("no such exchange");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::strcmp(argv[1], "--only") == 0) {
        return RunDriverOnly(argv[2], std::atoi(argv[3]));
    }
    for (const Exchange& exchange : kExchanges) {
        benchmark::RegisterBenchmark(
            exchange.name,
            [&exchange](benchmark::State& state) { CompareExchange(state, exchange); })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond)
            ->Iterations(2'000)
            ->Repetitions(15)
            ->ReportAggregatesOnly()
            ->ComputeStatistics("min", Least);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
