#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace simulator {

// Cuts what the console sends into command lines. A line ends at one carriage return and nowhere else: a line
// feed or a NUL stays in the line, so that a console which sends one is answered with ERROR and found out.
class LineCutter {
public:
    // The gateway's line memory. Of a longer line the tail is dropped; the line still ends at its CR.
    static constexpr std::size_t maxLine = 4096;

    // Calls onLine for each line that these bytes complete, in order. onLine may call clear().
    void push(std::string_view bytes, const std::function<void(const std::string&)>& onLine);
    void clear();

private:
    std::string unfinished;
    unsigned generation = 0;
};

}  // namespace simulator
