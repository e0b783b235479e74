#pragma once

#include <functional>
#include <vector>

#include <QListWidget>
#include <QPlainTextEdit>

namespace ui {

/// A list of texts over a box, at its caret. The box keeps the focus; keys are handed on.
class ChoiceList {
public:
    explicit ChoiceList(QPlainTextEdit& area);

    void show(const QStringList& choices, int typed, bool first);
    void hide() { list_->hide(); }
    bool isVisible() const { return !list_->isHidden(); }
    QStringList choices() const;

    /// Whether the list has a use for a key now.
    bool wants(const QKeyEvent& event) const;
    bool keyDown(const QKeyEvent& event);

    std::function<void()> chosen;

private:
    void take(const QListWidgetItem* item);
    void place();

    QPlainTextEdit& area_;
    QListWidget* list_; ///< belongs to the area
    int typed_ = 0;
};

} // namespace ui
