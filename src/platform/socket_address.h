// A numeric address for a system's own socket calls, which are alike here. Their headers differ: a
// file that includes this one includes them first.
#pragma once

#include <cstdint>

namespace platform {

struct Address {
    union {
        sockaddr any;
        sockaddr_in v4;
        sockaddr_in6 v6;
    };
    socklen_t length;
};

inline bool ParseAddress(const char* text, uint16_t port, Address& address) {
    address = {};
    if (inet_pton(AF_INET, text, &address.v4.sin_addr) == 1) {
        address.v4.sin_family = AF_INET;
        address.v4.sin_port = htons(port);
        address.length = sizeof address.v4;
        return true;
    }
    if (inet_pton(AF_INET6, text, &address.v6.sin6_addr) == 1) {
        address.v6.sin6_family = AF_INET6;
        address.v6.sin6_port = htons(port);
        address.length = sizeof address.v6;
        return true;
    }
    return false;
}

}  // namespace platform
