#include "monitor/status_items.h"

#include <stdexcept>

namespace trunvex {

StatusItems::StatusItems()
    : items_{{"1", "RING MS"},
             {"2", "DIAL ISDN"},
             {"3", "CONNECTING"},
             {"4", "MS CONNECTED"},
             {"5", "CLEAR ISDN"},
             {"6", "DISCONNECTED MS"},
             {"7", "BUSY MS"},
             {"8", "BUSY ISDN"},
             {"9", "DIAL ISDN"},
             {"10", "REJECTED-OUT OF SERVICE"},
             {"11", "EMERGENCY CALLS ONLY"},
             {"12", "ISDN CONNECTED"},
             {"13", "ERROR GSM"},
             {"16", "ALERTING"},
             {"21", "Network ID"},
             {"22", "REGISTRATION"},
             {"23", "REGISTERED"},
             {"24", "UNREGISTERED"},
             {"26", "SIM ABSENCE"},
             {"27", "PIN RIGHT"},
             {"28", "PIN2 RIGHT"},
             {"29", "Required PIN CODE"},
             {"30", "Required PIN2 CODE"},
             {"31", "Required PUK CODE"},
             {"32", "Required PUK2 CODE"},
             {"33", "PIN CODE absent"},
             {"34", "PIN2 CODE absent"},
             {"35", "PIN CODE wrong"},
             {"36", "PIN2 CODE wrong"},
             {"37", "SIM LOCK is required"},
             {"38", "NETWORK PERSONALIZATION is required"},
             {"39", "SIM failure"},
             {"40", "SIM ready"},
             {"IMGSMS", "imgSMSPic"},
             {"IMG4", "imgConnected"},
             {"IMG12", "imgConnected"},
             {"IMG250", "imgAnt_0"},
             {"IMG251", "imgAnt_1"},
             {"IMG252", "imgAnt_2"},
             {"IMG253", "imgAnt_3"},
             {"IMG254", "imgAnt_4"},
             {"IMG22", "imgREG1"},
             {"IMG23", "imgAnt_0"},
             {"IMG24", "imgREG2"}} {
    for (std::size_t code = 0; code < codes; ++code)
        if (const auto found = items_.find(std::to_string(code)); found != items_.end()) byCode_[code] = &found->second;
}

const std::string* StatusItems::find(std::string_view key) const {
    const auto digit = [key](std::size_t at) { return static_cast<std::size_t>(key[at] - '0'); };
    const bool isCode = (key.size() == 1 || (key.size() == 2 && digit(1) <= 9)) && digit(0) >= 1 && digit(0) <= 9;
    if (isCode) {
        const auto code = key.size() == 1 ? digit(0) : digit(0) * 10 + digit(1);
        return code < codes ? byCode_[code] : nullptr;
    }
    const auto found = items_.find(key);
    return found == items_.end() ? nullptr : &found->second;
}

const std::string& StatusItems::at(std::string_view key) const {
    const auto* text = find(key);
    if (!text) throw std::out_of_range("no status item " + std::string(key));
    return *text;
}

bool StatusItems::isEmptyItem(std::string_view key) const { return find(key) == nullptr; }

}  // namespace trunvex
