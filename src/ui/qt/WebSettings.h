#pragma once

class QWebEnginePage;

namespace ui {

/// Whoever uses the engine calls this first: it listens only before it has been used for anything.
/// Makes the protocol of pages that are no files known, and decides how pages are drawn.
void prepareEngine();

/// What no page may do, whoever wrote it.
void lockDown(QWebEnginePage& page);

} // namespace ui
