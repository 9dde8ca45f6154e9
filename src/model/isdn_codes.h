#pragma once

#include <string>
#include <string_view>
#include <vector>

// The words that the ISDN record's codes stand for. A table lists its rows in the order in which an operator sees them.
namespace trunvex::isdn_codes {

struct Row {
    const char* text;
    const char* code;
};
using Table = std::vector<Row>;

extern const Table networkAccess;
extern const Table synchronization;
extern const Table incomingCalls;
extern const Table countryCode;
extern const Table isdnVersion;
extern const Table numberIdentification;

// Empty for a text or a code that the table does not have.
std::string codeOf(const Table& table, std::string_view text);
std::string textOf(const Table& table, std::string_view code);
std::vector<std::string> texts(const Table& table);

}  // namespace trunvex::isdn_codes
