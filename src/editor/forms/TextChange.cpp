#include "editor/forms/TextChange.h"

namespace editor {

bool changeText(ui::TextBox& box, const std::function<std::optional<Passage>(Passage)>& command) {
    const ui::Selection selected = box.selection();
    const std::optional<Passage> changed =
        command({box.countedText(), selected.start, selected.length});
    if (!changed) {
        return false;
    }
    box.edit(changed->text, changed->start);
    if (changed->length > 0) {
        box.select(changed->start, changed->length);
    }
    return true;
}

} // namespace editor
