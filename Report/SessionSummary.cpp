#include "Report/SessionSummary.h"

#include <map>
#include <utility>

namespace norra::report {
namespace {

/// Makes the list of applications, each once.
class ApplicationList {
 public:
  std::size_t indexOf(const std::string& identifier, const std::string& name) {
    const auto [known, isNew] = indices_.try_emplace({identifier, name}, applications_.size());
    if (isNew) applications_.push_back({.identifier = identifier, .name = name});
    return known->second;
  }

  Application& operator[](std::size_t index) { return applications_[index]; }
  std::vector<Application> take() { return std::move(applications_); }

 private:
  std::vector<Application> applications_;
  std::map<std::pair<std::string, std::string>, std::size_t> indices_;
};

/// Follows a session report by report. A span is open while collection runs: from its start, or from the first report
/// that shows that it runs, to its stop, or to the last report before it starts anew.
class SessionFollower {
 public:
  void follow(const RecordedReport& report) {
    if (isCollecting_ && report.date < lastDate_) continueAt(report.date);
    std::visit([&](const auto& data) { take(data, report.date); }, report.action);
    lastDate_ = report.date;
    ++summary_.countOfKind[report.action.index()];
  }

  SessionSummary end() {
    if (isCollecting_) closeSpan(lastDate_);
    summary_.applications = applications_.take();
    return std::move(summary_);
  }

 private:
  void take(const CollectorData& collector, Instant date) {
    const bool isStop =
        collector.operation == CollectorOperation::stop || collector.operation == CollectorOperation::pause;
    if (isCollecting_) stopCollecting(isStop ? date : lastDate_);
    if (!isStop) startCollecting(date);
    summary_.applicationOfReport.emplace_back(std::nullopt);
  }

  void take(const ChangeApplicationData& change, Instant date) {
    if (isCollecting_) closeSpan(date);
    if (!isCollecting_) startCollecting(date);
    current_ = applications_.indexOf(change.applicationName, change.fileDescription);
    begin_ = date;
    ++applications_[*current_].switches;
    assignToCurrent();
  }

  template <typename Data>
  void take(const Data&, Instant date) {
    if (!isCollecting_) startCollecting(date);
    assignToCurrent();
  }

  void assignToCurrent() {
    const auto application = currentApplication();
    ++applications_[application].actions;
    summary_.applicationOfReport.emplace_back(application);
  }

  void startCollecting(Instant date) {
    if (stoppedAt_ && *stoppedAt_ < date) summary_.pauses.push_back({*stoppedAt_, date});
    isCollecting_ = true;
    current_.reset();
    begin_ = date;
  }

  void stopCollecting(Instant date) {
    closeSpan(date);
    isCollecting_ = false;
    stoppedAt_ = date;
  }

  void continueAt(Instant date) {
    closeSpan(lastDate_);
    begin_ = lastDate_ = date;
  }

  void closeSpan(Instant date) {
    if (date <= begin_) return;
    const auto application = currentApplication();
    summary_.spans.push_back({application, begin_, date});
    applications_[application].timeInFront += date - begin_;
    summary_.collected += date - begin_;
  }

  std::size_t currentApplication() {
    if (!current_) current_ = applications_.indexOf("", "");
    return *current_;
  }

  SessionSummary summary_;
  ApplicationList applications_;
  bool isCollecting_ = false;
  std::optional<std::size_t> current_;
  Instant begin_;
  Instant lastDate_;
  std::optional<Instant> stoppedAt_;
};

}  // namespace

SessionSummary summarize(const std::vector<RecordedReport>& reports) {
  SessionFollower follower;
  for (const auto& report : reports) follower.follow(report);
  return follower.end();
}

}  // namespace norra::report
