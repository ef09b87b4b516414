#pragma once

#include <array>
#include <string_view>

#include "NorraDataCollector/model/Action.h"

namespace norra::benchmarks {

inline constexpr std::size_t kindCount = std::variant_size_v<Action>;

/// One action of each kind, as they come from ordinary applications; by the index of Action.
const std::array<Action, kindCount>& sampleActions();

}  // namespace norra::benchmarks
