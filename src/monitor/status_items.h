#pragma once

#include <map>
#include <string>
#include <string_view>

namespace trunvex {

// The texts of the status codes, by the code as it travels ("26", not "026"), and the pictures of the board.
class StatusItems {
public:
    StatusItems();

    // Throws std::out_of_range for a key that is not there.
    const std::string& at(std::string_view key) const;
    bool isEmptyItem(std::string_view key) const;

private:
    std::map<std::string, std::string, std::less<>> items_;
};

}  // namespace trunvex
