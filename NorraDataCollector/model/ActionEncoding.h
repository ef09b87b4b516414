// Actions as JSON: one compact flat object with the members of the payload record, `action` first.
#pragma once

#include <string>

#include "NorraDataCollector/model/Action.h"

namespace norra {

/// The JSON text of the action, UTF-8. An absent optional member is left out. Allocates the result and nothing else.
std::string encode(const Action& action);

/// The same of one record, as the action that holds it would be written.
template <typename Data>
std::string encodeRecord(const Data& data) {
  return encode(Action(data));
}

}  // namespace norra
