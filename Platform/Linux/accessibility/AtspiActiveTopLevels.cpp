#include "Platform/Linux/accessibility/AtspiActiveTopLevels.h"

#include <algorithm>
#include <utility>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::milliseconds pauseBetweenSearches{500};
constexpr std::uint64_t firstLookMicroseconds = 100'000;
constexpr std::uint64_t lastLookMicroseconds = 3'200'000;
constexpr std::uint64_t pauseBeforeAskingAgain = 100'000;
constexpr int maxChecks = 50;
constexpr std::size_t maxTold = 32;
constexpr std::size_t maxApplications = 128;
constexpr Asks asks{Ask::role, Ask::states, Ask::name};

bool isTopLevel(const AtspiFacts& facts) { return rowOf(static_cast<AtspiRole>(facts.role)).name.role == "AXWindow"; }

}  // namespace

class AtspiActiveTopLevels::Following final : public Registration {
 public:
  explicit Following(AtspiActiveTopLevels& topLevels)
      : topLevels_(topLevels),
        events_(topLevels.events_.subscribe({"object:state-changed:active", "StateChanged", "active", {}},
                                            [&topLevels](const AtspiEvent& event) { topLevels.told(event); })),
        names_(topLevels.events_.onNewName([&topLevels] { topLevels.lookAroundLater(firstLookMicroseconds); })) {}
  ~Following() override { topLevels_.changed_ = nullptr; }

 private:
  AtspiActiveTopLevels& topLevels_;
  const std::unique_ptr<Registration> events_;
  const std::unique_ptr<Registration> names_;
};

AtspiActiveTopLevels::AtspiActiveTopLevels(AtspiSession& session, AtspiEvents& events)
    : session_(session),
      events_(events),
      settling_(events.loop(), [this] { settle(); }),
      looking_(events.loop(), [this] { lookAround(); }) {
  session.shared.bus.onNewGeneration([this] { setCurrent({}); });
}

std::unique_ptr<Registration> AtspiActiveTopLevels::follow(std::function<void()> changed) {
  changed_ = std::move(changed);
  return std::make_unique<Following>(*this);
}

void AtspiActiveTopLevels::told(const AtspiEvent& event) {
  checksLeft_ = maxChecks;
  settling_.request();
  if (event.detail1 == 0 || told_.size() >= maxTold) return;
  std::erase(told_, event.source);
  told_.push_back(event.source);
}

void AtspiActiveTopLevels::settle() {
  auto topLevels = told_;
  topLevels.insert(topLevels.begin(), current());
  readAll(topLevels);
  const auto active = lastActive(topLevels);
  // One that does not answer is where it was.
  const bool isKept = active.isNull() && answerOf(current()) == Answer::none;
  const bool isAnother = !isKept && setCurrent(active);
  askAgain();
  if (isAnother && changed_) changed_();
}

void AtspiActiveTopLevels::askAgain() {
  std::erase_if(told_, [this](const auto& topLevel) { return answerOf(topLevel) != Answer::none; });
  if (--checksLeft_ <= 0) told_.clear();
  if (!told_.empty()) settling_.requestAfter(pauseBeforeAskingAgain);
}

void AtspiActiveTopLevels::lookAroundLater(std::uint64_t microseconds) {
  nextLook_ = 2 * microseconds;
  looking_.requestAfter(microseconds);
}

void AtspiActiveTopLevels::lookAround() {
  if (!changed_) return;
  if (nextLook_ <= lastLookMicroseconds) lookAroundLater(nextLook_);
  const auto found = search();
  if (!found.isNull() && setCurrent(found)) changed_();
}

AtspiActiveTopLevels::Answer AtspiActiveTopLevels::answerOf(const AtspiReference& topLevel) {
  if (topLevel.isNull()) return Answer::inactive;
  const auto& facts = session_.reader().known(topLevel);
  if (facts.error(Ask::states) == axError::invalidUIElement) return Answer::inactive;
  if (!facts.answered(Ask::states) || !facts.answered(Ask::role) || facts.isFormer) return Answer::none;
  return isTopLevel(facts) && hasState(facts.states, AtspiState::active) ? Answer::active : Answer::inactive;
}

void AtspiActiveTopLevels::readAll(const std::vector<AtspiReference>& topLevels) {
  std::vector<AtspiQuestion> questions;
  for (const auto& topLevel : topLevels) {
    if (!topLevel.isNull()) questions.push_back({topLevel, asks});
  }
  session_.reader().read(questions);
}

AtspiReference AtspiActiveTopLevels::lastActive(const std::vector<AtspiReference>& topLevels) {
  const auto found = std::find_if(topLevels.rbegin(), topLevels.rend(),
                                  [this](const auto& topLevel) { return answerOf(topLevel) == Answer::active; });
  return found != topLevels.rend() ? *found : AtspiReference{};
}

std::vector<AtspiReference> AtspiActiveTopLevels::allTopLevels() {
  auto& reader = session_.reader();
  const ElementView desktop(reader, AtspiReference{"org.a11y.atspi.Registry", AtspiReference::rootPath});
  const auto applications = firstChildren(desktop, maxApplications);
  std::vector<AtspiQuestion> questions;
  for (const auto& application : applications) questions.push_back({application, Asks{Ask::childCount, Ask::children}});
  reader.read(questions);
  std::vector<AtspiReference> topLevels;
  for (const auto& application : applications) {
    for (auto& child : fewChildren(desktop.other(application))) topLevels.push_back(std::move(child));
  }
  return topLevels;
}

// Where several call themselves active, one that did not before has just become it.
AtspiReference AtspiActiveTopLevels::search() {
  auto topLevels = allTopLevels();
  std::ranges::stable_partition(topLevels, [now = current()](const auto& topLevel) { return topLevel == now; });
  readAll(topLevels);
  return lastActive(topLevels);
}

AtspiReference AtspiActiveTopLevels::current() const {
  const std::lock_guard lock(mutex_);
  return current_;
}

bool AtspiActiveTopLevels::setCurrent(const AtspiReference& topLevel) {
  const std::lock_guard lock(mutex_);
  return std::exchange(current_, topLevel) != topLevel;
}

std::optional<ActiveTopLevel> AtspiActiveTopLevels::describe(const AtspiReference& topLevel) {
  const auto process = session_.processes.processOf(topLevel.busName, session_.reader());
  if (process == 0) return std::nullopt;
  const auto identity = static_cast<std::uint32_t>(AtspiReferenceHash()(topLevel));
  return ActiveTopLevel{identity, process, session_.reader().known(topLevel).name};
}

std::optional<ActiveTopLevel> AtspiActiveTopLevels::active() {
  const auto now = current();
  readAll({now});
  if (!now.isNull() && answerOf(now) != Answer::inactive) return describe(now);
  {
    const std::lock_guard lock(mutex_);
    const auto time = steady_clock::now();
    if (time - searchedLately_ < pauseBetweenSearches) return std::nullopt;
    searchedLately_ = time;
  }
  const auto found = search();
  if (found.isNull()) return std::nullopt;
  setCurrent(found);
  return describe(found);
}

}  // namespace norra::linux_desktop
