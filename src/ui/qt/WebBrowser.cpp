#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#include "ui/qt/BrowserView.h"
#include "ui/qt/PageFiles.h"
#include "ui/qt/PageScheme.h"
#include "ui/qt/WebSettings.h"

// The library that is loaded for the browser. It uses nothing of ui but the interface.
namespace ui {

namespace {

/// Keeps everything out but one page and the files below one folder.
class OwnFilesOnly : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    QUrl page;
    QString folder;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const QUrl url = request.requestUrl();
        request.block(url != page && url.scheme() != "data" && !isOwn(url));
    }

private:
    bool isOwn(const QUrl& url) const {
        return url.isLocalFile() && url.host().isEmpty() && mayBeShown(folder, url.toLocalFile());
    }
};

/// A page that shows one file and refuses to go anywhere else.
class FixedPage : public QWebEnginePage {
public:
    FixedPage(QWebEngineProfile* profile, std::function<void()> refused)
        : QWebEnginePage(profile), refused_(std::move(refused)) {
        // Links within the page are followed without asking.
        QObject::connect(this, &QWebEnginePage::urlChanged, [this](const QUrl& url) {
            if (url != shown && url.matches(shown, QUrl::RemoveFragment)) {
                load(shown);
                refuse();
            }
        });
    }

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
        // When the browser is done with it: whoever is told may wait for a person.
        QTimer::singleShot(0, this, [this] { refused_(); });
    }

    std::function<void()> refused_;
};

class WebBrowser : public BrowserView {
public:
    WebBrowser(QWidget* parent, const std::function<void()>& refused)
        : page_(new FixedPage(&profile_, refused)), view_(new QWebEngineView(parent)) {
        profile_.setUrlRequestInterceptor(&ownFiles_);
        view_->setPage(page_);
        view_->setContextMenuPolicy(Qt::NoContextMenu);
        lockDown(*page_);
        page_->settings()->setDefaultTextEncoding(QStringLiteral("windows-1252"));
        QObject::connect(page_, &QWebEnginePage::loadFinished, [this] { showKept(); });
    }
    ~WebBrowser() override {
        delete view_; // then the page, then what both use
        delete page_;
    }

    QWidget* widget() override { return view_; }

    void navigate(const QUrl& file, const QString& folder) override {
        ownFiles_.page = file;
        ownFiles_.folder = folder;
        if (page_->shown == file && page_->url() == file) {
            page_->triggerAction(QWebEnginePage::ReloadAndBypassCache);
        } else {
            page_->shown = file;
            page_->load(file);
        }
    }

    void keepInView(const QString& id) override { kept_ = id; }

private:
    /// By a script of ours, in a world that the page's own cannot reach, were they to run.
    void showKept() {
        if (!kept_.isEmpty()) {
            page_->runJavaScript(
                QStringLiteral("const e = document.getElementById('%1');"
                               "if (e) e.parentElement.scrollIntoView({block: 'nearest'});")
                    .arg(kept_),
                QWebEngineScript::ApplicationWorld);
        }
    }

    QString kept_; ///< an id; letters only
    OwnFilesOnly ownFiles_;
    QWebEngineProfile profile_; ///< keeps nothing on the disk
    QPointer<FixedPage> page_;
    QPointer<QWebEngineView> view_;
};

} // namespace

} // namespace ui

extern "C" Q_DECL_EXPORT ui::BrowserView*
topicsmithMakeBrowser(QWidget* parent, const std::function<void()>& refused) {
    ui::registerPageScheme();
    return new ui::WebBrowser(parent, refused);
}
