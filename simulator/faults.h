#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

enum class Refusal { none, error, alarm };  // none; the lone word ERROR; an I_ALR that says ERROR

// How the gateway treats a command. Probabilities are 0 to 1 and are tried for each reply line.
struct ReplyFaults {
    std::chrono::milliseconds latencyMin{0};
    std::chrono::milliseconds latencyMax{0};
    bool silent = false;   // does not hear the command: no reply and no effect
    int answersOnTry = 1;  // does not hear the same line until it came this many times
    Refusal refuse = Refusal::none;
    double lost = 0;     // the command has its effect, its reply is gone
    double doubled = 0;  // the reply comes twice
    double late = 0;     // the reply comes later by lateBy, behind the replies to later commands
    std::chrono::milliseconds lateBy{6000};
};

// What happens to the bytes on their way, whatever they answer.
struct WireFaults {
    std::size_t longestPiece = 0;           // above 0: lines fall into pieces of 1 to this many bytes
    std::chrono::milliseconds pieceGap{0};  // from one piece to the next
    // Above 0: lines wait for the next multiple of this and leave as one piece.
    std::chrono::milliseconds coalesce{0};
    bool nulAfterCr = false;  // the terminator is CR NUL
    double garbage = 0;       // probability of a garbage line in front of a line
    std::size_t flood = 0;    // above 0: a line of this many bytes in front of a link's first line
    int hangUpAfter = 0;      // above 0: the link dies after this many lines
};

struct Faults {
    ReplyFaults replies;
    // What counts for one mnemonic, such as "R_ESN", in place of `replies`.
    std::map<std::string, ReplyFaults, std::less<>> perMnemonic;
    WireFaults wire;

    const ReplyFaults& of(std::string_view mnemonic) const;
};

// Switches a fault on from text: [MNEMONIC:]NAME[=VALUE], for example "silent", "R_ESN:try=2",
// "latency=20-200". Returns an empty text, or what is wrong with the wish, in which case nothing has changed.
// A fault of a mnemonic starts from the faults that count for all commands at that moment.
std::string switchOn(Faults& faults, std::string_view wish);

// Name, form of the value and meaning of each fault, a line each, for the program's help.
std::vector<std::string> faultHelp();

}  // namespace simulator
