#include "benchmarks/desktop/Request.h"

#include <cstdio>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace norra::benchmarks {
namespace {

constexpr std::string_view atRest = "-at-rest";

Request requestFrom(int count, char** arguments) {
  if (count != 3 && count != 6) throw std::runtime_error("usage: WHAT COUNT [X Y WAY]");
  Request request;
  request.what = arguments[1];
  request.count = std::stoi(arguments[2]);
  request.isAtRest = request.what.ends_with(atRest);
  if (request.isAtRest) request.what.resize(request.what.size() - atRest.size());
  if (count == 6) {
    request.place = Place{std::stoi(arguments[3]), std::stoi(arguments[4])};
    request.way = arguments[5];
  }
  return request;
}

}  // namespace

Hands Request::hands() const { return Hands(isAtRest ? nullptr : linux_desktop::X11Connection::open()); }

int answerRequest(int count, char** arguments, Samples (*measure)(const Request& request)) try {
  std::puts(nlohmann::json(measure(requestFrom(count, arguments))).dump().c_str());
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
  return 1;
}

}  // namespace norra::benchmarks
