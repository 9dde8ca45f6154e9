#include "link/real_time_update.h"

#include "platform/quietly.h"

namespace trunvex {

void RealTimeUpdate::on(std::string key, Handler handler) {
    handlers_.emplace_back(std::move(key), std::move(handler));
}

void RealTimeUpdate::operator()(std::string_view key, const Fields& fields) const {
    for (const auto& entry : handlers_)
        if (entry.first == key) quietly("RealTimeUpdate", [&] { entry.second(fields); });
}

}  // namespace trunvex
