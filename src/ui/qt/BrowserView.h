#pragma once

#include <functional>
#include <optional>

#include <QFunctionPointer>
#include <QUrl>
#include <QWidget>

namespace ui {

class PageSource;

/// What the embedded browser does. It is a library of its own, loaded when it is first needed: its
/// size would be felt at every start.
class BrowserView {
public:
    virtual ~BrowserView() = default; ///< deletes the widget, if it is still there
    virtual QWidget* widget() = 0;

    /// Only this address may be shown from now on, with files below the folder.
    virtual void navigate(const QUrl& file, const QString& folder) = 0;

    /// See Browser.
    virtual void keepInView(const QString& id) = 0;
    virtual void hearClicks(std::function<void(std::size_t seen, bool behind)> clicked) = 0;
};

/// What a browser of packed pages needs of whoever has unpacked them. Nothing is empty.
struct PageHost {
    std::function<std::optional<QByteArray>(const QString& path)> read;
    std::function<void()> moved;                         ///< another page is shown
    std::function<void(const QString& address)> outside; ///< a link leads elsewhere
};

/// For PageHost::read: the pages of a source.
std::function<std::optional<QByteArray>(const QString& path)> readerOf(PageSource& source);

/// Shows pages that are no files of their own; links from one to another work.
class PageBrowserView {
public:
    virtual ~PageBrowserView() = default; ///< deletes the widget, if it is still there
    virtual QWidget* widget() = 0;

    /// Other pages than before come from the host now.
    virtual void reset() = 0;

    virtual void show(const QString& path, const QString& anchor) = 0;
    virtual QUrl shown() const = 0; ///< path and anchor count
    virtual bool canGo(bool back) const = 0;
    virtual void go(bool back) = 0;
    virtual void mark(const QString& text) = 0;
    virtual bool print() = 0; ///< true also when the person does not want to
    virtual void zoom(int step) = 0;
};

/// The library's functions, called by their names.
inline constexpr const char* makeBrowserName = "topicsmithMakeBrowser";
using MakeBrowser = BrowserView* (*)(QWidget* parent, const std::function<void()>& refused);
inline constexpr const char* makePageBrowserName = "topicsmithMakePageBrowser";
using MakePageBrowser = PageBrowserView* (*)(QWidget* parent, const PageHost& host);

/// Prints a page that is no file, with nothing but what the host has; empty when that fails.
inline constexpr const char* printPageName = "topicsmithPrintPage";
using PrintPage = void (*)(const PageHost& host, const QString& path, bool onLetter,
                           QByteArray& pdf);

/// The function of that name; null when the library is not there.
QFunctionPointer browserFunction(const char* name);

} // namespace ui
