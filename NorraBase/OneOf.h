#pragma once

#include <algorithm>

namespace norra {

/// Whether the range holds the value.
constexpr bool isOneOf(const auto& range, const auto& value) {
  return std::ranges::find(range, value) != std::ranges::end(range);
}

}  // namespace norra
