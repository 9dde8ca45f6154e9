#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace trunvex {

// One settings file: texts by section and key. Nothing is held between calls: a read sees what is on disk, and a write
// is on disk when the call returns.
class Settings {
public:
    virtual ~Settings() = default;

    // Empty when the file, the section or the key is missing.
    virtual std::string Read(std::string_view section, std::string_view key) = 0;
    // Creates what is missing. A file that can't be written leaves everything as it was.
    virtual void Write(std::string_view section, std::string_view key, std::string_view value) = 0;
    virtual void Remove(std::string_view section) = 0;

    struct Entry {
        std::string section;
        std::string key;
        std::string value;
    };
    // Several in one step: the file is written once.
    virtual void WriteAll(const std::vector<Entry>& entries) = 0;

    std::string readOr(std::string_view section, std::string_view key, std::string_view fallback) {
        auto value = Read(section, key);
        return value.empty() ? std::string(fallback) : value;
    }
};

}  // namespace trunvex
