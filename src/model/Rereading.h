#pragma once

#include "model/Project.h"

namespace model {

/// Gives a project another language and reads its letters anew, as if its file, which is taken for
/// one in the western code page, had been written in the code page of that language: "Ïðèâåò"
/// becomes "Привет" in Russian. Letters that the western code page lacks stay. One step to take
/// back; bytes that mean nothing in the other code page are lost otherwise.
void rereadIn(Project& project, const text::Language& language);

} // namespace model
