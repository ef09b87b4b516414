#include <gmock/gmock.h>

#include "Platform/Linux/runtime/SerialExecutorThread.h"
#include "Platform/Linux/service/BusListener.h"
#include "Platform/Linux/service/ServiceProcess.h"
#include "tests/Platform/Linux/PrivateBus.h"
#include "tests/Platform/Linux/TestClient.h"
#include "tests/Platform/Linux/Waiting.h"
#include "tests/conformance/ExportedObject.h"

namespace norra::linux_desktop {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""h;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr auto limit = 20s;

class BusListenerTest : public testing::Test {
 protected:
  BusListenerTest() { listener->setDelegate(&delegate); }

  bool runUntil(const std::function<bool()>& condition) { return serveUntil(loop.event(), condition); }

  std::string ask(TestClient& client, const char* method, const char* argument = nullptr) {
    const auto before = client.replies().size();
    client.call(method, argument);
    return runUntil([&] { return client.replies().size() > before; }) ? client.replies().back() : "no reply";
  }

  std::shared_ptr<conformance::ExportedObject> started(TestClient& client) {
    ask(client, "startCollectorWith");
    return delegate.objects.back().lock();
  }

  PrivateBus bus;
  EventLoop loop;
  std::unique_ptr<BusListener> listener = BusListener::open(loop).listener;
  conformance::AcceptingDelegate delegate;
};

TEST_F(BusListenerTest, AnswersTheCallsOfOneClientInTheirOrder) {
  TestClient client(loop.event());
  for (const char* method : {"startCollectorWith", "pauseCollectorWith", "startCollectorWith", "stopCollectorWith"}) {
    client.call(method);
  }
  ASSERT_TRUE(runUntil([&] { return client.replies().size() == 4; }));
  EXPECT_THAT(client.replies(), ElementsAre("started 1", "paused 1", "started 1", "stopped 1"));
}

TEST_F(BusListenerTest, AWrongCallGetsAnErrorAndTheServiceGoesOn) {
  TestClient client(loop.event());
  EXPECT_EQ(ask(client, "pauseCollectorWith", "surplus"), "org.freedesktop.DBus.Error.InvalidArgs");
  EXPECT_EQ(ask(client, "noSuchMethod"), "org.freedesktop.DBus.Error.UnknownMethod");
  EXPECT_EQ(ask(client, "pauseCollectorWith"), "paused 1");
}

TEST_F(BusListenerTest, ARefusedConnectionGetsAnError) {
  delegate.accepts = false;
  TestClient client(loop.event());
  EXPECT_EQ(ask(client, "pauseCollectorWith"), "org.freedesktop.DBus.Error.AccessDenied");
}

TEST_F(BusListenerTest, LosingTheBusInterruptsEveryConnectionAndEndsTheService) {
  TestClient first(loop.event());
  TestClient second(loop.event());
  ask(first, "pauseCollectorWith");
  ask(second, "pauseCollectorWith");
  bus.kill();
  EXPECT_EQ(listener->activate(), std::nullopt);
  EXPECT_THAT(delegate.interrupted, testing::UnorderedElementsAre(1, 2));
}

TEST_F(BusListenerTest, ASecondServiceIsToldWhoHasTheName) {
  const auto second = BusListener::open(loop);
  EXPECT_EQ(second.listener, nullptr);
  EXPECT_THAT(second.problem, HasSubstr("runs already"));
}

struct ObjectCase {
  const char* name;
  TestClient::Object object;
  bool reads;
  std::string reply;
};

void PrintTo(const ObjectCase& testCase, std::ostream* out) { *out << testCase.name; }

class ClientObjectTest : public BusListenerTest, public testing::WithParamInterface<ObjectCase> {};

TEST_P(ClientObjectTest, DecidesWhetherThereIsAProxy) {
  TestClient client(loop.event(), GetParam().object);
  client.call("startCollectorWith");
  if (!GetParam().reads) {
    client.stopReading();
    ASSERT_TRUE(runUntil([&] { return delegate.objects.size() == 1 && delegate.objects[0].lock()->client; }));
    client.readAgain(loop.event());
  }
  ASSERT_TRUE(runUntil([&] { return !client.replies().empty(); }));
  EXPECT_THAT(client.replies(), ElementsAre(GetParam().reply));
}

INSTANTIATE_TEST_SUITE_P(
    , ClientObjectTest,
    testing::Values(ObjectCase{"WithoutAddEvent", TestClient::Object::withoutAddEvent, true, "not usable"},
                    ObjectCase{"OfAClientThatWaitsForTheReply", TestClient::Object::usable, false, "started 1"}),
    [](const auto& testCase) { return testCase.param.name; });

TEST_F(BusListenerTest, ReportsToAClientThatDoesNotReadAreLostBeyondALimitAndComeAgainAfterwards) {
  constexpr std::size_t most = UnreadLimits{}.reports;
  TestClient client(loop.event());
  const auto object = started(client);
  client.stopReading();
  for (std::size_t report = 0; report < most + 3; ++report) object->client->addEvent("early", {}, false);
  EXPECT_THAT(*object->errors, AllOf(SizeIs(3), testing::Each(HasSubstr("does not read"))));
  EXPECT_EQ(listener->counts().lost, 3U);
  client.readAgain(loop.event());
  ASSERT_TRUE(runUntil([&] { return client.events().size() == most; }));
  EXPECT_EQ(listener->counts().sent, most);
  ASSERT_TRUE(runUntil([&] {
    object->errors->clear();
    object->client->addEvent("late", {}, false);
    return object->errors->empty();
  }));
  EXPECT_TRUE(runUntil([&] { return client.events().back().event == "late"; }));
}

TEST_F(BusListenerTest, AClientThatReadsButNeverAnswersGetsEverything) {
  constexpr std::size_t many = 3 * UnreadLimits{}.reports;
  TestClient client(loop.event(), TestClient::Object::neverAnswering);
  const auto object = started(client);
  for (std::size_t report = 0; report < many; ++report) {
    object->client->addEvent("report", {}, false);
    ASSERT_TRUE(runUntil([&] { return client.events().size() == report + 1; }));
  }
  EXPECT_THAT(*object->errors, ElementsAre());
}

TEST_F(BusListenerTest, AReportToAVanishedClientGivesWhatTheBusSays) {
  TestClient client(loop.event());
  const auto object = started(client);
  client.vanish();
  ASSERT_TRUE(runUntil([&] { return !delegate.invalidated.empty(); }));
  object->client->addEvent("lost", {}, false);
  ASSERT_TRUE(runUntil([&] { return !object->errors->empty(); }));
  EXPECT_THAT(*object->errors, ElementsAre(HasSubstr("ServiceUnknown")));
  EXPECT_EQ(listener->counts().lost, 1U);
}

TEST_F(BusListenerTest, EveryReportThatAClientHadNotReadWhenItVanishedIsToldAsLost) {
  TestClient client(loop.event());
  const auto object = started(client);
  client.stopReading();
  for (int report = 0; report < 5; ++report) object->client->addEvent("unread", {}, false);
  ASSERT_TRUE(runUntil([&] { return listener->counts().sent == 5; }));
  client.vanish();
  ASSERT_TRUE(runUntil([&] { return !object->errors->empty(); }));
  EXPECT_THAT(*object->errors, ElementsAre(HasSubstr("5 reports were lost: ")));
  EXPECT_EQ(listener->counts().lost, 5U);
}

// The answer to the first report says nothing about those that were sent while it was awaited.
TEST_F(BusListenerTest, AReportBehindTheOneThatWasAnsweredIsToldAsLostToo) {
  TestClient client(loop.event());
  const auto object = started(client);
  client.stopReading();
  for (const auto* report : {"read", "unread"}) object->client->addEvent(report, {}, false);
  ASSERT_TRUE(runUntil([&] { return listener->counts().sent == 2; }));
  client.readEvents(1, limit);
  client.vanish();
  ASSERT_TRUE(runUntil([&] { return !object->errors->empty(); }));
  EXPECT_EQ(listener->counts().lost, 1U);
}

class ServiceProcessTest : public BusListenerTest {
 protected:
  std::optional<SerialExecutorThreads> executors{std::in_place, loop};
};

TEST_F(ServiceProcessTest, ExitSendsEveryReportBeforeTheProcessEnds) {
  constexpr std::size_t reports = 1000;
  std::optional<ServiceProcess> process(std::in_place, ServiceProcess::Parts{loop, *executors, *listener}, 1h);
  TestClient client(loop.event());
  auto proxy = started(client)->client;
  client.stopReading();
  const auto executor = executors->createSerialExecutor();
  bool hasRunAfterExit = false;
  executor->post([&] {
    for (std::size_t report = 0; report < reports; ++report) proxy->addEvent(std::string(500, 'x'), {}, false);
    process->exit(7);
    executor->post([&] { hasRunAfterExit = true; });
  });
  EXPECT_EQ(listener->activate(), 7);
  executors.reset();
  process.reset();
  proxy.reset();
  listener.reset();
  client.readEvents(reports, limit);
  EXPECT_THAT(client.events(), SizeIs(reports));
  EXPECT_FALSE(hasRunAfterExit);
}

TEST_F(ServiceProcessTest, EndsByItselfAfterTheLastClientAndTransaction) {
  ServiceProcess process({loop, *executors, *listener}, 1ms);
  process.beginTransaction();
  process.setAutomaticTerminationSupportEnabled(true);
  TestClient client(loop.event());
  EXPECT_EQ(ask(client, "pauseCollectorWith"), "paused 1") << "an open transaction keeps it";
  process.endTransaction();
  EXPECT_EQ(ask(client, "pauseCollectorWith"), "paused 1") << "a client keeps it";
  client.vanish();
  EXPECT_EQ(listener->activate(), std::nullopt);
  EXPECT_THAT(delegate.invalidated, ElementsAre(1));
}

// A call that came in while the name was given back is answered, and the service stays.
TEST_F(ServiceProcessTest, ACallDuringItsEndKeepsTheService) {
  TestClient client(loop.event());
  client.call("pauseCollectorWith");
  listener->endIfUnused();
  ASSERT_TRUE(runUntil([&] { return !client.replies().empty(); }));
  EXPECT_EQ(ask(client, "resumeCollectorWith"), "resumed 1") << "the name is its own again";
}

}  // namespace
}  // namespace norra::linux_desktop
