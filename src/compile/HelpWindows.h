#pragma once

#include <functional>

#include "compile/SystemTables.h"
#include "compile/TextEncoder.h"
#include "workshop/HelpProject.h"

/// The windows of a help on their way into its table.
namespace compile {

/// A window of the project. `pageOf` gives a page that it names as it is packed.
WindowRow windowRow(const workshop::WindowType& window, const Place& place,
                    const TextEncoder& encoder,
                    const std::function<std::string(const std::string& page)>& pageOf);

/// What windows do not say of themselves comes from the help; one without windows gets one that
/// shows everything.
void completeWindows(std::vector<WindowRow>& windows, const SystemFacts& facts);

/// Puts a window before all others, as some readers look at no other. False when there is none of
/// that name.
bool putFirst(std::vector<WindowRow>& windows, const std::string& name);

} // namespace compile
