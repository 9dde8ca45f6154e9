#include "simulator/call_records.h"
#include "simulator/command_table.h"
#include "simulator/fields.h"

namespace simulator {

namespace {

constexpr std::string_view askRecord = "1";
constexpr std::string_view askCount = "2";
constexpr std::string_view noRecord = "0,255";

}  // namespace

// R_CDR<channel>,2: how many records the channel holds. R_CDR<channel>,1: the oldest of them, which stays there.
void readCallRecord(Request& request) {
    const auto fields = splitFields(request.body);
    auto* channel = request.state.callRecords.channel(fields[0]);
    if (!channel || fields.size() != 2) return request.malformed();
    if (fields[1] == askCount)
        request.answer("A_CDR" + fields[0] + ",2," + std::to_string(channel->size()));
    else if (fields[1] == askRecord)
        request.answer("A_CDR" + fields[0] + ",1," +
                       (channel->empty() ? std::string(noRecord) : channel->front().text()));
    else
        request.malformed();
}

// C_CDR<channel>,2,<number>: the record is taken. One that is gone already is as good as taken now: the console may not
// have heard the answer to its first word.
void dropCallRecord(Request& request) {
    const auto fields = splitFields(request.body);
    auto* channel = request.state.callRecords.channel(fields[0]);
    if (!channel || fields.size() != 3 || fields[1] != askCount) return request.malformed();
    if (!channel->empty() && std::to_string(channel->front().number) == fields[2]) channel->pop_front();
    request.answer("OK#" + fields[0]);
}

}  // namespace simulator
