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

void FakeSocket::connect(const std::string& host, int port) {
    state_ = State::Connecting;
    target = host + ":" + std::to_string(port);
}

void FakeSocket::listen() {
    if (listenFails) throw LinkError("Can't listen on port " + std::to_string(localPort) + ": in use");
    state_ = State::Listening;
}

void FakeSocket::accept(int) {
    state_ = State::Connected;
    if (onOpened) onOpened();
}

void FakeSocket::close() {
    const bool was = state_ == State::Connected;
    state_ = State::Closed;
    if (was && onClosed) onClosed();
}

void FakeSocket::sendData(std::string_view bytes) {
    sent += bytes;
    if (onBytes) onBytes(bytes);
}

void FakeSocket::peerAccepts() {
    state_ = State::Connected;
    if (onOpened) onOpened();
    onConnect();
}

void FakeSocket::peerCalls() { onConnectionRequest(1); }

void FakeSocket::peerCloses() {
    state_ = State::Closed;
    onClose();
}

void FakeSocket::fails(const std::string& reason) {
    state_ = State::Closed;
    onError(reason);
}

std::vector<std::string> FakeSocket::sentLines() const {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (auto end = sent.find('\r'); end != std::string::npos; end = sent.find('\r', start)) {
        lines.push_back(sent.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

void FakeSerial::open() {
    if (!refusal.empty()) throw LinkError(refusal);
    open_ = true;
}

std::chrono::local_seconds ManualClock::localTime() const {
    constexpr std::chrono::local_seconds start{std::chrono::local_days{std::chrono::year{2026} / 3 / 1}};
    return start + std::chrono::duration_cast<std::chrono::seconds>(loop_.now());
}

std::unique_ptr<SerialPort> ManualPlatform::makeSerialPort(std::function<std::string(int)>) {
    auto made = std::make_unique<FakeSerial>();
    serial = made.get();
    return made;
}

std::unique_ptr<TcpSocket> ManualPlatform::makeTcpSocket() {
    auto made = std::make_unique<FakeSocket>();
    socket = made.get();
    return made;
}

}  // namespace trunvex::fakes
