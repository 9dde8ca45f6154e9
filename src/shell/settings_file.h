#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/settings.h"

namespace trunvex {

// Settings kept as XML: <settings><section name="IPConfig"><key name="server">1</key>...
//
// A write replaces the file in one step (a temporary file beside it, synced, then renamed), so a crash leaves the old
// file or the new one. A file that is no such XML, or larger than any settings are, is kept aside under
// "<name>.damaged", "<name>.damaged-2"..., and the defaults apply. Two programs on one file lose none of each other's
// settings: a write reads the file again while it holds the lock "<name>.lock".
class SettingsFile : public Settings {
public:
    // `tell` gets a sentence for the operator: once for a damaged file, once when the file can't be written.
    SettingsFile(std::filesystem::path path, std::function<void(const std::string&)> tell);

    std::string Read(std::string_view section, std::string_view key) override;
    void Write(std::string_view section, std::string_view key, std::string_view value) override;
    void Remove(std::string_view section) override;
    void WriteAll(const std::vector<Entry>& entries) override;

    const std::filesystem::path& path() const { return path_; }

private:
    class Document;

    bool load(Document& document);
    // `edit` tells whether it has changed anything.
    void change(const std::function<bool(Document&)>& edit);
    void store(const Document& document);
    bool putAside();

    std::filesystem::path path_;
    std::function<void(const std::string&)> tell_;
    bool toldUnwritable_ = false;
};

}  // namespace trunvex
