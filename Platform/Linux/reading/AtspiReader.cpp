#include "Platform/Linux/reading/AtspiReader.h"

#include <array>
#include <utility>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/atspi/AtspiRole.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

// Properties that came late to the protocol: an application that does not know them for one element never will.
constexpr Asks lateProperties{Ask::accessibleId, Ask::helpText};

constexpr std::size_t maxKept = 64;
constexpr std::size_t maxFormer = 4096;

bool isSilent(const AtspiFacts& facts) {
  return facts.asked.has(Ask::role) && facts.error(Ask::role) == axError::cannotComplete;
}

bool hasGone(const AtspiFacts& facts) {
  if (facts.answered(Ask::states) && hasState(facts.states, AtspiState::defunct)) return true;
  return facts.asked.has(Ask::role) && !facts.answered(Ask::role);
}

}  // namespace

void AtspiReader::enter() {
  const auto epoch = epoch_.current();
  const auto generation = connection_.generation();
  const bool isSameEvent = isHeld_ || (epoch && epoch == currentEpoch_);
  if (isSameEvent && generation == generation_) return;
  if (std::exchange(generation_, generation) != generation) {
    kept_.clear();
    former_.clear();
  }
  currentEpoch_ = epoch;
  forget();
}

void AtspiReader::forget() {
  deadline_ = TimePoint::min();
  facts_.clear();
  expected_.clear();
  path_.clear();
  pointed_ = {};
}

void AtspiReader::notePointed(const AtspiReference& element) {
  pointed_ = element;
  notePath(element);
}

AtspiReader::TimePoint AtspiReader::deadline() {
  if (deadline_ == TimePoint::min()) deadline_ = steady_clock::now() + budget;
  return deadline_;
}

Asks AtspiReader::missing(const AtspiQuestion& question) {
  auto asks = question.asks;
  if (asks.has(Ask::role) && mayBeVague(question.element)) asks |= toolkitOf(question.element).knownBy;
  return asks - facts_[question.element].asked;
}

const Toolkit& AtspiReader::toolkitOf(const AtspiReference& element) const {
  const auto application = applications_.find(element.busName);
  return application ? application->toolkit() : unknownToolkit;
}

// What is known by more than its role is mostly asked for that in the same wave.
bool AtspiReader::mayBeVague(const AtspiReference& element) const {
  const auto former = former_.find(element);
  return former == former_.end() || !former->second.role || former->second.isVague;
}

void AtspiReader::correctRole(const AtspiReference& element) {
  const auto& toolkit = toolkitOf(element);
  auto& facts = facts_[element];
  if (!facts.answered(Ask::role)) return;
  const bool isVague = toolkit.trueRole && static_cast<AtspiRole>(facts.role) == toolkit.vagueRole;
  if (isVague) {
    read(element, toolkit.knownBy);
    facts.role = static_cast<std::uint32_t>(toolkit.trueRole(facts));
  }
  auto& former = formerOf(element);
  former.role = static_cast<AtspiRole>(facts.role);
  former.isVague = isVague;
}

const AtspiFacts& AtspiReader::read(const AtspiReference& element, Asks asks) {
  const AtspiQuestion question{element, asks};
  read({&question, 1});
  return facts_[element];
}

// Marks what it gives as asked.
std::vector<AtspiReader::Asking> AtspiReader::open(std::span<const AtspiQuestion> questions) {
  std::vector<Asking> askings;
  for (const auto& question : questions) {
    const auto asks = missing(question);
    facts_[question.element].asked |= asks;
    for (std::size_t bit = 0; bit < askCount; ++bit) {
      if (asks.has(static_cast<Ask>(bit))) askings.push_back({question.element, static_cast<Ask>(bit)});
    }
  }
  return askings;
}

std::vector<AtspiReply> AtspiReader::read(std::span<const AtspiQuestion> questions, std::vector<AtspiCall> calls) {
  const auto otherCalls = calls.size();
  auto askings = open(questions);
  if (askings.empty() && calls.empty()) return {};
  const auto expected = open(std::exchange(expected_, {}));
  askings.insert(askings.end(), expected.begin(), expected.end());
  for (const auto& asking : askings) calls.push_back(callFor(asking.ask, asking.element));
  auto replies = exchange(calls);
  for (std::size_t i = 0; i < askings.size(); ++i) take(askings[i], replies[otherCalls + i]);
  for (const auto& asking : askings) {
    if (asking.ask == Ask::role) correctRole(asking.element);
    restoreIfSilent(asking.element);
  }
  replies.resize(otherCalls);
  return replies;
}

void AtspiReader::keep(const AtspiReference& element, KeptFor purpose) {
  if (kept_.size() >= maxKept) kept_.clear();
  kept_.insert_or_assign(element, Kept{facts_[element], purpose});
  kept_[element].facts.isFormer = true;
}

void AtspiReader::restoreIfSilent(const AtspiReference& element) {
  auto& facts = facts_[element];
  if (!isSilent(facts) && !hasGone(facts)) return;
  const auto kept = kept_.find(element);
  if (kept == kept_.end()) return;
  if (isSilent(facts) || kept->second.purpose == KeptFor::silenceAndEnd) facts = kept->second.facts;
}

void AtspiReader::take(const Asking& asking, const AtspiReply& reply) {
  auto& facts = facts_[asking.element];
  store(asking.ask, reply, facts);
  if (asking.ask == Ask::parent && reply.message) formerOf(asking.element).parent = facts.parent;
  if (reply.error == axError::failure && lateProperties.has(asking.ask)) {
    if (const auto application = applications_.find(asking.element.busName)) application->noteUnknown(asking.ask);
  }
}

AtspiReader::Former& AtspiReader::formerOf(const AtspiReference& element) {
  if (former_.size() >= maxFormer) former_.clear();
  return former_[element];
}

AtspiReference AtspiReader::likelyParent(const AtspiReference& element) const {
  const auto facts = facts_.find(element);
  if (facts != facts_.end() && facts->second.answered(Ask::parent)) return facts->second.parent;
  const auto former = former_.find(element);
  return former != former_.end() ? former->second.parent : AtspiReference{};
}

std::optional<AtspiRole> AtspiReader::likelyRole(const AtspiReference& element) const {
  const auto facts = facts_.find(element);
  if (facts != facts_.end() && facts->second.answered(Ask::role)) return static_cast<AtspiRole>(facts->second.role);
  const auto former = former_.find(element);
  return former != former_.end() ? former->second.role : std::nullopt;
}

void AtspiReader::noteParent(const AtspiReference& element, const AtspiReference& parent) {
  auto& facts = facts_[element];
  facts.parent = parent;
  facts.asked |= Ask::parent;
  facts.errors[static_cast<std::size_t>(Ask::parent)] = axError::success;
  formerOf(element).parent = parent;
}

AtspiReply AtspiReader::call(AtspiCall call) {
  std::vector<AtspiCall> calls;
  calls.push_back(std::move(call));
  return std::move(read({}, std::move(calls)).front());
}

std::shared_ptr<AtspiApplication> AtspiReader::application(const AtspiReference& element) {
  auto application = applications_.of(element.busName);
  if (application->isMet()) return application;
  const AtspiReference root{element.busName, AtspiReference::rootPath};
  const std::array<AtspiCall, 2> calls{propertyCall(root, atspi::application, "ToolkitName"),
                                       propertyCall(root, atspi::application, "Version")};
  const auto replies = exchange(calls);
  const auto name = readText(replies[0].message.get()).value_or("");
  const auto version = readText(replies[1].message.get()).value_or("");
  application->noteToolkit(applications_.toolkitOf(name, version, element.path),
                           replies[0].error != axError::cannotComplete);
  return application;
}

}  // namespace norra::linux_desktop
