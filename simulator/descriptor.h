#pragma once

#include <string>

namespace simulator {

// Owns a file descriptor, or none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : fd(number) {}
    Descriptor(Descriptor&& other) noexcept;
    Descriptor& operator=(Descriptor&& other) noexcept;
    ~Descriptor() { close(); }

    int get() const { return fd; }
    explicit operator bool() const { return fd >= 0; }
    void close();
    // Reads and writes return at once, and no child program inherits it.
    void makeNonBlocking() const;

private:
    int fd = -1;
};

// Throws std::runtime_error with what failed, the reason that errno holds and nothing else.
[[noreturn]] void failWithErrno(const std::string& what);

}  // namespace simulator
