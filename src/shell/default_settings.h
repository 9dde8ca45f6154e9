#pragma once

#include <filesystem>

#include "platform/settings.h"

namespace trunvex {

// Writes the defaults of what the settings file lacks, so that it is complete after the first start: the call record
// settings. `folder` is the application folder.
void completeSettings(Settings& settings, const std::filesystem::path& folder);

}  // namespace trunvex
