#pragma once

#include <sigc++/sigc++.h>

#include <array>
#include <memory>
#include <string_view>

#include "fields/fields.h"
#include "platform/platform.h"

namespace trunvex {

// The status panel. Its timers are the time-outs of the session: while a word runs, each tick moves the step counter
// and raises a step event, at which the owner decides; a reply only speeds the timer, so that the tick comes at once.
class ucProgress {
public:
    enum State { Write = 0, File = 1, Backup = 2, Bcch = 3, Wait = 4, Server = 5, Start = 6 };
    enum Mode { Connecting = 0, Logon = 1, Receive = 2, Writing = 3 };
    static constexpr int timerCount = 9;
    static constexpr int defaultTimeToWriteMs = 1000;

    explicit ucProgress(Platform& platform);

    // The words for logon (its tick is half of it) and receive; the others are kept for symmetry of the control.
    void SetTimeOut(int logonMs, int receiveMs, int writeMs, int serverMs, int speedMs);

    // Ends whatever runs and begins what the word names: "connecting", "connected", "receive", "disconnect", "logon",
    // or a batch: "write", "file", "backup", "bcch", "wait", "server", "start" with `pCount` items of `pTimeToWrite` ms
    // on timer `writeMode`. Other words only end what runs.
    void StartProgress(std::string_view sKey, int pCount = 100, int writeMode = Writing,
                       int pTimeToWrite = defaultTimeToWriteMs);
    // Only a run in progress can be sped up: a late reply never starts a timer.
    void setProgressSpeed(int mode, int intervalMs);
    void RestoreSpeed(int mode);
    void EndProgress(int mode);
    // Adds to the step counter.
    void setWritePosition(int steps);
    void StartServer();
    void setPanelText(std::string_view text, std::string_view key = "connect");
    const std::string& getPanelText(std::string_view key = "connect") const;

    int ProgresIndex() const { return value_; }
    int percent() const;
    std::string getMax() const { return std::to_string(max_); }
    bool running() const { return running_; }

    // Holds the ticks of the running word while a dialog of its owner is open. When the hold ends, the word goes on
    // with a full interval, unless it was ended or replaced meanwhile.
    class Hold {
    public:
        explicit Hold(ucProgress& panel);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        // True while the word that was held is still the one that runs.
        bool stillCurrent() const;

    private:
        ucProgress& panel_;
        unsigned run_;
        unsigned heldBefore_;
    };

    int ProgressState = Write;
    int ProgressMode = Connecting;

    LabelField staStatusConnect{"staStatus_connect"};
    LabelField staStatusTime{"staStatus_time"};
    LabelField staStatusReady{"staStatus_ready"};  // the percent, the third panel
    PictureField imgStatus{"imgStatus"};           // "", "ready", "busy0" to "busy3", "server0", "server1"

    sigc::signal<void(int mode, int value)>& stepped() { return stepped_; }
    sigc::signal<void(int mode)>& ended() { return ended_; }
    // True asks the call record and monitor bars to pause, false lets them go on.
    sigc::signal<void(bool pause)>& pauseBars() { return pauseBars_; }
    // EndProgress came while a backup ran: its file is to be closed.
    sigc::signal<void()>& backupEnded() { return backupEnded_; }
    // A batch word came to the end of its count without having been ended by its owner.
    sigc::signal<void()>& ranOut() { return ranOut_; }

private:
    LabelField& panel(std::string_view key);
    void begin(int mode, int intervalMs);
    void startTimer(int mode, int intervalMs);
    void stopTimers();
    void animate(bool on);
    void showPercent();
    void tick(int mode);
    void tickOfWait(int mode);
    void tickOfBatch(int mode);

    std::array<std::unique_ptr<Timer>, timerCount> tmrStatusProgres_;
    std::unique_ptr<Timer> tmrAnimate_;
    std::unique_ptr<Timer> tmrServer_;
    int logonMs_ = 100;
    int receiveMs_ = 100;
    int animationMs_ = 50;
    int animationFrame_ = 0;
    int serverFrame_ = 0;
    int max_ = 100;
    int value_ = 0;
    int timeToWriteMs_ = defaultTimeToWriteMs;
    int intervalMs_ = defaultTimeToWriteMs;  // of the running word, as it was begun
    bool running_ = false;
    unsigned run_ = 1;      // counts the words begun, so that a dialog sees whether its own still runs
    unsigned heldRun_ = 0;  // the one whose ticks a Hold keeps back; 0 is no run
    sigc::signal<void(int, int)> stepped_;
    sigc::signal<void(int)> ended_;
    sigc::signal<void(bool)> pauseBars_;
    sigc::signal<void()> backupEnded_;
    sigc::signal<void()> ranOut_;
};

}  // namespace trunvex
