// The heart of collection: owns the event sources, follows the application in front, and reports actions.
//
// Three sources tell of what happens: the workspace of applications that come to the front, the event tap of clicks and
// keys in whatever application, and the accessibility collector of what changes in the one application that is
// followed. All three hear of it on the main thread. Each hands what it heard to a job on the collector's executor, and
// there the order of the reports is decided: before a click in another application stands the switch to it, and before
// the switch the text that was still being typed in the one that is left.
//
// An application is followed from the first sign that the person works in it, which may be a click into its window or a
// key as well as an activation. So every click and key carries the process that it belongs to, a plain letter too,
// which is no report itself.
//
// The jobs hold the collector weakly. Once its owner lets go of it, what still waits ends without a word.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "NorraDataCollector/model/Action.h"
#include "Platform/Platform.h"

namespace norra {

class AccessibilityNotificationCollector;
class TapEventsCollector;
class WorkspaceNotificationsCollector;

/// One for each collecting client. Its state belongs to a serial executor of its own; its sources belong to the main
/// thread, for which the executor waits where it makes one or lets one go. Once the last owner has let go of it, its
/// sources are gone and nothing more is reported.
class DataCollector : public std::enable_shared_from_this<DataCollector> {
 public:
  /// Receives every action. Called on the collector's executor; must not block for long.
  using CollectedAction = std::function<void(const Action&)>;
  /// Receives the JSON text of every action, which is empty where the action cannot be written, and whether it is a
  /// change of the application in front.
  using CollectedData = std::function<void(std::string bytes, bool isApplicationEvent)>;
  using CompletionHandler = std::function<void()>;

  static std::shared_ptr<DataCollector> create(const Platform& platform, CollectedAction collectedAction);
  static std::shared_ptr<DataCollector> createWithData(const Platform& platform, CollectedData collectedData);
  ~DataCollector();

  /// Starts or stops collecting, later, on the collector's executor, and calls the handler there when it is done. A
  /// start while started and a stop while stopped do nothing else. Any thread.
  void start(CompletionHandler completion = {});
  void stop(CompletionHandler completion = {});

 private:
  enum class State { stopped, started };

  DataCollector(const Platform& platform, CollectedAction collectedAction);

  using Job = std::function<void(DataCollector&)>;
  /// What the sources post their jobs with, from any thread: a job that finds the collector gone or stopped is dropped,
  /// and so is one that finds a great many waiting.
  std::function<void(Job)> sourceJobs();

  void startOnExecutor();
  void stopOnExecutor();
  void createSources();
  void releaseSources();
  void updateFocusedApplication(const std::optional<NSRunningApplication>& application, bool reportChange);
  void reportTapAction(const Action& action, ProcessIdentifier process);
  void follow(ProcessIdentifier process);
  void report(const Action& action);

  const Platform platform_;
  const CollectedAction collectedAction_;
  const std::shared_ptr<SerialExecutor> executor_;

  // On the executor only; what they point to belongs to the main thread.
  std::unique_ptr<TapEventsCollector> tapEventsCollector_;
  std::unique_ptr<WorkspaceNotificationsCollector> workspaceNotificationsCollector_;
  std::shared_ptr<AccessibilityNotificationCollector> accessibilityNotificationCollector_;
  ProcessIdentifier focusedPid_ = 0;
  State state_ = State::stopped;
};

}  // namespace norra
