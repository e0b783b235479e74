#pragma once

class QAbstractItemDelegate;
class QObject;

namespace ui {

/// Draws the cells of a list, moved in, with the triangle of a row that can be folded and the sign
/// that something is wrong, and edits them in their place.
QAbstractItemDelegate* makeCellDelegate(QObject* parent);

} // namespace ui
