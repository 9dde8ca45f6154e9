#pragma once

#include <string>
#include <string_view>

namespace trunvex {

// Between the program's UTF-8 and files of a single-byte character set (ISO 8859-1). What it can't hold becomes "?".
std::string toLatin1(std::string_view utf8);
std::string fromLatin1(std::string_view bytes);

}  // namespace trunvex
