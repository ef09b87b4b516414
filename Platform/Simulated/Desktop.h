// A whole desktop in memory with a virtual clock, and the things that can happen on it. The same happenings always have
// the same effects in the same order. One thread only.
//
// It is a platform like any other, so the service runs over it unchanged, from the connection of a client to the last
// report. What happens on it is said by its owner, a scenario or a test, as a person or an application would do it: a
// button is let go, a window comes to the front, an element changes and sends a notification.
#pragma once

#include "Platform/Platform.h"
#include "Platform/Simulated/AccessibilityTree.h"
#include "Platform/Simulated/Applications.h"
#include "Platform/Simulated/Clients.h"
#include "Platform/Simulated/InputDevices.h"
#include "Platform/Simulated/Process.h"

namespace norra::simulated {

enum class PointerButton { left, right, other };

/// What happens first reaches those who are told of it at once; then every job that waits on the main loop or on an
/// executor runs, while the clock stands still. Elements and applications that are named must exist.
class Desktop {
 public:
  explicit Desktop(const DesktopDescription& description = {});
  ~Desktop() { endAllWork(); }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  /// What the service is given. Lives as long as the desktop.
  Platform platform();

  Scheduler& scheduler() { return scheduler_; }
  AccessibilityTree& accessibility() { return accessibility_; }
  Applications& applications() { return applications_; }
  Clients& clients() { return clients_; }
  Process& process() { return process_; }

  /// Defines an element or replaces one, and gives its handle.
  AXUIElement add(const std::string& identifier, ElementDescription element);
  void add(const ApplicationDescription& application);

  void connect(const std::string& client, std::shared_ptr<ClientProtocol> exported);
  void call(const std::string& client, ServiceOperation operation, const ServiceReply& reply);
  void disconnect(const std::string& client);
  void interrupt(const std::string& client);

  /// A button is released at this place.
  void click(CGPoint location, PointerButton button = PointerButton::left);
  /// Nothing: a press of which no key event can be made.
  void pressKey(const std::optional<NSEvent>& key);
  /// The platform switches the taps off, for one of the two reasons that a tap-disabled event can give.
  void disableTaps(CGEventType reason);

  /// The application comes to the front and its activation is announced; nothing: an activation without an application
  /// is announced, and the one in front stays there.
  void activate(std::optional<ProcessIdentifier> process);
  /// The application comes to the front, or none is there, without an announcement.
  void setFrontmost(std::optional<ProcessIdentifier> process);
  /// The application ends: it is no longer among the running ones, and reads of its elements fail.
  void terminate(ProcessIdentifier process);

  void setAttributes(const std::string& element, const Attributes& attributes);
  void setActions(const std::string& element, std::vector<std::string> actions);
  void destroy(const std::string& element);
  void setScreen(Screen screen);

  /// The element sends a notification to the observers that registered it there.
  void notify(const std::string& element, const std::string& notification);
  /// The same to every observer of the element's process, registered or not.
  void forceNotification(const std::string& element, const std::string& notification);

  void advance(std::chrono::nanoseconds by);

  void runReadyJobs() { scheduler_.runReadyJobs(); }

  /// Lets go of every connection and of all waiting work, without running it.
  void endAllWork();

 private:
  Element& element(const std::string& identifier) { return accessibility_.element({identifier}); }

  Scheduler scheduler_;
  Process process_{scheduler_};
  AccessibilityTree accessibility_;
  Applications applications_;
  InputDevices input_;
  Clients clients_;
};

}  // namespace norra::simulated
