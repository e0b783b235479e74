#pragma once

#include <memory>

#include "text/Text.h"

namespace ui {

using text::Text;
using text::TextView;

/// What stands behind a control or window; only the files in qt/ know it.
struct NativeWidget;

/// What controls are placed in: a window or a panel.
class Container {
public:
    virtual ~Container() = default;
    virtual NativeWidget& client() = 0;
};

/// The base of all controls. A control lives in its container, which must outlive it.
class Control {
public:
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    void setEnabled(bool enabled);
    bool isEnabled() const;
    void setVisible(bool visible);
    bool isShown() const; ///< unless what it is in is not
    void setFocus();
    bool hasFocus() const;
    void setToolTip(TextView text);

    /// For assistive technology, where no label says what the control is.
    void setAccessibleName(TextView text);

    /// Lengths are in twips, within the container.
    void place(int left, int top, int width, int height);
    void setFixedWidth(int width);
    int minimumHeight() const;

    NativeWidget& native() const { return *native_; }

protected:
    explicit Control(std::unique_ptr<NativeWidget> native);

private:
    std::unique_ptr<NativeWidget> native_;
};

} // namespace ui
