#include "ScenarioPlayer/JsonText.h"

#include <nlohmann/json.hpp>

namespace norra::scenario {

std::string jsonText(std::string_view text) {
  using nlohmann::json;
  return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace norra::scenario
