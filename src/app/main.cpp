#include <QApplication>
#include <QStandardPaths>

#include "platform/qt/qt_platform.h"
#include "screens/screens.h"
#include "shell/application_folder.h"
#include "shell/console.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("trunvex");
    QApplication::setApplicationVersion(QString(trunvex::versionMajor) + "." + trunvex::versionMinor);

    const std::filesystem::path programFolder = QCoreApplication::applicationDirPath().toStdString();
    const auto folder = trunvex::applicationFolder(
        programFolder, QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString());
    trunvex::provideCallTemplate(programFolder, folder);
    trunvex::QtPlatform platform;
    trunvex::Console console(platform, folder);
    trunvex::Screens screens(console);
    screens.start();
    return QApplication::exec();
}
