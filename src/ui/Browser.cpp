#include "ui/Browser.h"

#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#include "ui/qt/Native.h"

namespace ui {

namespace {

/// Keeps everything but files out.
class FilesOnly : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const QUrl url = request.requestUrl();
        const bool remote = url.isLocalFile() && !url.host().isEmpty();
        request.block((!url.isLocalFile() && url.scheme() != "data") || remote);
    }
};

/// A page that shows one file and refuses to go anywhere else.
class FixedPage : public QWebEnginePage {
public:
    FixedPage(QWebEngineProfile* profile, Browser& owner)
        : QWebEnginePage(profile), owner_(owner) {}

    QUrl shown;

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) override {
        if (isMainFrame && url == shown) {
            return true;
        }
        if (isMainFrame) {
            refuse();
        }
        return false;
    }

    /// For links that ask for another window.
    QWebEnginePage* createWindow(WebWindowType) override {
        refuse();
        return nullptr;
    }

private:
    void refuse() {
        // When the browser is done with it: the handler may wait for a person.
        QTimer::singleShot(0, this, [this] { owner_.Refused.raise(); });
    }

    Browser& owner_;
};

} // namespace

struct Browser::Native : NativeWidget {
    Native(QWidget* parent, Browser& owner) : NativeWidget(nullptr) {
        profile.setUrlRequestInterceptor(&filesOnly);
        page = new FixedPage(&profile, owner);
        auto* view = new QWebEngineView(parent);
        view->setPage(page);
        view->setContextMenuPolicy(Qt::NoContextMenu);
        widget = view;
        QWebEngineSettings& settings = *page->settings();
        settings.setAttribute(QWebEngineSettings::JavascriptEnabled, false);
        settings.setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, false);
        settings.setAttribute(QWebEngineSettings::PluginsEnabled, false);
        settings.setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
        settings.setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
        settings.setDefaultTextEncoding(QStringLiteral("windows-1252"));
    }
    ~Native() override {
        delete widget; // then the page, then what both use
        delete page;
    }

    FilesOnly filesOnly;
    QWebEngineProfile profile; ///< keeps nothing on the disk
    QPointer<FixedPage> page;
};

std::unique_ptr<NativeWidget> Browser::make(Browser& browser, Container& container) {
    return std::make_unique<Native>(container.client().widget, browser);
}

Browser::Browser(Container& container) : Control(make(*this, container)) {}

Browser::Native& Browser::browser() const {
    return static_cast<Native&>(native());
}

void Browser::navigate(const std::filesystem::path& file) {
    FixedPage& page = *browser().page;
    const QUrl url = QUrl::fromLocalFile(pathToQt(file));
    if (page.shown == url) {
        page.triggerAction(QWebEnginePage::ReloadAndBypassCache);
    } else {
        page.shown = url;
        page.load(url);
    }
}

} // namespace ui
