#include "simulator/transport_pty.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace simulator {

PtyTransport::PtyTransport(const std::string& linkPath) : line(posix_openpt(O_RDWR | O_NOCTTY)) {
    if (!line || grantpt(line.get()) != 0 || unlockpt(line.get()) != 0) failWithErrno("no pseudo-terminal");
    line.makeNonBlocking();
    name = ptsname(line.get());
    consoleEnd = Descriptor(open(name.c_str(), O_RDWR | O_NOCTTY));
    termios settings{};
    if (!consoleEnd || tcgetattr(consoleEnd.get(), &settings) != 0) failWithErrno(name);
    consoleEnd.makeNonBlocking();
    cfmakeraw(&settings);
    tcsetattr(consoleEnd.get(), TCSANOW, &settings);
    if (!linkPath.empty()) {
        link = linkPath;
        makeLink();
    }
}

PtyTransport::~PtyTransport() {
    if (!link.empty()) unlink(link.c_str());
}

std::string PtyTransport::describe() const {
    return "serial line on " + name + (link.empty() ? "" : " (" + link + ")");
}

std::optional<Link> PtyTransport::take(std::chrono::milliseconds now) {
    next = now + std::chrono::milliseconds(500);
    Descriptor copy(dup(line.get()));
    if (!copy) return std::nullopt;
    copy.makeNonBlocking();
    return Link{std::move(copy), name};
}

void PtyTransport::makeLink() {
    struct stat found {};
    if (lstat(link.c_str(), &found) == 0 && S_ISLNK(found.st_mode))
        unlink(link.c_str());  // left by a run that was killed
    if (symlink(name.c_str(), link.c_str()) != 0) {
        const std::string path = std::exchange(link, {});  // not ours to remove
        failWithErrno("no link " + path);
    }
}

}  // namespace simulator
