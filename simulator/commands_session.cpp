#include "simulator/command_table.h"
#include "simulator/fields.h"

namespace simulator {

namespace {

constexpr int allRights = 65535;
constexpr int administrator = 1;  // the bit that no user may have

// What a console can send in a field: no comma, and no control character.
bool isPassword(std::string_view text) {
    for (const char c : text) {
        if (c == ',' || static_cast<unsigned char>(c) < ' ') return false;
    }
    return !text.empty();
}

}  // namespace

// C_CPW<password> is answered by A_CPW<rights>, the mask of the one who has this password; 0 when nobody has.
// A wrong password closes nothing: the gateway goes on answering, and refuses what would change it.
void logIn(Request& request) {
    const Accounts& accounts = request.state.accounts;
    int rights = 0;
    if (request.body == accounts.adminPassword)
        rights = allRights;
    else if (!accounts.userPassword.empty() && request.body == accounts.userPassword)
        rights = accounts.userRights;
    request.state.strangerOnLine = rights == 0;
    request.answer("A_CPW" + std::to_string(rights));
}

// C_APW<password>
void setAdminPassword(Request& request) {
    if (!isPassword(request.body)) return request.malformed();
    request.state.accounts.adminPassword = request.body;
    request.answer("OK");
}

// C_UPW<mask>,<password>, the mask in five digits. An empty one of the two is left as it is.
void setUserPassword(Request& request) {
    const auto fields = splitFields(request.body);
    const auto mask = number(fields[0], 0, allRights);
    const bool goodMask = fields[0].empty() || (mask && fields[0].size() == 5);
    if (fields.size() != 2 || !goodMask || !(fields[1].empty() || isPassword(fields[1]))) return request.malformed();
    Accounts& accounts = request.state.accounts;
    if (mask) accounts.userRights = *mask & ~administrator;
    if (!fields[1].empty()) accounts.userPassword = fields[1];
    request.answer("OK");
}

// R_ESN: A_ESN<serial number>
void readEsn(Request& request) {
    if (!request.body.empty()) return request.malformed();
    request.answer("A_ESN" + request.state.esn);
}

// R_PPR: A_PPR and one digit a port in slot order, 1 where a module is in service. That holds for a CDMA module,
// too: a console asks for the record, which is where it learns the kind, only of a port that has a 1.
void readActivePorts(Request& request) {
    if (!request.body.empty()) return request.malformed();
    std::string line = "A_PPR";
    for (const Port& port : request.state.ports) line += port.module;
    request.answer(line);
}

}  // namespace simulator
