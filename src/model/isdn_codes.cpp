#include "model/isdn_codes.h"

#include <algorithm>

namespace trunvex::isdn_codes {

const Table networkAccess{{"NT", "8"}, {"TE", "4"}};
const Table synchronization{{"MASTER", "4"}, {"SLAVE", "1"}};
const Table incomingCalls{{"In block", "2"}, {"Overlap", "130"}};
const Table countryCode{{"USA and Canada", "1"}, {"Germany", "49"}, {"Euro-ISND", "1000"}, {"France", "33"},
                        {"Australia", "61"},     {"Japan", "81"},   {"Korea", "82"},       {"Hong Kong", "852"}};
const Table isdnVersion{{"EuroISDN", "11"},  {"VN6", "3"},          {"1TR6", "4"},
                        {"QSIG", "16"},      {"NorTelDMS100", "8"}, {"National ISDN", "20"},
                        {"AT&T 5ESS", "23"}, {"AT&T 4ESS", "24"},   {"NTT", "9"},
                        {"KDD", "10"},       {"Hong Kong", "17"},   {"Korea", "25"}};
const Table numberIdentification{{"Unknown", "0"},
                                 {"ISDN/telephony numbering plan", "1"},
                                 {"Reserved ", "2"},
                                 {"Data numbering plan", "3"},
                                 {"Telex numbering plan", "4"},
                                 {"Land mobile numbering plan", "6"},
                                 {"Private numbering plan", "9"},
                                 {"Permanently Reserved", "12"},
                                 {"Alphanumric Internet Address", "14"},
                                 {"Reserved for extension", "15"}};

std::string codeOf(const Table& table, std::string_view text) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const Row& one) { return one.text == text; });
    return row == table.end() ? std::string() : row->code;
}

std::string textOf(const Table& table, std::string_view code) {
    const auto row = std::find_if(table.begin(), table.end(), [&](const Row& one) { return one.code == code; });
    return row == table.end() ? std::string() : row->text;
}

std::vector<std::string> texts(const Table& table) {
    std::vector<std::string> all;
    for (const auto& row : table) all.emplace_back(row.text);
    return all;
}

}  // namespace trunvex::isdn_codes
