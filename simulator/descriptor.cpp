#include "simulator/descriptor.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace simulator {

Descriptor::Descriptor(Descriptor&& other) noexcept : fd(std::exchange(other.fd, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        close();
        fd = std::exchange(other.fd, -1);
    }
    return *this;
}

void Descriptor::close() {
    if (fd >= 0) ::close(std::exchange(fd, -1));
}

void Descriptor::makeNonBlocking() const {
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) | O_NONBLOCK);
    ::fcntl(fd, F_SETFD, FD_CLOEXEC);
}

void failWithErrno(const std::string& what) { throw std::runtime_error(what + ": " + std::strerror(errno)); }

}  // namespace simulator
