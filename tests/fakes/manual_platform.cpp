#include "fakes/manual_platform.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace trunvex::fakes {

void ManualLoop::advance(Ms span) { advanceTo(now_ + span); }

// A box open in a tick may advance the time itself, so what is due is looked up anew after each.
void ManualLoop::advanceTo(Ms end) {
    for (;;) {
        ManualTimer* next = nullptr;
        for (auto* timer : timers_)
            if (timer->active_ && (!next || timer->due_ < next->due_)) next = timer;
        const bool actionFirst = !actions_.empty() && (!next || actions_.begin()->first <= next->due_);
        if (actionFirst && actions_.begin()->first <= end) {
            now_ = std::max(now_, actions_.begin()->first);
            auto action = std::move(actions_.begin()->second);
            actions_.erase(actions_.begin());
            action();
        } else if (!actionFirst && next && next->due_ <= end) {
            now_ = std::max(now_, next->due_);
            next->due_ = now_ + next->interval_;
            next->onTick_();
        } else {
            break;
        }
    }
    now_ = std::max(now_, end);
}

int ManualLoop::runningTimers() const {
    return static_cast<int>(
        std::count_if(timers_.begin(), timers_.end(), [](const ManualTimer* timer) { return timer->active_; }));
}

ManualTimer::ManualTimer(ManualLoop& loop, std::function<void()> onTick) : loop_(loop), onTick_(std::move(onTick)) {
    loop_.timers_.insert(this);
}

ManualTimer::~ManualTimer() { loop_.timers_.erase(this); }

void ManualTimer::start(int intervalMs) {
    active_ = true;
    interval_ = ManualLoop::Ms(intervalMs);
    due_ = loop_.now() + interval_;
}

namespace {

// In the order of the set's name, the refusal that closing the box means first.
std::vector<Button> offered(ButtonSet set) {
    switch (set) {
        case ButtonSet::OkCancel:
            return {Button::Cancel, Button::Ok};
        case ButtonSet::YesNo:
            return {Button::No, Button::Yes};
        case ButtonSet::RetryCancel:
            return {Button::Cancel, Button::Retry};
        case ButtonSet::AbortRetryIgnore:
            return {Button::Abort, Button::Retry, Button::Ignore};
        case ButtonSet::Ok:
            break;
    }
    return {Button::Ok};
}

}  // namespace

void ScriptedDialogs::runBehind(const MessageBox& box) {
    if (const auto run = std::exchange(behind, nullptr)) run(box);
}

Button ScriptedDialogs::message(const MessageBox& box) {
    shown.push_back(box);
    runBehind(box);
    const auto buttons = offered(box.buttons);
    if (answers.empty()) return buttons.front();
    const auto answer = answers.front();
    answers.pop_front();
    const bool possible = std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
    return possible ? answer : buttons.front();
}

std::vector<std::string> ScriptedDialogs::texts() const {
    std::vector<std::string> all;
    for (const auto& box : shown) all.push_back(box.text);
    return all;
}

namespace {

class FakeDocument : public PrintDocument {
public:
    FakeDocument(FakePrinter& printer, FakePrinter::Document document)
        : printer_(printer), document_(std::move(document)) {}
    ~FakeDocument() override { printer_.aborted += finished_ ? 0 : 1; }

    void setFont(const std::string& family, int points) override { font_ = {family, points, {}}; }
    void line(std::string_view text) override {
        failWhenDue();
        document_.lines.push_back({font_.font, font_.points, std::string(text)});
    }
    void finish() override {
        failWhenDue();
        finished_ = true;
        printer_.printed.push_back(std::move(document_));
    }

private:
    void failWhenDue() const {
        if (document_.lines.size() >= printer_.failsAt) throw std::runtime_error("out of paper");
    }

    FakePrinter& printer_;
    FakePrinter::Document document_;
    FakePrinter::Line font_;
    bool finished_ = false;
};

}  // namespace

std::unique_ptr<PrintDocument> FakePrinter::begin(const std::string& title) {
    Document document{title, {}, {}};
    if (!present) {
        document.file =
            dialogs_.saveFile("Print", "PDF file (*.pdf)|*.pdf", title, Dialogs::AskReplace::Dialog, Ticket::lasting());
        if (document.file.empty()) return nullptr;
    }
    if (!refusal.empty()) throw std::runtime_error(refusal);
    return std::make_unique<FakeDocument>(*this, std::move(document));
}

class FakePipe : public BytePipe {
public:
    FakePipe(FakePeer& peer, const PipeTarget& target) : peer_(peer), target_(target) {
        peer_.pipe_ = this;
        peer_.target = target;
    }

    State state() const override { return current() ? peer_.state : State::Closed; }
    bool listens() const override { return std::holds_alternative<ListenTarget>(target_); }
    std::string farEnd() const override { return "gateway"; }
    void open() override {
        if (!peer_.refusal.empty()) throw LinkError(peer_.refusal);
        peer_.state = listens() ? State::Waiting : State::Opening;
        if (std::holds_alternative<SerialTarget>(target_)) peer_.come();
    }
    void close() override {
        if (!current()) return;
        const bool was = peer_.reached();
        peer_.state = State::Closed;
        if (was && peer_.onClosed) peer_.onClosed();
    }
    void send(std::string_view bytes) override {
        peer_.sent += bytes;
        if (peer_.onBytes) peer_.onBytes(bytes);
    }

private:
    bool current() const { return peer_.pipe_ == this; }

    FakePeer& peer_;
    PipeTarget target_;
};

void FakePeer::come() {
    state = BytePipe::State::Up;
    if (onOpened) onOpened();
}

void FakePeer::accepts() {
    come();
    pipe_->onUp();
}

void FakePeer::calls() {
    come();
    pipe_->onCalled();
}

void FakePeer::lose(Loss::Cause cause, const std::string& reason) {
    state = BytePipe::State::Closed;
    pipe_->onLost({cause, reason});
}

std::vector<std::string> FakePeer::sentLines() const {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (auto end = sent.find('\r'); end != std::string::npos; end = sent.find('\r', start)) {
        lines.push_back(sent.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

std::chrono::local_seconds ManualClock::localTime() const {
    constexpr std::chrono::local_seconds start{std::chrono::local_days{std::chrono::year{2026} / 3 / 1}};
    return start + std::chrono::duration_cast<std::chrono::seconds>(loop_.now());
}

std::unique_ptr<BytePipe> ManualPlatform::makePipe(const PipeTarget& target) {
    return std::make_unique<FakePipe>(peer, target);
}

}  // namespace trunvex::fakes
