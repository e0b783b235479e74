#include "ui/Browser.h"

#include <QCoreApplication>
#include <QLabel>
#include <QLibrary>

#include "ui/qt/BrowserView.h"
#include "ui/qt/Native.h"

namespace ui {

namespace {

/// The build decides whether there is a web engine, and the person whether it is used:
/// TOPICSMITH_BROWSER=text in the environment asks for the toolkit's rich text, which shows the
/// simpler part of HTML.
bool hasWebEngine() {
#ifdef TOPICSMITH_WEB_ENGINE
    return qEnvironmentVariable("TOPICSMITH_BROWSER") != QLatin1String("text");
#else
    return false;
#endif
}

} // namespace

QFunctionPointer browserFunction(const char* name) {
    const char* library = hasWebEngine() ? "topicsmith-browser" : "topicsmith-text-browser";
    return QLibrary::resolve(QCoreApplication::applicationDirPath() + '/' + library, name);
}

struct Browser::Native : NativeWidget {
    Native(QWidget* parent, Browser& owner) : NativeWidget(nullptr) {
        if (const auto makeBrowser =
                reinterpret_cast<MakeBrowser>(browserFunction(makeBrowserName))) {
            view.reset(makeBrowser(parent, [&owner] { owner.Refused.raise(); }));
            widget = view->widget();
            view->hearClicks(
                [&owner](std::size_t seen, bool behind) { owner.Clicked.raise(seen, behind); });
        } else {
            widget = new QLabel(QStringLiteral("The browser of this program is missing."), parent);
        }
    }

    std::unique_ptr<BrowserView> view;
};

std::unique_ptr<NativeWidget> Browser::make(Browser& browser, Container& container) {
    return std::make_unique<Native>(container.client().widget, browser);
}

Browser::Browser(Container& container) : Control(make(*this, container)) {}

Browser::Native& Browser::browser() const {
    return static_cast<Native&>(native());
}

void Browser::navigate(const std::filesystem::path& file, const std::filesystem::path& folder,
                       Place place) {
    visit_ += place == Place::top ? 1 : 0;
    if (browser().view) {
        QUrl url = QUrl::fromLocalFile(pathToQt(file));
        if (visit_ > 0) {
            url.setQuery(QString::number(visit_)); // which does not change the file
        }
        browser().view->navigate(url, pathToQt(folder));
    }
}

void Browser::keepInView(TextView id) {
    if (browser().view) {
        browser().view->keepInView(toQt(id));
    }
}

} // namespace ui
