#include "simulator/line_cutter.h"

#include <algorithm>
#include <utility>

namespace simulator {

void LineCutter::push(std::string_view bytes, const std::function<void(const std::string&)>& onLine) {
    const unsigned started = generation;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\r');
        const std::string_view part = bytes.substr(0, end);
        unfinished.append(part.substr(0, std::min(part.size(), maxLine - unfinished.size())));
        if (end == std::string_view::npos) return;
        bytes.remove_prefix(end + 1);
        onLine(std::exchange(unfinished, {}));
        // The line took the link down: what came behind it belongs to a link that is no more.
        if (generation != started) return;
    }
}

void LineCutter::clear() {
    unfinished.clear();
    ++generation;
}

}  // namespace simulator
