#pragma once

namespace ui {

/// No pictures on the buttons of the toolkit's own boxes: the program's have none either. To be
/// called once, when the toolkit is there.
void keepButtonsPlain();

} // namespace ui
