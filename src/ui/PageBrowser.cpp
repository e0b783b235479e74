#include "ui/PageBrowser.h"

#include <QLabel>

#include "ui/qt/BrowserView.h"
#include "ui/qt/Native.h"

namespace ui {

std::function<std::optional<QByteArray>(const QString& path)> readerOf(PageSource& source) {
    return [&source](const QString& path) {
        std::optional<QByteArray> bytes;
        guarded([&] {
            if (const auto found = source.read(path.toStdString())) {
                bytes = QByteArray::fromStdString(*found);
            }
        });
        return bytes;
    };
}

struct PageBrowser::Native : NativeWidget {
    Native(QWidget* parent, PageBrowser& owner, PageSource& source) : NativeWidget(nullptr) {
        if (const auto makeBrowser =
                reinterpret_cast<MakePageBrowser>(browserFunction(makePageBrowserName))) {
            view.reset(makeBrowser(parent, hostOf(owner, source)));
            widget = view->widget();
        } else {
            widget = new QLabel(QStringLiteral("The browser of this program is missing."), parent);
        }
    }

    static PageHost hostOf(PageBrowser& owner, PageSource& source) {
        return {
            readerOf(source), [&owner] { owner.Moved.raise(); },
            [&owner](const QString& address) { owner.OutsideClick.raise(address.toStdString()); }};
    }

    std::unique_ptr<PageBrowserView> view; ///< null without the library
};

std::unique_ptr<NativeWidget> PageBrowser::make(PageBrowser& browser, Container& container,
                                                PageSource& source) {
    return std::make_unique<Native>(container.client().widget, browser, source);
}

PageBrowser::PageBrowser(Container& container, PageSource& source)
    : Control(make(*this, container, source)) {}

PageBrowser::Native& PageBrowser::browser() const {
    return static_cast<Native&>(native());
}

void PageBrowser::reset() {
    if (browser().view) {
        browser().view->reset();
    }
}

void PageBrowser::show(const std::string& place) {
    if (browser().view) {
        const QString text = QString::fromStdString(place);
        browser().view->show(text.section('#', 0, 0), text.section('#', 1));
    }
}

std::string PageBrowser::shown() const {
    if (!browser().view) {
        return {};
    }
    const QUrl url = browser().view->shown();
    const QString anchor = url.hasFragment() ? '#' + url.fragment(QUrl::FullyDecoded) : QString();
    return (url.path(QUrl::FullyDecoded) + anchor).toStdString();
}

bool PageBrowser::canGoBack() const {
    return browser().view && browser().view->canGo(true);
}

bool PageBrowser::canGoForward() const {
    return browser().view && browser().view->canGo(false);
}

void PageBrowser::goBack() {
    if (browser().view) {
        browser().view->go(true);
    }
}

void PageBrowser::goForward() {
    if (browser().view) {
        browser().view->go(false);
    }
}

void PageBrowser::mark(const std::string& text) {
    if (browser().view) {
        browser().view->mark(QString::fromStdString(text));
    }
}

bool PageBrowser::print() {
    return browser().view && browser().view->print();
}

void PageBrowser::zoom(int step) {
    if (browser().view) {
        browser().view->zoom(step);
    }
}

} // namespace ui
