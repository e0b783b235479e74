#pragma once

namespace ui {

/// The toolkit's own boxes look like the program's windows: no pictures on their buttons, and what
/// they ask or tell has a sign of our family. In dark colours, what can be ticked has a frame that
/// can be seen, and the sign for a toolbar's further buttons is light. To be called once, when the
/// toolkit is there.
void styleBoxes();

} // namespace ui
