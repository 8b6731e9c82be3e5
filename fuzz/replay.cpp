// Runs a fuzz target without a fuzzing engine: first the corpus, then inputs made from it by
// chance.
//   target [--seconds N] [--seed N] [corpus folders and files...]
// The input that ends the run badly is left in the file "fuzz-input".
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, std::size_t count);
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace {

using Bytes = std::vector<uint8_t>;

Bytes current;

void Save() {
    std::ofstream("fuzz-input", std::ios::binary)
        .write(reinterpret_cast<const char*>(current.data()), static_cast<long>(current.size()));
}

void SaveAndAbort(int signal) {
    Save();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void Run(const Bytes& input) {
    current = input;
    LLVMFuzzerTestOneInput(current.data(), current.size());
}

std::vector<Bytes> Read(const std::filesystem::path& path) {
    std::vector<Bytes> inputs;
    if (std::filesystem::is_directory(path)) {
        for (const auto& entry : std::filesystem::directory_iterator(path))
            for (Bytes& input : Read(entry.path())) inputs.push_back(std::move(input));
    } else {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw std::runtime_error("cannot read " + path.string());
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

// A few bytes changed, put in, left out, or taken from another input.
Bytes Vary(const std::vector<Bytes>& inputs, std::mt19937& chance) {
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : chance() % limit; };
    Bytes input = inputs[below(inputs.size())];
    for (std::size_t changes = 1 + below(8); changes > 0; --changes) {
        const auto at = input.begin() + static_cast<long>(below(input.size() + 1));
        const auto byte = static_cast<uint8_t>(chance());
        const Bytes& other = inputs[below(inputs.size())];
        switch (below(5)) {
            case 0:
                input.insert(at, 1 + below(16), byte);
                break;
            case 1:
                input.erase(at, at + static_cast<long>(
                                         below(static_cast<std::size_t>(input.end() - at) + 1)));
                break;
            case 2:
                input.insert(at, other.begin() + static_cast<long>(below(other.size() + 1)),
                             other.end());
                break;
            case 3:
                for (std::size_t count = below(200); count > 0; --count)
                    input.push_back(static_cast<uint8_t>(chance()));
                break;
            default:
                if (at != input.end()) *at = byte;
        }
    }
    if (input.size() > 4096) input.resize(4096);
    return input;
}

}  // namespace

int main(int count, char** arguments) {
    // What the memory platform finds wrong ends the run as well.
    testing::InitGoogleTest(&count, arguments);
    GTEST_FLAG_SET(break_on_failure, true);
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(Save);
    std::signal(SIGABRT, SaveAndAbort);

    long seconds = 0;
    uint32_t seed = std::random_device{}();
    std::vector<Bytes> inputs = {{}};
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        if (word == "--seconds" && i + 1 < count) {
            seconds = std::stol(arguments[++i]);
        } else if (word == "--seed" && i + 1 < count) {
            seed = static_cast<uint32_t>(std::stoul(arguments[++i]));
        } else {
            for (Bytes& input : Read(word)) inputs.push_back(std::move(input));
        }
    }
    std::cerr << "seed " << seed << std::endl;
    // The driver's trace is of no use here.
    if (std::freopen("/dev/null", "w", stdout) == nullptr) return 2;
    for (const Bytes& input : inputs) Run(input);
    std::mt19937 chance(seed);
    std::size_t runs = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    for (; std::chrono::steady_clock::now() < end; ++runs) Run(Vary(inputs, chance));
    std::cerr << inputs.size() << " inputs of the corpus, " << runs << " made from them\n";
    return 0;
}
