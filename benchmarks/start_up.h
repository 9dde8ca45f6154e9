#pragma once

#include <string_view>

namespace bench {

// The argument with which this program shows a window instead of measuring: "--window=empty" or "--window=console";
// "sessions" makes a thousand of them without windows.
inline constexpr std::string_view windowArgument = "--window=";

// Shows the window, and once it is painted writes the private memory of the process in bytes. The exit status.
int showWindow(int argc, char** argv, std::string_view which);

}  // namespace bench
