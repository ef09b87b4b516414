#include <future>

#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/ExportedObject.h"

namespace norra::conformance {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

class Delegate final : public AcceptingDelegate {
 public:
  explicit Delegate(NSXPCListener& listener) : listener_(listener) { listener_.setDelegate(this); }
  ~Delegate() override { listener_.setDelegate(nullptr); }
  Delegate(const Delegate&) = delete;
  Delegate& operator=(const Delegate&) = delete;

 private:
  NSXPCListener& listener_;
};

/// Calls and gives the answer; nothing if none comes.
std::optional<std::string> ask(DesktopUnderTest& desktop, ServiceClient& client, Operation operation) {
  const auto before = client.replies().size();
  client.call(operation);
  if (!desktop.serveUntil([&] { return client.replies().size() > before; })) return std::nullopt;
  return client.replies().back();
}

Texts eventsOf(const ServiceClient& client) {
  Texts events;
  for (const auto& report : client.reports()) events.push_back(report.event);
  return events;
}

TEST_P(ConnectionConformance, EachClientIsAConnectionOfItsOwn) {
  Delegate delegate(platform().listener);
  const auto first = desktop->connectClient(true);
  const auto second = desktop->connectClient(true);
  EXPECT_EQ(ask(*desktop, *first, Operation::start), "started 1");
  EXPECT_EQ(ask(*desktop, *second, Operation::pause), "paused 2");
  EXPECT_EQ(ask(*desktop, *first, Operation::resume), "resumed 1");
  EXPECT_EQ(ask(*desktop, *second, Operation::stop), "stopped 2");
}

TEST_P(ConnectionConformance, ReportsArriveAsTheyWereSentAndInTheirOrder) {
  Delegate delegate(platform().listener);
  const auto client = desktop->connectClient(true);
  ASSERT_EQ(ask(*desktop, *client, Operation::start), "started 1");
  const auto date = std::chrono::system_clock::time_point(std::chrono::microseconds(1'700'000'000'123'456));
  const auto proxy = delegate.objects[0].lock()->client;
  const auto executor = platform().serialExecutors.createSerialExecutor();
  proxy->addEvent("first", date, false);
  ASSERT_TRUE(serveUntil([&] { return client->reports().size() == 1; }));
  ASSERT_TRUE(runOn(*executor, [&] {
    for (const auto* event : {"", R"({"ö":"\/"})", "last"}) proxy->addEvent(event, date, true);
  }));
  ASSERT_TRUE(serveUntil([&] { return client->reports().size() == 4; }));
  EXPECT_THAT(eventsOf(*client), ElementsAre("first", "", R"({"ö":"\/"})", "last"));
  EXPECT_FALSE(client->reports().front().isApplicationEvent);
  EXPECT_TRUE(client->reports().back().isApplicationEvent);
  for (const auto& report : client->reports()) EXPECT_EQ(report.date, date);
}

TEST_P(ConnectionConformance, AClientThatExportsNothingUsableHasNoProxy) {
  Delegate delegate(platform().listener);
  const auto client = desktop->connectClient(false);
  EXPECT_EQ(ask(*desktop, *client, Operation::start), "not usable");
  EXPECT_EQ(ask(*desktop, *client, Operation::pause), "paused 1") << "its calls are answered all the same";
}

TEST_P(ConnectionConformance, ARefusedConnectionServesNoCall) {
  Delegate delegate(platform().listener);
  delegate.accepts = false;
  const auto refused = desktop->connectClient(true);
  refused->call(Operation::start);
  ASSERT_TRUE(serveUntil([&] { return delegate.objects.size() == 1; }));
  delegate.accepts = true;
  const auto accepted = desktop->connectClient(true);
  ASSERT_TRUE(ask(*desktop, *accepted, Operation::pause));
  EXPECT_THAT(refused->replies(), testing::Each(testing::Not(testing::HasSubstr("started"))));
  EXPECT_TRUE(serveUntil([&] { return delegate.objects.front().expired(); }));
}

TEST_P(ConnectionConformance, AClientThatGoesInvalidatesItsConnectionOnceAndLetsGoOfItsObject) {
  Delegate delegate(platform().listener);
  const auto going = desktop->connectClient(true);
  const auto staying = desktop->connectClient(true);
  ASSERT_TRUE(ask(*desktop, *going, Operation::pause));
  ASSERT_TRUE(ask(*desktop, *staying, Operation::pause));
  going->disconnect();
  EXPECT_TRUE(serveUntil([&] { return delegate.objects[0].expired(); }));
  EXPECT_THAT(delegate.invalidated, ElementsAre(1));
  EXPECT_EQ(ask(*desktop, *staying, Operation::pause), "paused 2");
  EXPECT_FALSE(delegate.objects[1].expired());
  EXPECT_THAT(delegate.invalidated, ElementsAre(1));
}

TEST_P(ConnectionConformance, AProxyOutlivesItsConnectionAndTellsWhatIsLost) {
  Delegate delegate(platform().listener);
  const auto client = desktop->connectClient(true);
  ASSERT_TRUE(ask(*desktop, *client, Operation::start));
  const auto proxy = delegate.objects[0].lock()->client;
  const auto errors = delegate.objects[0].lock()->errors;
  client->disconnect();
  ASSERT_TRUE(serveUntil([&] { return !delegate.invalidated.empty(); }));
  EXPECT_THAT(*errors, IsEmpty());
  proxy->addEvent("lost", {}, false);
  EXPECT_TRUE(serveUntil([&] { return errors->size() == 1; }));
  EXPECT_THAT(*errors, testing::Each(testing::Not(IsEmpty())));
}

TEST_P(ConnectionConformance, TheEndOfTheProcessDeliversTheLastReportAndRunsNoFurtherJob) {
  Delegate delegate(platform().listener);
  const auto client = desktop->connectClient(true);
  ASSERT_TRUE(ask(*desktop, *client, Operation::start));
  const auto proxy = delegate.objects[0].lock()->client;
  const auto executor = platform().serialExecutors.createSerialExecutor();
  std::atomic<bool> hasRunAfter = false;
  std::promise<void> hasPosted;
  executor->post([&] {
    proxy->addEvent("last", {}, false);
    platform().process.exit(7);
    executor->post([&] { hasRunAfter = true; });
    hasPosted.set_value();
  });
  client->stopReading();
  EXPECT_EQ(platform().listener.activate(), 7);
  hasPosted.get_future().wait();
  EXPECT_FALSE(hasRunAfter);
  EXPECT_TRUE(delegate.objects[0].expired()) << "the loop lets go of its connections";
  client->readReports(1);
  EXPECT_THAT(eventsOf(*client), ElementsAre("last"));
}

INSTANTIATE_TEST_SUITE_P(Desktop, ConnectionConformance, testing::Values(desktopUnderTest()), nameOf);

}  // namespace
}  // namespace norra::conformance
