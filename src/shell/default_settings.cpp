#include "shell/default_settings.h"

#include "text/text_rules.h"

namespace trunvex {

void completeSettings(Settings& settings, const std::filesystem::path& folder) {
    constexpr const char* section = "CDRConfig";
    const std::pair<const char*, std::string> defaults[] = {
        {"DateFormat", "0"}, {"DownLimit", "0"}, {"Mode", "0"}, {"Format", "0"}, {"Path", (folder / "data").string()}};
    for (const auto& [key, value] : defaults)
        if (settings.Read(section, key).empty()) settings.Write(section, key, value);
    if (val(settings.Read(section, "Max")) == 0) settings.Write(section, "Max", "1000");
}

}  // namespace trunvex
