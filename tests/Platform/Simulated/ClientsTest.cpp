#include <gmock/gmock.h>

#include "Platform/Simulated/Clients.h"
#include "tests/conformance/ExportedObject.h"

namespace norra::simulated {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

class Client final : public ClientProtocol {
 public:
  explicit Client(Lines& lines) : lines_(lines) {}
  void addEvent(std::string event, std::chrono::system_clock::time_point /*date*/,
                bool /*isApplicationEvent*/) override {
    lines_.push_back("event " + event);
  }

 private:
  Lines& lines_;
};

class ClientsTest : public testing::Test, public NSXPCListenerDelegate {
 protected:
  ClientsTest() { clients_.setDelegate(this); }
  ~ClientsTest() override { clients_.dropConnections(); }

  bool shouldAcceptNewConnection(std::shared_ptr<NSXPCConnection> connection) override {
    connection->setExportedObject(std::make_shared<conformance::ExportedObject>(connection, proxies_.size() + 1));
    connection->setInvalidationHandler([this] { lines_.push_back("invalidated"); });
    connection->setInterruptionHandler([this] { lines_.push_back("interrupted"); });
    proxies_.push_back(connection->remoteObjectProxy([this](const auto& error) { lines_.push_back(error); }));
    connection->activate();
    return true;
  }

  void connect(const std::string& name) { clients_.connect(name, std::make_shared<Client>(lines_)); }
  void call(const std::string& name, ServiceOperation operation) {
    clients_.call(name, operation, [this](std::string_view reply) { lines_.emplace_back(reply); });
  }

  Lines lines_;
  std::vector<std::shared_ptr<ClientProtocol>> proxies_;
  Clients clients_;
};

TEST_F(ClientsTest, ANameMeansItsNewestConnection) {
  connect("a");
  connect("a");
  call("a", ServiceOperation::pause);
  clients_.disconnect("a");
  proxies_[0]->addEvent("of the first", {}, false);
  proxies_[1]->addEvent("of the second", {}, false);
  EXPECT_THAT(lines_, ElementsAre("paused 2", "invalidated", "event of the first", "connection invalidated"));
  EXPECT_FALSE(clients_.isConnected("a"));
}

TEST_F(ClientsTest, AnInterruptedConnectionStillCarriesMessages) {
  connect("a");
  clients_.interrupt("a");
  proxies_[0]->addEvent("x", {}, false);
  call("a", ServiceOperation::start);
  EXPECT_THAT(lines_, ElementsAre("interrupted", "event x", "started 1"));
}

TEST_F(ClientsTest, ClientsThatAreNotConnectedAreNotDisturbed) {
  clients_.disconnect("a");
  clients_.interrupt("a");
  call("a", ServiceOperation::start);
  EXPECT_THAT(lines_, IsEmpty());
}

}  // namespace
}  // namespace norra::simulated
