#include "fields/uc_progress.h"

#include <algorithm>

#include "text/text_rules.h"

namespace trunvex {

namespace {

constexpr int connectTickMs = 1000;  // 100 ticks: a link has 100 s to come up
constexpr int lastTickOfWait = 99;
constexpr int serverBlinkMs = 500;
constexpr int busyFrames = 4;

struct BatchWord {
    std::string_view word;
    ucProgress::State state;
};

constexpr BatchWord batchWords[] = {
    {"write", ucProgress::Write}, {"file", ucProgress::File}, {"backup", ucProgress::Backup},
    {"bcch", ucProgress::Bcch},   {"wait", ucProgress::Wait}, {"server", ucProgress::Server},
    {"start", ucProgress::Start},
};

}  // namespace

ucProgress::ucProgress(Platform& platform) {
    for (int mode = 0; mode < timerCount; ++mode)
        tmrStatusProgres_[static_cast<std::size_t>(mode)] = platform.makeTimer([this, mode] { tick(mode); });
    tmrAnimate_ = platform.makeTimer([this] {
        animationFrame_ = (animationFrame_ + 1) % busyFrames;
        imgStatus.setPicture("busy" + std::to_string(animationFrame_));
    });
    tmrServer_ = platform.makeTimer([this] {
        serverFrame_ = 1 - serverFrame_;
        imgStatus.setPicture("server" + std::to_string(serverFrame_));
    });
}

void ucProgress::SetTimeOut(int logonMs, int receiveMs, int, int, int speedMs) {
    logonMs_ = logonMs;
    receiveMs_ = receiveMs;
    animationMs_ = speedMs;
}

void ucProgress::StartProgress(std::string_view sKey, int pCount, int writeMode, int pTimeToWrite) {
    stopTimers();
    max_ = 100;
    setPanelText("", "ready");
    if (sKey == "connecting") {
        setPanelText("Connecting...");
        value_ = 0;
        animate(true);
        begin(Connecting, connectTickMs);
    } else if (sKey == "connected") {
        setPanelText("Connected        ");
        animate(false);
        value_ = 0;
        imgStatus.setPicture("ready");
    } else if (sKey == "receive") {
        setPanelText("Waiting for Data...");
        value_ = 0;
        begin(Receive, receiveMs_);
    } else if (sKey == "disconnect") {
        setPanelText("Disconnected");
        setPanelText("", "time");
        animate(false);
    } else if (sKey == "logon") {
        setPanelText("Admin Logon...");
        value_ = 0;
        begin(Logon, logonMs_ / 2);
    } else {
        const auto* batch = std::find_if(std::begin(batchWords), std::end(batchWords),
                                         [&](const BatchWord& entry) { return entry.word == sKey; });
        if (batch == std::end(batchWords)) return;
        setPanelText("Sending Data...");
        max_ = pCount;
        value_ = 0;
        ProgressState = batch->state;
        timeToWriteMs_ = pTimeToWrite;
        pauseBars_.emit(true);
        animate(true);
        begin(writeMode, pTimeToWrite);
    }
}

void ucProgress::begin(int mode, int intervalMs) {
    ProgressMode = mode;
    intervalMs_ = intervalMs;
    running_ = true;
    showPercent();
    startTimer(mode, intervalMs);
}

void ucProgress::startTimer(int mode, int intervalMs) {
    if (heldRun_ != run_) tmrStatusProgres_.at(static_cast<std::size_t>(mode))->start(intervalMs);
}

void ucProgress::stopTimers() {
    tmrServer_->stop();
    for (auto& timer : tmrStatusProgres_) timer->stop();
    running_ = false;
    ++run_;
}

void ucProgress::setProgressSpeed(int mode, int intervalMs) {
    if (running_ && mode == ProgressMode) startTimer(mode, intervalMs);
}

void ucProgress::RestoreSpeed(int mode) { setProgressSpeed(mode, timeToWriteMs_); }

void ucProgress::EndProgress(int mode) {
    tmrStatusProgres_.at(static_cast<std::size_t>(mode))->stop();
    if (mode == ProgressMode) running_ = false;
    animate(false);
    value_ = 0;
    setPanelText("", "ready");
    if (ProgressState == Backup) backupEnded_.emit();
}

void ucProgress::setWritePosition(int steps) { value_ = std::clamp(value_ + steps, 0, max_); }

void ucProgress::StartServer() { tmrServer_->start(serverBlinkMs); }

LabelField& ucProgress::panel(std::string_view key) {
    if (key == "time") return staStatusTime;
    if (key == "ready") return staStatusReady;
    return staStatusConnect;
}

void ucProgress::setPanelText(std::string_view text, std::string_view key) { panel(key).setText(std::string(text)); }

const std::string& ucProgress::getPanelText(std::string_view key) const {
    return const_cast<ucProgress*>(this)->panel(key).text();
}

void ucProgress::animate(bool on) {
    if (on) {
        tmrAnimate_->start(animationMs_ * busyFrames);
        imgStatus.setPicture("busy0");
    } else {
        tmrAnimate_->stop();
        imgStatus.setPicture("");
    }
}

int ucProgress::percent() const { return roundedDivision(value_ * 100, std::max(max_, 1)); }

void ucProgress::showPercent() { setPanelText(std::to_string(percent()) + "%", "ready"); }

void ucProgress::tick(int mode) {
    if (mode <= Receive)
        tickOfWait(mode);
    else
        tickOfBatch(mode);
}

void ucProgress::tickOfWait(int mode) {
    if (value_ >= lastTickOfWait) {
        value_ = max_;
        showPercent();
        animate(false);
        tmrStatusProgres_[static_cast<std::size_t>(mode)]->stop();
        running_ = false;
        ended_.emit(mode);
        return;
    }
    ++value_;
    showPercent();
    stepped_.emit(mode, value_ * 100 / max_);
}

void ucProgress::tickOfBatch(int mode) {
    if (value_ >= max_) {
        value_ = max_;
        EndProgress(mode);
        ranOut_.emit();
        return;
    }
    ++value_;
    showPercent();
    stepped_.emit(mode, value_);
}

ucProgress::Hold::Hold(ucProgress& panel) : panel_(panel), run_(panel.run_), heldBefore_(panel.heldRun_) {
    panel_.heldRun_ = run_;
    for (auto& timer : panel_.tmrStatusProgres_) timer->stop();
}

ucProgress::Hold::~Hold() {
    panel_.heldRun_ = heldBefore_;
    if (stillCurrent()) panel_.startTimer(panel_.ProgressMode, panel_.intervalMs_);
}

bool ucProgress::Hold::stillCurrent() const { return panel_.running_ && panel_.run_ == run_; }

}  // namespace trunvex
