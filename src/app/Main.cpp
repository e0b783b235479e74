#include "app/Version.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "platform/Files.h"
#include "ui/Application.h"

namespace {

/// Without the blanks around it.
std::filesystem::path trimmed(const std::filesystem::path& argument) {
    const std::string text = argument.string();
    return model::Text(model::trim(text));
}

} // namespace

int main(int argc, char* argv[]) {
    platform::turnSizeLimitIntoError();
    ui::Application application(argc, argv, "HTML Topicsmith", app::version);
    ui::Settings settings;
    app::frmMain window(settings, platform::programFolder());
    const auto arguments = application.arguments();
    if (!arguments.empty()) {
        if (const auto path = trimmed(arguments.front()); !path.empty()) {
            window.openFile(path);
        }
    }
    window.show();
    app::frmSplash splash(window);
    splash.startTimer();
    splash.show();
    return application.run();
}
