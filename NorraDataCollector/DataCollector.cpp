#include "NorraDataCollector/DataCollector.h"

#include <cassert>
#include <utility>

#include "NorraBase/Text.h"
#include "NorraDataCollector/ApplicationData.h"
#include "NorraDataCollector/TapEventsCollector/TapEventsCollector.h"
#include "NorraDataCollector/WorkspaceNotificationsCollector.h"
#include "NorraDataCollector/accessibility/AccessibilityNotificationCollector.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/logging/NorraDataCollectorLogging.h"
#include "NorraDataCollector/model/ActionEncoding.h"

namespace norra {
namespace {

/// Empty where the action holds bytes that are no text.
std::string encodedText(const Action& action) {
  auto text = encode(action);
  return isValidUTF8(text) ? text : std::string();
}

}  // namespace

using NorraDataCollectorLogging::clickLogger;
using NorraDataCollectorLogging::defaultLogger;

std::shared_ptr<DataCollector> DataCollector::create(const Platform& platform, CollectedAction collectedAction) {
  return std::shared_ptr<DataCollector>(new DataCollector(platform, std::move(collectedAction)));
}

std::shared_ptr<DataCollector> DataCollector::createWithData(const Platform& platform, CollectedData collectedData) {
  return create(platform, [collectedData = std::move(collectedData)](const Action& action) {
    collectedData(encodedText(action), kind(action) == CodingKeys::changeApplication);
  });
}

DataCollector::DataCollector(const Platform& platform, CollectedAction collectedAction)
    : platform_(platform),
      collectedAction_(std::move(collectedAction)),
      executor_(platform.serialExecutors.createSerialExecutor()) {}

DataCollector::~DataCollector() { releaseSources(); }

void DataCollector::start(CompletionHandler completion) {
  executor_->post([self = shared_from_this(), completion = std::move(completion)] {
    self->startOnExecutor();
    if (completion) completion();
  });
}

void DataCollector::stop(CompletionHandler completion) {
  executor_->post([self = shared_from_this(), completion = std::move(completion)] {
    self->stopOnExecutor();
    if (completion) completion();
  });
}

std::function<void(DataCollector::Job)> DataCollector::sourceJobs() {
  return [weak = weak_from_this(), executor = executor_](Job job) {
    executor->postUnlessCrowded([weak, job = std::move(job)] {
      const auto self = weak.lock();
      if (self && self->state_ == State::started) return job(*self);
      clickLogger().debug("A click or another event gives no report: collection ended before it was handled");
    });
  };
}

void DataCollector::startOnExecutor() {
  if (state_ == State::started) return;
  state_ = State::started;
  defaultLogger().info("DataCollector started");
  report(CollectorData{.operation = CollectorOperation::start});
  focusedPid_ = 0;
  updateFocusedApplication(std::nullopt, false);
  createSources();
}

void DataCollector::stopOnExecutor() {
  if (state_ != State::started) return;
  state_ = State::stopped;
  defaultLogger().info("DataCollector stopped");
  releaseSources();
  report(CollectorData{.operation = CollectorOperation::stop});
}

void DataCollector::createSources() {
  const auto post = sourceJobs();
  platform_.mainRunLoop.runAndWait([&] {
    workspaceNotificationsCollector_ = std::make_unique<WorkspaceNotificationsCollector>(
        platform_.workspace, [post](const NSRunningApplication& application) {
          post([application](DataCollector& self) { self.updateFocusedApplication(application, true); });
        });
    tapEventsCollector_ =
        TapEventsCollector::create(platform_, [post](const Action& action, ProcessIdentifier process) {
          post([action, process](DataCollector& self) { self.reportTapAction(action, process); });
        });
  });
}

void DataCollector::releaseSources() {
  platform_.mainRunLoop.runAndWait([this] {
    workspaceNotificationsCollector_.reset();
    tapEventsCollector_.reset();
    accessibilityNotificationCollector_.reset();
  });
}

void DataCollector::updateFocusedApplication(const std::optional<NSRunningApplication>& application,
                                             bool reportChange) {
  const auto followed = application ? application : platform_.workspace.frontmostApplication();
  if (!followed) return defaultLogger().error("No frontmostApplication");
  if (followed->processIdentifier == focusedPid_) return;
  follow(followed->processIdentifier);
  if (reportChange) report(changeApplicationData(platform_.accessibility, *followed));
}

void DataCollector::reportTapAction(const Action& action, ProcessIdentifier process) {
  updateFocusedApplication(platform_.workspace.runningApplication(process), true);
  if (kind(action) != CodingKeys::undefined) report(action);
}

void DataCollector::follow(ProcessIdentifier process) {
  focusedPid_ = process;
  // The first reading of an application wakes its accessibility.
  ax::role(platform_.accessibility.createApplication(process));
  if (accessibilityNotificationCollector_) {
    std::optional<Action> pending;
    platform_.mainRunLoop.runAndWait([&] { pending = accessibilityNotificationCollector_->stop(); });
    if (pending) report(*pending);
  }
  platform_.mainRunLoop.runAndWait([&] {
    accessibilityNotificationCollector_ = AccessibilityNotificationCollector::create(
        platform_.accessibility, platform_.mainRunLoop, process,
        [post = sourceJobs()](const Action& action) { post([action](DataCollector& self) { self.report(action); }); });
    if (tapEventsCollector_) {
      tapEventsCollector_->setAccessibilityNotificationCollector(accessibilityNotificationCollector_);
    }
  });
}

void DataCollector::report(const Action& action) {
  assert(executor_->isCurrent());
  collectedAction_(action);
}

}  // namespace norra
