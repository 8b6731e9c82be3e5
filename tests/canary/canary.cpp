// Commits the fault named by its argument. In a sanitized build it does not survive that.
#include <climits>
#include <cstring>
#include <memory>

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "heap") == 0) {
        const auto bytes = std::make_unique<volatile char[]>(8);
        return bytes[static_cast<std::size_t>(6 + argc)];  // one past the end
    }
    volatile int most = INT_MAX;
    return most + argc > 0 ? 0 : 1;
}
