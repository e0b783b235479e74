#pragma once

namespace ui {

/// The protocol of pages that are no files.
inline constexpr const char* pageScheme = "topicsmith-page";

/// Makes the protocol known. The browser only listens before it has been used for anything, so
/// whoever uses it calls this first.
void registerPageScheme();

} // namespace ui
