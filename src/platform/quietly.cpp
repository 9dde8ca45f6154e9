#include "platform/quietly.h"

#ifndef NDEBUG
#include <cstdio>
#endif

namespace trunvex {

std::map<std::string, long>& trappedErrors() {
    static std::map<std::string, long> counts;
    return counts;
}

void noteTrapped(const char* routine, [[maybe_unused]] const char* reason) {
    ++trappedErrors()[routine];
#ifndef NDEBUG
    std::fprintf(stderr, "trapped in %s: %s\n", routine, reason);
#endif
}

}  // namespace trunvex
