#include "benchmarks/desktop/ServiceClicks.h"

#include <thread>

#include "Client/ServiceConnection.h"
#include "Platform/Linux/x11/X11EventTaps.h"

namespace norra::benchmarks {
namespace {

using linux_desktop::EventLoop;
using std::chrono::steady_clock;
using std::chrono::system_clock;

constexpr std::chrono::seconds limit{10};
constexpr std::chrono::milliseconds pauseBetweenClicks{60};
constexpr std::chrono::milliseconds settling{500};
constexpr std::uint64_t turnMicroseconds = 100'000;

void serveUntil(EventLoop& loop, const bool& isDone) {
  const auto end = steady_clock::now() + limit;
  while (!isDone && steady_clock::now() < end) sd_event_run(loop.event(), turnMicroseconds);
  if (!isDone) throw std::runtime_error("what was waited for did not come");
}

/// A client that remembers the latest click.
class Client {
 public:
  Client() {
    bool hasStarted = false;
    connection_->start([&](const std::string& problem) {
      if (!problem.empty()) throw std::runtime_error(problem);
      hasStarted = true;
    });
    serveUntil(loop_, hasStarted);
    serveUntil(loop_, hasReport_);
  }

  void awaitClick() {
    hasClick_ = false;
    serveUntil(loop_, hasClick_);
  }

  /// A collection that its client leaves without a word goes on.
  void pause() {
    bool isPaused = false;
    connection_->pause([&](const std::string&) { isPaused = true; });
    serveUntil(loop_, isPaused);
  }

  void stop() {
    connection_->stop([](const std::string&) {});
    serveUntil(loop_, hasEnded_);
  }

  double latestDelivery() const { return delivery_; }

 private:
  void take(const Report& report) {
    hasReport_ = true;
    if (report.event.find("\"action\":\"Click") == std::string::npos) return;
    delivery_ = std::chrono::duration<double, std::micro>(system_clock::now() - report.date).count();
    hasClick_ = true;
  }

  EventLoop loop_;
  bool hasReport_ = false;
  bool hasClick_ = false;
  bool hasEnded_ = false;
  double delivery_ = 0;
  std::unique_ptr<ServiceConnection> connection_ =
      ServiceConnection::open(loop_, {.report = [this](const Report& report) { take(report); },
                                      .serviceEnded = [this] { hasEnded_ = true; },
                                      .busLost = [] {}})
          .connection;
};

}  // namespace

Samples clickWithService(Hands& hands, int clicks) {
  Client client;
  Samples samples;
  std::this_thread::sleep_for(settling);
  for (int i = 0; i < clicks; ++i) {
    const auto released = hands.click();
    client.awaitClick();
    samples["total"].push_back(microsecondsSince(released));
    samples["delivery"].push_back(client.latestDelivery());
    std::this_thread::sleep_for(pauseBetweenClicks);
  }
  client.pause();
  return samples;
}

Samples clickWithInputOnly(Hands& hands, int clicks) {
  EventLoop loop;
  auto taps = linux_desktop::X11EventTaps::open(loop.event(), linux_desktop::X11Connection::open());
  bool hasClick = false;
  const auto tap = taps->createEventTap(CGEventMask{1} << static_cast<unsigned>(CGEventType::leftMouseUp),
                                        [&](const CGEvent&) { hasClick = true; });
  tap->addSourceToMainRunLoop();
  tap->enable();
  Samples samples;
  for (int i = 0; i < clicks; ++i) {
    hasClick = false;
    const auto released = hands.click();
    serveUntil(loop, hasClick);
    samples["input"].push_back(microsecondsSince(released));
    std::this_thread::sleep_for(pauseBetweenClicks);
  }
  return samples;
}

Samples startService(int times) {
  Samples samples;
  for (int i = 0; i < times; ++i) {
    const auto begin = steady_clock::now();
    Client client;
    samples["start"].push_back(microsecondsSince(begin));
    client.stop();
  }
  return samples;
}

}  // namespace norra::benchmarks
