#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/Event.h"

namespace ui {

struct TreeItem {
    int depth = 1;    ///< from 1; one that jumps counts as one below the item before it
    std::string text; ///< in UTF-8
};

/// Items that lie in one another, or a plain list of them. Items count from 1, in the order in
/// which they were set.
class TreeView : public Control {
public:
    explicit TreeView(Container& container);

    /// Takes the place of what was there; everything is folded up and nothing is selected.
    void setItems(const std::vector<TreeItem>& items);

    /// 0 for none.
    int selected() const;

    enum class Place { inView, atTop };

    /// Brings an item into view, as the first one if it is to be, and unfolds what it lies in; 0
    /// selects nothing.
    void select(int item, Place place = Place::inView);

    void unfoldAll();

    Event<int> ItemClick; ///< an item was chosen, by mouse or by moving there with a key
    Event<int> DblClick;  ///< or Enter

private:
    struct Native;
    Native& tree() const;
    static std::unique_ptr<NativeWidget> make(TreeView& view, Container& container);
};

} // namespace ui
