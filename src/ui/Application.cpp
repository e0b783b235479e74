#include "ui/Application.h"

#include <QApplication>

#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

struct Application::Native {
    int& argc;
    char** argv;
    QApplication application{argc, argv};
};

Application::Application(int& argc, char** argv, const char* name, const char* version)
    : native_(new Native{argc, argv}) {
    QApplication::setApplicationName(name);
    QApplication::setApplicationVersion(version);
    QApplication::setDesktopFileName(QStringLiteral("topicsmith"));
    QApplication::setWindowIcon(imageNamed("Topicsmith"));
}

Application::~Application() = default;

std::vector<std::filesystem::path> Application::arguments() const {
    return {native_->argv + 1, native_->argv + native_->argc};
}

int Application::run() {
    return QApplication::exec();
}

} // namespace ui
