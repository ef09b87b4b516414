// norra-soak: days of use of the whole service on a simulated desktop, after which it must hold no more memory than
// after the first tenth of them.
#include <CLI/CLI.hpp>
#include <iostream>
#include <numeric>

#include "NorraDataCollector/model/ActionDecoding.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"
#include "tests/soak/HeapUse.h"
#include "tests/soak/SoakDesktop.h"
#include "tests/soak/SoakEvents.h"

namespace norra::soak {
namespace {

/// In bytes; what buffers that grow and shrink may differ by.
constexpr std::size_t allowedGrowth = 2048;

struct Arguments {
  std::size_t events = 200'000;
  std::uint64_t seed = 1;
  bool hoards = false;
};

/// What the client has seen.
struct Received {
  std::array<std::size_t, std::variant_size_v<Action>> byKind{};
  std::size_t unreadable = 0;
  std::vector<std::string> hoard;

  std::size_t count() const { return std::accumulate(byKind.begin(), byKind.end(), std::size_t{0}); }
};

class ReadingClient final : public ClientProtocol {
 public:
  ReadingClient(Received& received, bool hoards) : received_(received), hoards_(hoards) {}

  void addEvent(std::string event, std::chrono::system_clock::time_point, bool) override {
    const auto decoded = decodeAction(event);
    if (const auto* action = std::get_if<Action>(&decoded)) {
      ++received_.byKind[action->index()];
    } else {
      ++received_.unreadable;
    }
    if (hoards_) received_.hoard.push_back(std::move(event));
  }

 private:
  Received& received_;
  bool hoards_;
};

struct MemoryUse {
  std::size_t heap = 0;
  std::size_t resident = 0;
};

struct Outcome {
  MemoryUse afterFirstTenth;
  MemoryUse atEnd;
  Received received;
};

MemoryUse playTenths(SoakEvents& events, std::size_t count) {
  for (; count > 0; --count) events.playOne();
  events.settle();
  return {heapUse(), residentSize()};
}

Outcome soak(const Arguments& arguments) {
  Outcome outcome;
  simulated::Desktop desktop(soakDesktop());
  desktop.clients().setLoop([&]() -> std::optional<int> {
    SoakEvents events(desktop, arguments.seed);
    desktop.connect(SoakEvents::client, std::make_shared<ReadingClient>(outcome.received, arguments.hoards));
    desktop.call(SoakEvents::client, simulated::ServiceOperation::start, [](auto) {});
    events.settle();
    outcome.afterFirstTenth = playTenths(events, arguments.events / 10);
    outcome.atEnd = playTenths(events, arguments.events - arguments.events / 10);
    return std::nullopt;
  });
  runService([&desktop] { return desktop.platform(); });
  return outcome;
}

void print(const char* when, const MemoryUse& use) {
  std::cout << when << ": " << use.heap << " bytes of heap in use, " << use.resident / 1024 << " KiB resident\n";
}

void print(const Outcome& outcome) {
  for (std::size_t kind = 0; kind < outcome.received.byKind.size(); ++kind) {
    const auto count = outcome.received.byKind[kind];
    if (count > 0) std::cout << rawValue(static_cast<CodingKeys>(kind)) << ": " << count << '\n';
  }
  print("after the first tenth", outcome.afterFirstTenth);
  print("at the end", outcome.atEnd);
}

int verdict(const Outcome& outcome) {
  if (outcome.received.unreadable > 0) {
    std::cout << "FAILED: " << outcome.received.unreadable << " reports cannot be read\n";
    return 1;
  }
  if (outcome.atEnd.heap > outcome.afterFirstTenth.heap + allowedGrowth) {
    std::cout << "FAILED: the service holds more and more memory\n";
    return 1;
  }
  std::cout << "level\n";
  return 0;
}

int run(const Arguments& arguments) {
  std::cout << arguments.events << " events, seed " << arguments.seed << std::endl;
  const auto outcome = soak(arguments);
  std::cout << outcome.received.count() << " reports\n";
  print(outcome);
  return verdict(outcome);
}

}  // namespace
}  // namespace norra::soak

int main(int argc, char** argv) {
  norra::soak::restartWithoutAllocatorCaches(argv);
  norra::soak::Arguments arguments;
  CLI::App app("Plays random events through the whole service on a simulated desktop and watches its memory.");
  app.add_option("--events", arguments.events, "How many")->check(CLI::Range(1000, 1'000'000'000));
  app.add_option("--seed", arguments.seed, "What the events are drawn from");
  app.add_flag("--hoard", arguments.hoards, "Let the client keep every report, to see that growth is found");
  CLI11_PARSE(app, argc, argv);
  return norra::soak::run(arguments);
}
