#pragma once

#include <string>
#include <string_view>

#include "text/split.h"

namespace trunvex {

// The fields of a settings record that came: as the gateway reports it, or as the console wrote it and the gateway
// acknowledged. In the second an empty field means "unchanged"; in both, what was not sent at all changes nothing.
class RecordFields {
public:
    RecordFields(const Fields& fields, bool acknowledged) : fields_(fields), acknowledged_(acknowledged) {}

    bool has(std::size_t index) const {
        return index + 1 < fields_.size() && !(acknowledged_ && fields_.at(index).empty());
    }
    // Empty for a field that was not sent.
    std::string_view at(std::size_t index) const {
        return index + 1 < fields_.size() ? fields_.at(index) : std::string_view();
    }
    void store(std::size_t index, std::string& into) const {
        if (has(index)) into = at(index);
    }

private:
    const Fields& fields_;
    bool acknowledged_;
};

}  // namespace trunvex
