#pragma once

#include <cstdint>
#include <span>

namespace compile {

/// The codes that readers derive from the lengths: shorter ones first, then in the symbols' order.
void assignCodes(std::span<const std::uint8_t> lengths, std::span<std::uint16_t> codes);

} // namespace compile
