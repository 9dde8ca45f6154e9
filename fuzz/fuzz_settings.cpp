// A settings file with any content is read and written without harm, and holds afterwards what was written.
#include <cstdint>
#include <fstream>

#include "fakes/console_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const trunvex::fakes::TemporaryFolder folder;
    const auto path = folder.path() / "Setting.xml";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    trunvex::SettingsFile settings(path, [](const std::string&) {});
    settings.Read("IPConfig", "NetPort");
    settings.Write("IPConfig", "NetPort", "4001");
    if (settings.Read("IPConfig", "NetPort") != "4001") __builtin_trap();
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        if (entry.path() != path) std::filesystem::remove(entry.path());
    return 0;
}
