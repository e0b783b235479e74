#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineSettings>
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

/// Hears of clicks in the widget that shows the page; the engine may take another one for another
/// page.
class ClickWatch : public QObject {
public:
    std::function<void(QPoint place)> clicked;

    void watch(QWidget* shown) {
        if (shown != nullptr) {
            shown->installEventFilter(this); // once, however often
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress
            || event->type() == QEvent::MouseButtonRelease) {
            const auto& mouse = static_cast<const QMouseEvent&>(*event);
            const QPoint place = mouse.position().toPoint();
            const bool isPlain =
                mouse.button() == Qt::LeftButton && mouse.modifiers() == Qt::NoModifier;
            if (event->type() == QEvent::MouseButtonPress) {
                pressed_ = isPlain ? place : QPoint(-1, -1);
            } else if (isPlain && place == pressed_ && clicked) {
                clicked(place);
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QPoint pressed_{-1, -1};
};

/// Counts what can be seen before a point of the window: [count, whether the last of it is right
/// before the point]; nothing on a link, or where something is selected.
constexpr const char* seenScript = R"(
    (function (x, y) {
        const hit = document.elementFromPoint(x, y);
        const caret = document.caretRangeFromPoint(x, y);
        if (!hit || !caret || hit.closest('a[href]') || !getSelection().isCollapsed) return null;
        const blank = /[ \t\r\n\f\v\u00a0]/;
        const count = text => Array.from(text).filter(c => !blank.test(c)).length;
        const nodes = document.createTreeWalker(document.body,
                                                NodeFilter.SHOW_ELEMENT | NodeFilter.SHOW_TEXT);
        let seen = 0;
        for (let node = nodes.nextNode(); node; node = nodes.nextNode()) {
            if (node === caret.startContainer && node.nodeType === Node.TEXT_NODE) {
                const text = node.data, at = caret.startOffset;
                const isBlank = i => i >= text.length || blank.test(text[i]);
                return [seen + count(text.slice(0, at)),
                        at > 0 && isBlank(at) && !isBlank(at - 1)];
            }
            if (caret.comparePoint(node, 0) > 0) break;
            if (node.nodeType === Node.TEXT_NODE && !node.parentElement.closest('script, style')) {
                seen += count(node.data);
            } else if (node.nodeName === 'IMG') {
                ++seen;
            }
        }
        return [seen, false];
    })(%1, %2))";

class WebBrowser : public BrowserView {
public:
    WebBrowser(QWidget* parent, const std::function<void()>& refused)
        : page_(new FixedPage(&profile_, refused)), view_(new QWebEngineView(parent)) {
        profile_.setUrlRequestInterceptor(&ownFiles_);
        view_->setPage(page_);
        view_->setContextMenuPolicy(Qt::NoContextMenu);
        lockDown(*page_);
        page_->settings()->setDefaultTextEncoding(QStringLiteral("windows-1252"));
        QObject::connect(page_, &QWebEnginePage::loadFinished, [this] {
            showKept();
            clicks_.watch(view_->focusProxy());
        });
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

    void hearClicks(std::function<void(std::size_t seen, bool behind)> clicked) override {
        clicks_.clicked = [this, clicked = std::move(clicked)](QPoint place) {
            // Answered when the page has got the click; not at all, when it is gone by then.
            page_->runJavaScript(QString::fromLatin1(seenScript).arg(place.x()).arg(place.y()),
                                 QWebEngineScript::ApplicationWorld,
                                 [clicked](const QVariant& answer) {
                                     const QVariantList parts = answer.toList();
                                     if (parts.size() == 2) {
                                         clicked(parts[0].toULongLong(), parts[1].toBool());
                                     }
                                 });
        };
    }

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
    ClickWatch clicks_;
    OwnFilesOnly ownFiles_;
    QWebEngineProfile profile_; ///< keeps nothing on the disk
    QPointer<FixedPage> page_;
    QPointer<QWebEngineView> view_;
};

} // namespace

} // namespace ui

extern "C" Q_DECL_EXPORT ui::BrowserView*
topicsmithMakeBrowser(QWidget* parent, const std::function<void()>& refused) {
    ui::prepareEngine();
    return new ui::WebBrowser(parent, refused);
}
