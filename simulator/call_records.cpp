#include "simulator/call_records.h"

#include "simulator/fields.h"

namespace simulator {

namespace {

constexpr int mostNumbers = 65535;
constexpr int incomingBit = 128;
constexpr int secondPortBit = 64;
constexpr int simShift = 3;

// Seconds, minutes, hours, day, weekday (1 is Sunday), month, year: two digits each, all zeros for no moment.
std::string stamp(const std::optional<std::chrono::sys_seconds>& moment) {
    using namespace std::chrono;
    if (!moment) return std::string(14, '0');
    const auto date = floor<days>(*moment);
    const year_month_day calendar(date);
    const hh_mm_ss<seconds> time(*moment - date);
    return padded(static_cast<int>(time.seconds().count()), 2) + padded(static_cast<int>(time.minutes().count()), 2) +
           padded(static_cast<int>(time.hours().count()), 2) +
           padded(static_cast<int>(static_cast<unsigned>(calendar.day())), 2) +
           padded(static_cast<int>(weekday(date).c_encoding()) + 1, 2) +
           padded(static_cast<int>(static_cast<unsigned>(calendar.month())), 2) +
           padded(static_cast<int>(calendar.year()) % 100, 2);
}

}  // namespace

std::string CallRecord::text() const {
    const int flags =
        static_cast<int>(type) + (sim << simShift) + (secondPort ? secondPortBit : 0) + (incoming ? incomingBit : 0);
    return joinFields({std::to_string(number), std::to_string(flags), simIdentity, dialled, calling, stamp(originated),
                       stamp(answered), stamp(disconnected), std::to_string(clearCause), std::to_string(releaseCause),
                       std::to_string(level), std::to_string(bcch), network});
}

std::deque<CallRecord>* CallRecords::channel(std::string_view address) {
    if (address.size() != 2 || (address[1] != '1' && address[1] != '3')) return nullptr;
    const auto mcu = number(address.substr(0, 1), 1, mcuCount);
    if (!mcu) return nullptr;
    return &channels[static_cast<std::size_t>((*mcu - 1) * 2 + (address[1] == '3' ? 1 : 0))];
}

void CallRecords::add(PortAddress port, CallRecord record) {
    record.number = lastNumber = lastNumber % mostNumbers + 1;
    record.secondPort = port.module % 2 == 0;
    channels[static_cast<std::size_t>((port.mcu - 1) * 2 + (port.module - 1) / 2)].push_back(std::move(record));
}

CallRecord someCallRecord(Random& random, std::chrono::sys_seconds ended) {
    using std::chrono::seconds;
    const auto phone = [&random] { return "05" + padded(static_cast<int>(random.between(0, 99'999'999)), 8); };
    CallRecord record;
    const bool voice = random.chance(0.9);
    record.type = voice ? CallType::voice : static_cast<CallType>(random.between(2, 4));
    record.sim = static_cast<int>(random.between(1, simsPerPort));
    record.incoming = random.chance(0.4);
    record.simIdentity = "99901" + padded(static_cast<int>(random.between(0, 999'999'999)), 10);
    record.dialled = phone();
    record.calling = random.chance(0.8) ? phone() : std::string();
    record.disconnected = ended;
    const auto talk = seconds(random.between(1, random.chance(0.1) ? 5400 : 400));
    const bool answered = random.chance(0.65);
    if (answered) record.answered = ended - talk;
    record.originated = (answered ? ended - talk : ended) - seconds(random.between(2, 25));
    record.clearCause = answered ? 16 : static_cast<int>(random.between(17, 31));
    record.releaseCause = record.clearCause;
    record.level = static_cast<int>(random.between(8, 62));
    record.bcch = static_cast<int>(random.between(1, 124));
    record.network = "9990" + std::to_string(random.between(1, 3));
    return record;
}

}  // namespace simulator
