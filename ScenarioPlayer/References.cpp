#include "ScenarioPlayer/References.h"

namespace norra::scenario {

simulated::ElementReference References::element(const JsonCursor& cursor) const {
  auto identifier = cursor.text();
  if (!elements.contains(identifier)) cursor.fault("no element has this identifier");
  return {std::move(identifier)};
}

ProcessIdentifier References::application(const JsonCursor& cursor) const {
  const auto process = cursor.integer<ProcessIdentifier>();
  if (!applications.contains(process)) cursor.fault("no application has this process identifier");
  return process;
}

std::optional<ProcessIdentifier> References::applicationOrNone(const JsonCursor& cursor) const {
  if (cursor.value().is_null()) return std::nullopt;
  return application(cursor);
}

}  // namespace norra::scenario
