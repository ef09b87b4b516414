// norra-desktop-benchmark WHAT COUNT [X Y WAY]: measures on the desktop that it runs in, and prints the samples as
// JSON. With "-at-rest" at the end of WHAT it reads without a click. measure.py, beside this, uses it.
#include <cstdio>
#include <exception>
#include <nlohmann/json.hpp>

#include "benchmarks/desktop/BareClicks.h"
#include "benchmarks/desktop/OrdinaryClicks.h"
#include "benchmarks/desktop/ServiceClicks.h"

namespace {

using namespace norra::benchmarks;

constexpr std::string_view atRest = "-at-rest";

Samples measureAt(std::string what, int count, Place place, const std::string& way) {
  const bool isAtRest = what.ends_with(atRest);
  if (isAtRest) what.resize(what.size() - atRest.size());
  Hands hands(isAtRest ? nullptr : norra::linux_desktop::X11Connection::open());
  if (what == "service") return clickWithService(hands, count);
  if (what == "input") return clickWithInputOnly(hands, count);
  const auto asked = WayToAsk::named(way);
  const auto target = findTarget(place, asked);
  if (what == "floor") return clickWithBareCalls(hands, count, target, asked);
  if (what == "one-call") return clickWithOneCall(hands, count, target);
  if (what == "library") return clickWithLibrary(hands, count, target, asked);
  if (what == "library-all") return clickWithLibraryAskingAll(hands, count, target, asked);
  if (what == "socket") return callOverBusAndSocket(target, count);
  throw std::runtime_error("unknown: " + what);
}

}  // namespace

int main(int count, char** arguments) try {
  if (count != 3 && count != 6) throw std::runtime_error("usage: norra-desktop-benchmark WHAT COUNT [X Y WAY]");
  const std::string what = arguments[1];
  const auto samples = count == 3 ? startService(std::stoi(arguments[2]))
                                  : measureAt(what, std::stoi(arguments[2]),
                                              {std::stoi(arguments[3]), std::stoi(arguments[4])}, arguments[5]);
  std::puts(nlohmann::json(samples).dump().c_str());
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "norra-desktop-benchmark: %s\n", error.what());
  return 1;
}
