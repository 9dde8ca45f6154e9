#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "platform/sqlite/sqlite_engine.h"

namespace trunvex::fakes {

// A clock turned by hand, and the timers on it. Time passes only in advance(); ticks come in the order they are due.
class ManualLoop {
public:
    using Ms = std::chrono::milliseconds;

    Ms now() const { return now_; }
    // Lets the time pass, tick by tick. Ticks may start further timers, also for this span.
    void advance(Ms span);
    // Runs at a time of its own, next to the timers.
    void at(Ms due, std::function<void()> action) { actions_.emplace(due, std::move(action)); }
    int runningTimers() const;

private:
    friend class ManualTimer;

    void advanceTo(Ms end);

    Ms now_{0};
    std::set<class ManualTimer*> timers_;
    std::multimap<Ms, std::function<void()>> actions_;
};

class ManualTimer : public Timer {
public:
    ManualTimer(ManualLoop& loop, std::function<void()> onTick);
    ~ManualTimer() override;
    void start(int intervalMs) override;
    void stop() override { active_ = false; }
    bool isActive() const override { return active_; }

private:
    friend class ManualLoop;

    ManualLoop& loop_;
    std::function<void()> onTick_;
    ManualLoop::Ms due_{0};
    ManualLoop::Ms interval_{0};
    bool active_ = false;
};

// Answers each box with the next of `answers` (its refusal when there is none or it has no such button), after `behind`
// has run: what happens while the box is open.
class ScriptedDialogs : public Dialogs {
public:
    Button message(const MessageBox& box) override;
    std::string openFilePath(const std::string& title, const std::string&) override {
        runBehind({title, title});
        return file;
    }
    std::string saveFilePath(const std::string& title, const std::string&, const std::string&, AskReplace) override {
        runBehind({title, title});
        return file;
    }
    void runBehind(const MessageBox& box);

    std::deque<Button> answers;
    std::function<void(const MessageBox&)> behind;
    std::vector<MessageBox> shown;
    std::string file;  // what the file dialogs answer
    std::vector<std::string> texts() const;
};

// Keeps the documents that were finished, line by line. Without a printer it asks for a file, as the real one does.
class FakePrinter : public Printer {
public:
    struct Line {
        std::string font;
        int points = 0;
        std::string text;
        bool operator==(const Line&) const = default;
    };
    struct Document {
        std::string title;
        std::string file;  // empty on paper
        std::vector<Line> lines;
    };

    explicit FakePrinter(Dialogs& dialogs) : dialogs_(dialogs) {}
    std::unique_ptr<PrintDocument> begin(const std::string& title) override;

    bool present = true;
    std::string refusal;  // what begin() throws; empty begins
    // The line, from 0, that throws; finish() counts as the one behind the last.
    std::size_t failsAt = SIZE_MAX;
    std::vector<Document> printed;
    int aborted = 0;

private:
    Dialogs& dialogs_;
};

// The far end of the console's pipe, in memory, whatever the console takes it for: it stays when another pipe is made.
class FakePeer {
public:
    // Takes the console's call.
    void accepts();
    void calls();
    void closes() { lose(Loss::Cause::PeerClosed, "closed"); }
    void fails(const std::string& reason) { lose(Loss::Cause::Failed, reason); }
    void changesDsr() { pipe_->onLost({Loss::Cause::DsrChanged, "DSR fell"}); }
    void deliver(std::string_view bytes) { pipe_->onReceived(bytes); }

    bool reached() const { return state == BytePipe::State::Up; }
    std::vector<std::string> sentLines() const;

    BytePipe::State state = BytePipe::State::Closed;
    std::string refusal;  // what open() throws; empty opens
    PipeTarget target;    // what the pipe was made for
    std::string sent;
    std::function<void()> onOpened;                       // the pipe came up
    std::function<void(std::string_view bytes)> onBytes;  // the console sent
    std::function<void()> onClosed;                       // the console closed

private:
    friend class FakePipe;

    void come();
    void lose(Loss::Cause cause, const std::string& reason);

    BytePipe* pipe_ = nullptr;  // the one last made
};

class FakeTray : public Tray {
public:
    bool available() const override { return present; }
    void add(const std::string& value, bool warns) override { tip = (warns ? "(!) " : "") + value; }
    void remove() override { tip.clear(); }
    void change(const std::string& value, bool warns) override {
        if (!tip.empty()) add(value, warns);
    }

    void say(const std::string& text) override { said.push_back(text); }

    bool present = true;
    std::string tip;
    std::vector<std::string> said;
};

class ManualClock : public Clock {
public:
    explicit ManualClock(ManualLoop& loop) : loop_(loop) {}
    std::chrono::local_seconds localTime() const override;
    std::chrono::milliseconds uptime() const override { return loop_.now(); }

private:
    ManualLoop& loop_;
};

class ManualPlatform : public Platform {
public:
    std::unique_ptr<Timer> makeTimer(std::function<void()> onTick) override {
        return std::make_unique<ManualTimer>(loop, std::move(onTick));
    }
    Clock& clock() override { return clock_; }
    std::unique_ptr<BytePipe> makePipe(const PipeTarget& target) override;
    std::vector<SerialDevice> serialDevices() override { return devices; }
    Dialogs& dialogs() override { return boxes; }
    Printer& printer() override { return paper; }
    Tray& tray() override { return trayIcon; }
    DatabaseEngine& databases() override { return databaseFiles; }

    ManualLoop loop;
    SqliteEngine databaseFiles;
    ScriptedDialogs boxes;
    FakePrinter paper{boxes};
    FakeTray trayIcon;
    std::vector<SerialDevice> devices;
    FakePeer peer;

private:
    ManualClock clock_{loop};
};

}  // namespace trunvex::fakes
