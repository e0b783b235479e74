#include "ui/Application.h"

#include <QApplication>
#include <QDir>
#include <QSocketNotifier>
#include <QStandardPaths>

#include "platform/Process.h"
#include "ui/Window.h"
#include "ui/qt/BoxStyle.h"
#include "ui/qt/Icons.h"
#include "ui/qt/Native.h"

namespace ui {

struct Application::Native {
    int& argc;
    char** argv;
    QApplication application{argc, argv};
    std::unique_ptr<QSocketNotifier> endSignals = {};
};

namespace {

/// The person's own settings go first. What the toolkit and the web engine say of themselves would
/// stand between the messages of a script.
void dropScreen() {
    const auto usually = [](const char* variable, const char* value) {
        if (qEnvironmentVariableIsEmpty(variable)) {
            qputenv(variable, value);
        }
    };
    usually("QT_LOGGING_RULES", "*.info=false;*.warning=false");
#ifndef _WIN32 // where there is always a screen
    usually("QT_QPA_PLATFORM", "offscreen");
#endif
}

} // namespace

Application::Application(int& argc, char** argv, const char* name, const char* version,
                         bool hasWindows) {
    if (!hasWindows) {
        dropScreen();
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts); // the browser wants it
    // The toolkit would look for finer pictures beside those of a page, even on other machines.
    qputenv("QT_HIGHDPI_DISABLE_2X_IMAGE_LOADING", "1");
    native_.reset(new Native{argc, argv});
    styleBoxes();
    QObject::connect(&native_->application, &QGuiApplication::commitDataRequest,
                     [this] { Ending.raise(); });
    if (const int descriptor = platform::catchEndSignals(); descriptor >= 0) {
        native_->endSignals = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        QObject::connect(native_->endSignals.get(), &QSocketNotifier::activated, [this] {
            Ending.raise();
            platform::endBySignal();
        });
    }
    QApplication::setApplicationName(name);
    QApplication::setApplicationVersion(version);
    QApplication::setDesktopFileName(QStringLiteral("topicsmith"));
    QApplication::setWindowIcon(imageNamed("Topicsmith"));
}

Application::~Application() = default;

std::vector<std::filesystem::path> Application::arguments() const {
#ifdef _WIN32
    std::vector<std::filesystem::path> arguments;
    for (const QString& word : QApplication::arguments().sliced(1)) {
        arguments.push_back(word.toStdWString()); // as typed, unlike those of main()
    }
    return arguments;
#else
    return {native_->argv + 1, native_->argv + native_->argc}; // any bytes
#endif
}

std::filesystem::path Application::userFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    QDir().mkpath(folder);
    return pathFromQt(folder);
}

std::filesystem::path Application::ownPageFile() {
    return userFolder() / ("page-" + std::to_string(QCoreApplication::applicationPid()) + ".htm");
}

int Application::run() {
    const int code = QApplication::exec();
    Window::dropDiscarded(); // while the toolkit is still there
    return code;
}

} // namespace ui
