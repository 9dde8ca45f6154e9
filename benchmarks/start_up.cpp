// From the start of a program to its painted window, and the private memory it has then: the console's main window
// against an empty one of Qt's, each in a process of its own.
#include "start_up.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <fstream>

#include "platform/qt/qt_platform.h"
#include "screens/screens.h"
#include "shell/application_folder.h"
#include "shell/console.h"

namespace bench {

namespace {

constexpr int patienceMs = 30000;

long privateBytes() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long sum = 0;
    for (std::string line; std::getline(rollup, line);)
        if (line.rfind("Private_", 0) == 0) sum += std::atol(line.c_str() + line.find(':') + 1) * 1024;
    return sum;
}

class FirstPaint : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, qApp, [] {
                std::printf("%ld\n", privateBytes());
                std::fflush(stdout);
                QCoreApplication::exit();
            });
        }
        return false;
    }
};

void started(benchmark::State& state, const char* which) {
    for (auto _ : state) {
        QProcess program;
        QElapsedTimer time;
        time.start();
        program.start("/proc/self/exe", {QString(windowArgument.data()) + which});
        if (!program.waitForReadyRead(patienceMs)) return state.SkipWithError("no window came");
        state.SetIterationTime(static_cast<double>(time.nsecsElapsed()) / 1e9);
        program.waitForFinished(patienceMs);
        state.counters["private_MiB"] = program.readAllStandardOutput().toDouble() / (1 << 20);
    }
}

// What a thousand sessions without windows take, one process holding them all.
int tellSessions(const std::string& folder) {
    constexpr int many = 1000;
    trunvex::QtPlatform platform;
    std::vector<std::unique_ptr<trunvex::WindowlessConsole>> sessions;
    sessions.push_back(std::make_unique<trunvex::WindowlessConsole>(platform, folder));
    const auto before = privateBytes();
    while (sessions.size() <= many) sessions.push_back(std::make_unique<trunvex::WindowlessConsole>(platform, folder));
    std::printf("%ld\n", privateBytes() - before);
    return 0;
}

BENCHMARK_CAPTURE(started, sessions, "sessions")->Name("start/sessions")->Iterations(1)->UseManualTime();
BENCHMARK_CAPTURE(started, empty, "empty")->Name("start/empty")->Iterations(1)->Repetitions(9)->UseManualTime();
BENCHMARK_CAPTURE(started, console, "console")->Name("start/console")->Iterations(1)->Repetitions(9)->UseManualTime();

}  // namespace

int showWindow(int argc, char** argv, std::string_view which) {
    QApplication application(argc, argv);
    FirstPaint painted;
    if (which == "empty") {
        QMainWindow window;
        window.resize(1280, 720);
        window.installEventFilter(&painted);
        window.show();
        return QApplication::exec();
    }
    const QTemporaryDir folder;
    if (which == "sessions") return tellSessions(folder.path().toStdString());
    trunvex::provideCallTemplate(QCoreApplication::applicationDirPath().toStdString(), folder.path().toStdString());
    trunvex::QtPlatform platform;
    trunvex::Console console(platform, folder.path().toStdString());
    trunvex::Screens screens(console);
    screens.mainWindow().installEventFilter(&painted);
    screens.startWithoutSplash();
    return QApplication::exec();
}

}  // namespace bench
