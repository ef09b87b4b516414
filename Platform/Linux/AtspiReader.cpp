#include "Platform/Linux/AtspiReader.h"

#include <array>
#include <utility>

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

// Properties that came late to the protocol: an application that does not know them for one element never will.
constexpr Asks lateProperties{Ask::accessibleId, Ask::helpText};

constexpr std::size_t mostFormerParents = 4096;

struct AskOf {
  std::size_t question;
  Ask ask;
};

// GTK 4 puts its elements below its application's own path, and may have no root to ask.
Toolkit toolkitOfPath(std::string_view path) {
  const bool isAtspiPath = path.starts_with("/org/a11y/");
  return !isAtspiPath && path.find("/a11y/") != std::string_view::npos ? Toolkit::gtk4 : Toolkit::other;
}

}  // namespace

void AtspiReader::enter() {
  const auto epoch = epoch_.current();
  if (epoch && epoch == currentEpoch_) return;
  currentEpoch_ = epoch;
  deadline_ = TimePoint::min();
  facts_.clear();
  expected_.clear();
  path_.clear();
  radioGroups_.clear();
}

AtspiReader::TimePoint AtspiReader::deadline() {
  if (deadline_ == TimePoint::min()) deadline_ = steady_clock::now() + budget;
  return deadline_;
}

Asks AtspiReader::missing(const AtspiQuestion& question) { return question.asks - facts_[question.element].asked; }

const AtspiFacts& AtspiReader::read(const AtspiReference& element, Asks asks) {
  const AtspiQuestion question{element, asks};
  read({&question, 1});
  return facts_[element];
}

void AtspiReader::read(std::span<const AtspiQuestion> questions) {
  std::vector<AtspiQuestion> wanted(questions.begin(), questions.end());
  std::erase_if(wanted, [this](const auto& question) { return missing(question).isEmpty(); });
  if (wanted.empty()) return;
  const auto expected = std::exchange(expected_, {});
  wanted.insert(wanted.end(), expected.begin(), expected.end());
  std::vector<AtspiCall> calls;
  std::vector<AskOf> asks;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const auto open = missing(wanted[i]);
    for (std::size_t bit = 0; bit < askCount; ++bit) {
      const auto ask = static_cast<Ask>(bit);
      if (!open.has(ask)) continue;
      facts_[wanted[i].element].asked |= ask;
      asks.push_back({i, ask});
      calls.push_back(callFor(ask, wanted[i].element));
    }
  }
  const auto replies = exchange(calls);
  for (std::size_t i = 0; i < replies.size(); ++i) {
    take(wanted[asks[i].question], asks[i].ask, replies[i]);
  }
}

void AtspiReader::take(const AtspiQuestion& question, Ask ask, const AtspiReply& reply) {
  auto& facts = facts_[question.element];
  store(ask, reply, facts);
  if (ask == Ask::parent && reply.message) rememberParent(question.element, facts.parent);
  if (reply.error == axError::failure && lateProperties.has(ask)) {
    if (const auto application = applications_.find(question.element.busName)) application->noteUnknown(ask);
  }
}

void AtspiReader::rememberParent(const AtspiReference& element, const AtspiReference& parent) {
  if (formerParents_.size() >= mostFormerParents) formerParents_.clear();
  formerParents_.insert_or_assign(element, parent);
}

AtspiReference AtspiReader::likelyParent(const AtspiReference& element) const {
  const auto facts = facts_.find(element);
  if (facts != facts_.end() && facts->second.answered(Ask::parent)) return facts->second.parent;
  const auto former = formerParents_.find(element);
  return former != formerParents_.end() ? former->second : AtspiReference{};
}

void AtspiReader::noteParent(const AtspiReference& element, const AtspiReference& parent) {
  auto& facts = facts_[element];
  facts.parent = parent;
  facts.asked |= Ask::parent;
  facts.errors[static_cast<std::size_t>(Ask::parent)] = axError::success;
  rememberParent(element, parent);
}

AtspiReply AtspiReader::call(AtspiCall call) { return std::move(exchange({&call, 1}).front()); }

std::shared_ptr<AtspiApplication> AtspiReader::application(const AtspiReference& element) {
  if (auto known = applications_.find(element.busName)) return known;
  const AtspiReference root{element.busName, AtspiReference::rootPath};
  const std::array<AtspiCall, 2> calls{propertyCall(root, "org.a11y.atspi.Application", "ToolkitName"),
                                       propertyCall(root, "org.a11y.atspi.Application", "Version")};
  const auto replies = exchange(calls);
  const auto toolkit =
      toolkitNamed(readText(replies[0].message.get()).value_or(""), readText(replies[1].message.get()).value_or(""));
  auto application =
      std::make_shared<AtspiApplication>(toolkit == Toolkit::other ? toolkitOfPath(element.path) : toolkit);
  if (replies[0].error != axError::cannotComplete) applications_.add(element.busName, application);
  return application;
}

}  // namespace norra::linux_desktop
