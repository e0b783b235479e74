#include <QEventLoop>
#include <QGuiApplication>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QTimer>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "ui/qt/BrowserView.h"
#include "ui/qt/PageServer.h"
#include "ui/qt/WebSettings.h"

// The part of the browser's library for pages that are no files.
namespace ui {

namespace {

class LinkedPage : public QWebEnginePage {
public:
    LinkedPage(QWebEngineProfile* profile, const PageHost& host, PageServer& server)
        : QWebEnginePage(profile), host_(host), server_(server) {
        // There is one window for all pages.
        connect(this, &QWebEnginePage::newWindowRequested,
                [this](const QWebEngineNewWindowRequest& request) {
                    if (isPage(request.requestedUrl())) {
                        load(request.requestedUrl());
                    } else {
                        goOutside(request.requestedUrl());
                    }
                });
    }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
        if (isPage(url)) {
            if (isMainFrame) {
                server_.wanted = url.adjusted(QUrl::RemoveFragment);
            }
            return true;
        }
        if (isMainFrame && type == NavigationTypeLinkClicked) {
            goOutside(url);
        }
        return false;
    }

private:
    void goOutside(const QUrl& url) {
        // When the browser is done with it: whoever is told may wait for a person.
        QTimer::singleShot(0, this, [this, address = url.toString()] { host_.outside(address); });
    }

    const PageHost& host_;
    PageServer& server_;
};

class WebPages : public PageBrowserView {
public:
    WebPages(QWidget* parent, PageHost host)
        : host_(std::move(host)), server_(host_), page_(new LinkedPage(&profile_, host_, server_)),
          view_(new QWebEngineView(parent)) {
        profile_.setUrlRequestInterceptor(&pagesOnly_);
        profile_.installUrlSchemeHandler(pageScheme, &server_);
        view_->setPage(page_);
        view_->setContextMenuPolicy(Qt::NoContextMenu);
        lockDown(*page_);
        QObject::connect(page_, &QWebEnginePage::urlChanged, [this] { host_.moved(); });
        QObject::connect(page_, &QWebEnginePage::loadFinished, [this] { loaded(); });
    }
    ~WebPages() override {
        delete view_; // then the page, then what both use
        delete page_;
    }

    QWidget* widget() override { return view_; }

    void reset() override {
        ++book_; // the browser keeps what it has shown under the same address
        forgetting_ = true;
    }

    void show(const QString& path, const QString& anchor) override {
        page_->load(pageUrl(book_, path, anchor));
    }

    QUrl shown() const override { return page_->url(); }

    bool canGo(bool back) const override {
        const QWebEngineHistory& history = *page_->history();
        return back ? history.canGoBack() : history.canGoForward();
    }

    void go(bool back) override {
        page_->triggerAction(back ? QWebEnginePage::Back : QWebEnginePage::Forward);
    }

    void mark(const QString& text) override {
        marked_ = text;
        page_->findText(text);
    }

    bool print() override {
        QPrinter printer;
        printer.setResolution(300); // pages are printed as pictures
        QPrintDialog dialog(&printer, view_);
        return dialog.exec() != QDialog::Accepted || print(printer);
    }

    void zoom(int step) override {
        constexpr double factor = 1.2;
        const double now = page_->zoomFactor();
        page_->setZoomFactor(step == 0 ? 1 : now * (step > 0 ? factor : 1 / factor));
    }

private:
    /// Waits for the end: the printer has to live so long, and so has the page.
    bool print(QPrinter& printer) {
        const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
        QEventLoop printing;
        bool done = false;
        const auto finish = [&](bool success) {
            done = success;
            printing.quit();
        };
        QObject::connect(page_, &QWebEnginePage::renderProcessTerminated, &printing,
                         [&] { finish(false); });
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        if (toFile) { // as text, which can be searched
            QObject::connect(page_, &QWebEnginePage::pdfPrintingFinished, &printing,
                             [&](const QString&, bool success) { finish(success); });
            page_->printToPdf(printer.outputFileName(), printer.pageLayout());
        } else {
            QObject::connect(view_, &QWebEngineView::printFinished, &printing, finish);
            view_->print(&printer);
        }
        printing.exec(QEventLoop::ExcludeUserInputEvents);
        QGuiApplication::restoreOverrideCursor();
        return done;
    }

    void loaded() {
        page_->findText(marked_);
        if (forgetting_ && page_->url().host() == pageHost(book_)) {
            forgetting_ = false;
            page_->history()->clear(); // all but the page that is shown
            host_.moved();
        }
    }

    PageHost host_;
    PageServer server_;
    PagesOnly pagesOnly_;
    QWebEngineProfile profile_; ///< keeps nothing on the disk
    QPointer<LinkedPage> page_;
    QPointer<QWebEngineView> view_;
    QString marked_;
    int book_ = 0;
    bool forgetting_ = false; ///< the way back, when the next page is there
};

} // namespace

} // namespace ui

extern "C" Q_DECL_EXPORT ui::PageBrowserView* topicsmithMakePageBrowser(QWidget* parent,
                                                                        const ui::PageHost& host) {
    ui::prepareEngine();
    return new ui::WebPages(parent, host);
}
