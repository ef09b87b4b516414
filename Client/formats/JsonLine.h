#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "Client/formats/Report.h"

namespace norra {

/// The members of the report's event, then "date" in ISO 8601 (UTC, microseconds) and "isApplicationEvent". An event
/// that is no JSON object is left out.
nlohmann::ordered_json membersOf(const Report& report);

/// The same as the text of one JSON object.
std::string jsonLine(const Report& report);

}  // namespace norra
