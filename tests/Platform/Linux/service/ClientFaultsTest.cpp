// The whole service, on a thread of the test, and clients that come, go and change their minds.
#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <deque>
#include <future>
#include <iostream>
#include <random>
#include <thread>

#include "Platform/Linux/LinuxPlatform.h"
#include "UserInteractionsCollectorService/ServiceEntry.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestClient.h"
#include "tests/Platform/Linux/Waiting.h"

namespace norra::linux_desktop {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

constexpr auto* start = "startCollectorWith";
constexpr auto* stop = "stopCollectorWith";
constexpr auto* pause = "pauseCollectorWith";
constexpr auto* resume = "resumeCollectorWith";

std::string report(const std::string& operation) {
  return R"({"action":"Collector","operation":")" + operation + R"("})";
}

std::vector<std::string> reportsOf(const TestClient& client) {
  std::vector<std::string> reports;
  for (const auto& received : client.events()) reports.push_back(received.event);
  return reports;
}

/// Until a client stops it. Offered when it has been made.
class RunningService {
 public:
  RunningService() : thread_([this] { run(); }) { isOffered_.get_future().wait(); }
  ~RunningService() { thread_.join(); }
  RunningService(const RunningService&) = delete;
  RunningService& operator=(const RunningService&) = delete;

  bool hasEnded() const { return hasEnded_; }
  int status() const { return status_; }

 private:
  void run() {
    const auto [platform, problem] = LinuxPlatform::create();
    isOffered_.set_value();
    if (platform) status_ = runService([&] { return platform->facilities(); }).value_or(0);
    hasEnded_ = true;
  }

  std::promise<void> isOffered_;
  std::atomic<int> status_ = -1;
  std::atomic<bool> hasEnded_ = false;
  std::thread thread_;
};

class ClientFaults : public testing::Test {
 protected:
  ClientFaults() {
    unsetenv("DISPLAY");
    service.emplace();
  }

  ~ClientFaults() override {
    TestClient last(loop.event());
    last.call(start);
    last.call(stop);
    EXPECT_TRUE(runUntil([&] { return service->hasEnded(); }));
    if (!service->hasEnded()) std::abort();  // it would be waited for without an end
    EXPECT_EQ(service->status(), 0);
  }

  bool runUntil(const std::function<bool()>& condition) { return serveUntil(loop.event(), condition); }

  bool awaitReplies(const TestClient& client, std::size_t count) {
    return runUntil([&] { return client.replies().size() >= count; });
  }

  void restartWhenEnded() {
    ASSERT_TRUE(runUntil([&] { return service->hasEnded(); }));
    EXPECT_EQ(service->status(), 0);
    service.reset();
    service.emplace();
  }

  PrivateBus bus;
  EventLoop loop;
  std::optional<RunningService> service;
};

TEST_F(ClientFaults, AStopDuringAPauseIsTheEndAndReportsNothingMore) {
  TestClient client(loop.event());
  for (const auto* method : {start, pause, stop}) client.call(method);
  ASSERT_TRUE(awaitReplies(client, 3));
  EXPECT_THAT(client.replies(), Each(""));
  restartWhenEnded();
  EXPECT_TRUE(runUntil([&] { return client.events().size() >= 2; }));
  EXPECT_THAT(reportsOf(client), ElementsAre(report("start"), report("stop")));
}

// The second start may still reach the service that ends, or find none.
TEST_F(ClientFaults, AStartDuringAStopIsAnsweredAndTheServiceEnds) {
  TestClient client(loop.event());
  TestClient other(loop.event());
  for (const auto* method : {start, stop, start}) client.call(method);
  other.call(start);
  ASSERT_TRUE(awaitReplies(client, 3));
  ASSERT_TRUE(awaitReplies(other, 1));
  restartWhenEnded();
  EXPECT_TRUE(runUntil([&] { return std::ranges::count(reportsOf(client), report("stop")) == 1; }));
  TestClient next(loop.event());
  next.call(start);
  ASSERT_TRUE(runUntil([&] { return next.events().size() == 1; }));
  EXPECT_THAT(next.replies(), ElementsAre(""));
}

TEST_F(ClientFaults, TenClientsAtOnceEachGetTheirOwnReports) {
  std::deque<TestClient> clients;
  for (int i = 0; i < 10; ++i) {
    auto& client = clients.emplace_back(loop.event());
    for (const auto* method : {start, pause, resume, pause}) client.call(method);
  }
  for (const auto& client : clients) {
    ASSERT_TRUE(runUntil([&] { return client.events().size() == 4; }));
    EXPECT_THAT(reportsOf(client), ElementsAre(report("start"), report("stop"), report("start"), report("stop")));
  }
}

/// Ten places for clients, in which one thing after the other happens by chance.
class ByChance : public ClientFaults {
 protected:
  struct Place {
    std::unique_ptr<TestClient> client;
    std::size_t calls = 0;
    bool reads = true;
  };

  static unsigned seed() {
    const auto* given = std::getenv("NORRA_SEED");
    return given != nullptr ? static_cast<unsigned>(std::atoi(given)) : std::random_device()();
  }

  std::size_t chance(std::size_t number) { return random_() % number; }

  void step() {
    auto& place = places_[chance(places_.size())];
    if (!place.client) return come(place);
    switch (chance(8)) {
      case 0: return leave(place);
      case 1: return toggleReading(place);
      case 2:
      case 3: sd_event_run(loop.event(), 0); return;
      default: return call(place);
    }
  }

  void come(Place& place) {
    constexpr std::array objects{TestClient::Object::usable, TestClient::Object::usable, TestClient::Object::none,
                                 TestClient::Object::withoutAddEvent, TestClient::Object::neverAnswering};
    place = {std::make_unique<TestClient>(loop.event(), objects.at(chance(objects.size())))};
  }

  void leave(Place& place) {
    expectSense(*place.client);
    place.client.reset();
  }

  void toggleReading(Place& place) {
    place.reads = !place.reads;
    place.reads ? place.client->readAgain(loop.event()) : place.client->stopReading();
  }

  void call(Place& place) {
    constexpr std::array methods{start, start, start, pause, resume, pause, resume, "noSuchMethod"};
    const bool isStop = chance(40) == 0;
    place.client->call(isStop ? stop : methods.at(chance(methods.size())));
    ++place.calls;
  }

  // A collection may end without a report, when another client stops the service, but is never stopped twice.
  static void expectSense(const TestClient& client) {
    const auto reports = reportsOf(client);
    for (std::size_t i = 0; i < reports.size(); ++i) {
      const bool isSense = reports[i] != report("stop") || (i > 0 && reports[i - 1] == report("start"));
      EXPECT_TRUE(isSense) << i;
    }
  }

  void expectAnAnswerToEachCall(Place& place) {
    if (!place.client) return;
    if (!place.reads) toggleReading(place);
    EXPECT_TRUE(awaitReplies(*place.client, place.calls));
    EXPECT_THAT(place.client->replies(), SizeIs(place.calls));
    expectSense(*place.client);
  }

  std::mt19937 random_;
  std::array<Place, 10> places_;
};

TEST_F(ByChance, ClientsThatComeAndGoAtEveryMomentLeaveAServiceThatAnswers) {
  constexpr int steps = 3000;
  const auto chosen = seed();
  std::cout << "NORRA_SEED=" << chosen << std::endl;
  SCOPED_TRACE("NORRA_SEED=" + std::to_string(chosen));
  random_.seed(chosen);
  for (int i = 0; i < steps && !HasFailure(); ++i) {
    step();
    if (service->hasEnded()) restartWhenEnded();
  }
  for (auto& place : places_) expectAnAnswerToEachCall(place);
}

}  // namespace
}  // namespace norra::linux_desktop
