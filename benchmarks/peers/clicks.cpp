// norra-libatspi-clicks: a click and its facts by libatspi. measure.py, beside this, uses it.
#include <stdexcept>

#include "benchmarks/desktop/Request.h"
#include "benchmarks/peers/OrdinaryClicks.h"

namespace {

using namespace norra::benchmarks;

Samples measure(const Request& request) {
  if (!request.place) throw std::runtime_error("a place is missing");
  auto hands = request.hands();
  const auto way = WayToAsk::named(request.way);
  const auto target = findTarget(*request.place, way);
  if (request.what == "library") return clickWithLibrary(hands, request.count, target, way);
  if (request.what == "library-all") return clickWithLibraryAskingAll(hands, request.count, target, way);
  throw std::runtime_error("unknown: " + request.what);
}

}  // namespace

int main(int count, char** arguments) { return answerRequest(count, arguments, measure); }
