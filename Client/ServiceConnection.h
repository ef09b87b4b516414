// The service as a client reaches it over the session bus.
//
// Four calls go there and reports come back, each in its order. A call starts the service where it does not run. The
// name of the service is watched, so that a client hears of an end that nobody announced.
#pragma once

#include <functional>
#include <list>
#include <memory>
#include <string>

#include "Client/formats/Report.h"
#include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
#include "Platform/Linux/runtime/EventLoop.h"
#include "Platform/Linux/runtime/SessionBus.h"

namespace norra {

/// Receives reports, and asks the service to start, stop, pause and resume; answers come in the order of the calls. The
/// bus starts the service when it does not run. Main thread.
class ServiceConnection {
 public:
  struct Handlers {
    std::function<void(const Report&)> report;
    /// The service gave up its name, after its last report.
    std::function<void()> serviceEnded;
    std::function<void()> busLost;
  };
  /// Receives "" when the service did as it was asked; otherwise what is wrong, and what to do.
  using Answer = std::function<void(const std::string& problem)>;

  struct Opened {
    std::unique_ptr<ServiceConnection> connection;  // null where there is none
    std::string problem;                            // then: why, and what to do
  };
  static Opened open(linux_desktop::EventLoop& loop, Handlers handlers);
  ServiceConnection(const ServiceConnection&) = delete;
  ServiceConnection& operator=(const ServiceConnection&) = delete;

  void start(Answer answer) { call(busNames::startCollectorWith, std::move(answer)); }
  void stop(Answer answer) { call(busNames::stopCollectorWith, std::move(answer)); }
  void pause(Answer answer) { call(busNames::pauseCollectorWith, std::move(answer)); }
  void resume(Answer answer) { call(busNames::resumeCollectorWith, std::move(answer)); }

 private:
  ServiceConnection(linux_desktop::BusPtr bus, Handlers handlers)
      : handlers_(std::move(handlers)), bus_(std::move(bus)) {}

  struct Call {
    ServiceConnection& connection;
    Answer answer;
    linux_desktop::SlotPtr reply;
  };

  int exportClient();
  void call(const char* method, Answer answer);
  Answer takeAnswer(Call& call);
  static int onAddEvent(sd_bus_message* call, void* connection, sd_bus_error* error) noexcept;
  static int onReply(sd_bus_message* reply, void* call, sd_bus_error* error) noexcept;
  static int onOwnerChanged(sd_bus_message* signal, void* connection, sd_bus_error* error) noexcept;
  static int onDisconnected(sd_bus_message* signal, void* connection, sd_bus_error* error) noexcept;
  static const sd_bus_vtable methods[];

  const Handlers handlers_;
  linux_desktop::BusPtr bus_;
  linux_desktop::SlotPtr object_;
  linux_desktop::SlotPtr ownerChanges_;
  linux_desktop::SlotPtr disconnection_;
  std::list<Call> calls_;  // that are not answered yet
};

}  // namespace norra
