#include "config/write_word.h"

#include "text/text_rules.h"

namespace trunvex {

WriteWord::WriteWord(WriteQueue& writes, const Clock& clock, RecordForm& form) : clock_(clock), form_(form) {
    writes.settled().connect([this](const QueueItem& item, WriteQueue::Outcome outcome) {
        if (line_.empty() || item.Key != line_ || form_.key() != key_) return;
        line_.clear();
        using enum WriteQueue::Outcome;
        tell(name_ + (outcome == Accepted  ? " written"
                      : outcome == Refused ? " not written, the gateway refused it,"
                                           : " not written, the gateway did not answer,"));
    });
    writes.ended().connect([this](WriteQueue::Ending) { line_.clear(); });
}

void WriteWord::expect(std::string line, std::string name) {
    line_ = std::move(line);
    name_ = std::move(name);
    key_ = form_.key();
}

void WriteWord::tell(const std::string& what) { form_.setWord(what + " " + timeOfDay(clock_.localTime())); }

}  // namespace trunvex
