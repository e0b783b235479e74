#pragma once

#include <functional>

#include <QUrl>
#include <QWidget>

namespace ui {

/// What the embedded browser does. It is a library of its own, loaded when it is first needed: its
/// size would be felt at every start.
class BrowserView {
public:
    virtual ~BrowserView() = default; ///< deletes the widget, if it is still there
    virtual QWidget* widget() = 0;

    /// Only this address may be shown from now on.
    virtual void navigate(const QUrl& file) = 0;
};

/// The library's one function, called by its name.
inline constexpr const char* makeBrowserName = "topicsmithMakeBrowser";
using MakeBrowser = BrowserView* (*)(QWidget* parent, const std::function<void()>& refused);

} // namespace ui
