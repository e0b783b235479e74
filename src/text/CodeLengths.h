#pragma once

#include <cstdint>
#include <span>

namespace text {

/// Lengths of a code for symbols of known frequencies, 0 for those that do not occur; none is
/// longer than `limit`. The code is complete, as readers insist: where one symbol occurs alone,
/// another gets a code, too.
void assignLengths(std::span<const std::uint32_t> frequencies, unsigned limit,
                   std::span<std::uint8_t> lengths);

} // namespace text
