#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

namespace trunvex {

// The texts of the status codes, by the code as it travels ("26", not "026"), and the pictures of the board.
class StatusItems {
public:
    StatusItems();
    StatusItems(const StatusItems&) = delete;  // it points into itself
    StatusItems& operator=(const StatusItems&) = delete;

    // Throws std::out_of_range for a key that is not there.
    const std::string& at(std::string_view key) const;
    bool isEmptyItem(std::string_view key) const;

private:
    static constexpr std::size_t codes = 41;

    const std::string* find(std::string_view key) const;

    std::map<std::string, std::string, std::less<>> items_;
    std::array<const std::string*, codes> byCode_{};  // the texts once more: each report looks for several
};

}  // namespace trunvex
