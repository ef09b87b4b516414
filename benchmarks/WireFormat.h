// Writing and reading one report of each kind, by whoever can.
#pragma once

#include <string>
#include <string_view>

#include "NorraDataCollector/model/Action.h"

namespace norra::benchmarks {

using Encoder = std::string (*)(const Action&);
using Decoder = Action (*)(std::string_view);

/// Adds the benchmarks of one that encodes and decodes; null: it does not. They fail where its bytes or its actions
/// are others than the product's.
void registerCodec(const std::string& name, Encoder encoder, Decoder decoder);

}  // namespace norra::benchmarks
