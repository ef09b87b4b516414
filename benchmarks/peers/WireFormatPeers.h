// The wire format by two well-known libraries, with the same bytes and the same checks, to measure ours against.
#pragma once

#include <string>
#include <string_view>

#include "NorraDataCollector/model/Action.h"

namespace norra::benchmarks {

/// The fault of a text, by the name of its member; empty where no single member is at fault.
struct PeerFault {
  std::string member;
};

namespace nlohmannPeer {
std::string encode(const Action& action);
/// Throws a PeerFault.
Action decode(std::string_view text);
}  // namespace nlohmannPeer

namespace simdjsonPeer {
/// Keeps its parser and its buffer from call to call, as the library advises. Throws a PeerFault.
Action decode(std::string_view text);
}  // namespace simdjsonPeer

}  // namespace norra::benchmarks
