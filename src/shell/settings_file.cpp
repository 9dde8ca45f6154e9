#include "shell/settings_file.h"

#include <fstream>
#include <pugixml.hpp>
#include <sstream>

#include "platform/durable_file.h"
#include "platform/file_lock.h"
#include "platform/quietly.h"

namespace trunvex {

namespace {

constexpr std::uintmax_t largestFile = 16u << 20;

pugi::xml_node childNamed(const pugi::xml_node& parent, const char* element, std::string_view name) {
    for (auto child : parent.children(element))
        if (child.attribute("name").as_string() == name) return child;
    return {};
}

pugi::xml_node childNamedOrNew(pugi::xml_node parent, const char* element, std::string_view name) {
    if (auto child = childNamed(parent, element, name)) return child;
    auto child = parent.append_child(element);
    child.append_attribute("name").set_value(std::string(name).c_str());
    return child;
}

}  // namespace

class SettingsFile::Document {
public:
    pugi::xml_document xml;

    pugi::xml_node root() {
        if (auto root = xml.child("settings")) return root;
        return xml.append_child("settings");
    }
};

SettingsFile::SettingsFile(std::filesystem::path path, std::function<void(const std::string&)> tell)
    : path_(std::move(path)), tell_(std::move(tell)) {}

// A missing or an empty file is an empty document; one that can't be read at all is too, but is never replaced.
bool SettingsFile::load(Document& document) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path_, error);
    if (error) return !std::filesystem::exists(path_);
    if (size == 0) return true;
    if (size > largestFile) return putAside();
    std::ifstream file(path_, std::ios::binary);
    if (!file) return false;
    const auto result = document.xml.load(file, pugi::parse_default | pugi::parse_ws_pcdata_single);
    if (result && document.xml.child("settings")) return true;
    document.xml.reset();
    return putAside();
}

bool SettingsFile::putAside() {
    auto aside = path_;
    aside += ".damaged";
    for (int n = 2; std::filesystem::exists(aside); ++n) {
        aside = path_;
        aside += ".damaged-" + std::to_string(n);
    }
    std::error_code error;
    std::filesystem::rename(path_, aside, error);
    if (error) {
        if (!toldUnwritable_) tell_(path_.filename().string() + " is damaged and can't be read; the defaults apply.");
        toldUnwritable_ = true;
        return false;
    }
    tell_(path_.filename().string() + " was damaged. It is kept as " + aside.filename().string() +
          "; the defaults apply.");
    return true;
}

// What would change nothing writes nothing, and needs no lock.
void SettingsFile::change(const std::function<bool(Document&)>& edit) {
    Document before;
    if (!load(before) || !edit(before)) return;
    try {
        const FileLock lock(path_.string() + ".lock", FileLock::Busy::Wait);
        Document document;
        if (load(document) && edit(document)) store(document);
        toldUnwritable_ = false;
    } catch (const std::exception& error) {
        noteTrapped("SettingsFile::store", error.what());
        if (!toldUnwritable_)
            tell_("The settings can't be saved: " + std::string(error.what()) + " (" + path_.string() + ")");
        toldUnwritable_ = true;
    }
}

void SettingsFile::store(const Document& document) {
    std::ostringstream text;
    document.xml.save(text, "  ");
    replaceFile(path_, text.str());
}

std::string SettingsFile::Read(std::string_view section, std::string_view key) {
    Document document;
    load(document);
    return childNamed(childNamed(document.root(), "section", section), "key", key).text().as_string();
}

void SettingsFile::Write(std::string_view section, std::string_view key, std::string_view value) {
    WriteAll({{std::string(section), std::string(key), std::string(value)}});
}

// A missing text reads as an empty one.
void SettingsFile::WriteAll(const std::vector<Entry>& entries) {
    change([&entries](Document& document) {
        bool changed = false;
        for (const auto& [section, key, value] : entries) {
            const auto held = childNamed(childNamed(document.root(), "section", section), "key", key);
            if (held.text().as_string() == value) continue;
            childNamedOrNew(childNamedOrNew(document.root(), "section", section), "key", key).text().set(value.c_str());
            changed = true;
        }
        return changed;
    });
}

void SettingsFile::Remove(std::string_view section) {
    change([section](Document& document) {
        auto root = document.root();
        const auto node = childNamed(root, "section", section);
        return node && root.remove_child(node);
    });
}

}  // namespace trunvex
