// norra-desktop-benchmark: the service, and the floor under it. measure.py, beside this, uses it.
#include <stdexcept>

#include "benchmarks/desktop/BareClicks.h"
#include "benchmarks/desktop/Request.h"
#include "benchmarks/desktop/ServiceClicks.h"

namespace {

using namespace norra::benchmarks;

Samples measure(const Request& request) {
  if (!request.place) return startService(request.count);
  auto hands = request.hands();
  if (request.what == "service") return clickWithService(hands, request.count);
  if (request.what == "input") return clickWithInputOnly(hands, request.count);
  const auto asked = WayToAsk::named(request.way);
  const auto target = findTarget(*request.place, asked);
  if (request.what == "floor") return clickWithBareCalls(hands, request.count, target, asked);
  if (request.what == "one-call") return clickWithOneCall(hands, request.count, target);
  if (request.what == "socket") return callOverBusAndSocket(target, request.count);
  throw std::runtime_error("unknown: " + request.what);
}

}  // namespace

int main(int count, char** arguments) { return answerRequest(count, arguments, measure); }
