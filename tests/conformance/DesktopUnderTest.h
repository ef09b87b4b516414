// What the conformance tests need of a desktop beside the platform itself: programs with controls, a user's hands, and
// clients of the service. A new platform implements this once and is then asked everything that the core expects.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Platform.h"

namespace norra::conformance {

/// What a group of tests is about; a desktop need only be made ready for that.
enum class Facility { runLoop, executors, workspace, input, connections, elements, observers };

enum class ControlKind { button, textField };

enum class Operation { start, stop, pause, resume };

/// A report as a client got it.
struct ReceivedReport {
  std::string event;
  std::chrono::system_clock::time_point date;
  bool isApplicationEvent = false;
};

/// A program that uses the service. Ends with its owner at the latest.
class ServiceClient {
 public:
  virtual ~ServiceClient() = default;

  /// Does not wait for the answer.
  virtual void call(Operation operation) = 0;
  /// The answers to the calls so far; a refusal may be an answer too.
  virtual std::vector<std::string> replies() const = 0;
  virtual std::vector<ReceivedReport> reports() const = 0;
  /// From now on what is sent to it waits for readReports().
  virtual void stopReading() = 0;
  /// Reads until so many reports are there or no more come, whether the service still runs or not.
  virtual void readReports(std::size_t count) = 0;
  virtual void disconnect() = 0;
};

/// A desktop of its own for one test, which runs on its main thread. What is asked of it here has been done when the
/// operation returns; that the platform has noticed takes serveUntil().
class DesktopUnderTest {
 public:
  virtual ~DesktopUnderTest() = default;

  virtual Platform platform() = 0;

  /// Lets the platform work until the condition holds. False: it did not, in all the time that it may need.
  virtual bool serveUntil(const std::function<bool()>& condition) = 0;

  /// Starts an application with one empty window of this title.
  virtual ProcessIdentifier startApplication(const std::string& title) = 0;
  virtual void endApplication(ProcessIdentifier application) = 0;
  virtual void activate(ProcessIdentifier application) = 0;

  /// Names are unique in an application.
  virtual void addControl(ProcessIdentifier application, ControlKind kind, const std::string& name) = 0;
  virtual void removeControl(ProcessIdentifier application, const std::string& name) = 0;
  /// Of a text field.
  virtual void setText(ProcessIdentifier application, const std::string& name, const std::string& text) = 0;
  virtual void focus(ProcessIdentifier application, const std::string& name) = 0;
  virtual CGPoint middleOf(ProcessIdentifier application, const std::string& name) = 0;

  /// With the left button.
  virtual void click(CGPoint location) = 0;
  /// A lower-case letter, without a modifier.
  virtual void pressKey(char letter) = 0;
  /// The same with the Control key held.
  virtual void pressShortcut(char letter) = 0;

  /// `isUsable`: whether it exports what the service reports to.
  virtual std::unique_ptr<ServiceClient> connectClient(bool isUsable) = 0;
};

/// A kind of desktop.
struct DesktopMaker {
  std::string name;
  /// Why a facility cannot be tried on this machine, and what to install; nothing: it can.
  std::function<std::optional<std::string>(Facility)> whyNot;
  std::function<std::unique_ptr<DesktopUnderTest>(Facility)> make;
};

inline void PrintTo(const DesktopMaker& maker, std::ostream* out) { *out << maker.name; }

}  // namespace norra::conformance
