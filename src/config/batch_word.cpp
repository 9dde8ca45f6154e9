#include "config/batch_word.h"

#include <algorithm>
#include <utility>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr std::size_t mostNamed = 5;

const char* reason(WriteQueue::Outcome outcome) {
    using enum WriteQueue::Outcome;
    return outcome == Refused ? " (refused)" : outcome == NoAnswer ? " (no answer)" : " (not sent)";
}

}  // namespace

BatchWord::BatchWord(WriteQueue& writes, const Clock& clock, std::function<void(const std::string&)> tell)
    : clock_(clock), tell_(std::move(tell)) {
    writes.settled().connect([this](const QueueItem&, WriteQueue::Outcome outcome) { settle(outcome); });
    writes.ended().connect([this](WriteQueue::Ending ending) { end(ending); });
}

void BatchWord::expect(std::string name, std::vector<std::string> names) {
    name_ = std::move(name);
    names_ = std::move(names);
    outcomes_.clear();
}

void BatchWord::settle(WriteQueue::Outcome outcome) {
    if (outcomes_.size() < names_.size()) outcomes_.push_back(outcome);
}

// A link that fell has blanked what the word would stand beside; the window tells what was cut short.
void BatchWord::end(WriteQueue::Ending ending) {
    if (names_.empty()) return;
    const auto failed = whatFailed();
    names_.clear();
    if (ending == WriteQueue::Ending::Lost) return;
    tell_(name_ + (failed.empty() ? " written " : " not written whole ") + timeOfDay(clock_.localTime()) +
          (failed.empty() ? "" : ". Not in the gateway: " + failed));
    done_.emit(failed.empty());
}

std::string BatchWord::whatFailed() const {
    std::string text;
    std::size_t count = 0;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        const auto outcome = i < outcomes_.size() ? outcomes_[i] : WriteQueue::Outcome::NotSent;
        if (outcome == WriteQueue::Outcome::Accepted || ++count > mostNamed) continue;
        text += (text.empty() ? "" : ", ") + names_[i] + reason(outcome);
    }
    if (count > mostNamed) text += " and " + std::to_string(count - mostNamed) + " more";
    return text;
}

}  // namespace trunvex
