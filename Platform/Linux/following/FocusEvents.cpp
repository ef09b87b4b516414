#include "Platform/Linux/following/FocusEvents.h"

#include <utility>

namespace norra::linux_desktop {

class FocusEvents::Handle final : public Registration {
 public:
  Handle(FocusEvents& events, std::list<Listener>::iterator listener) : events_(events), listener_(listener) {}
  ~Handle() override {
    events_.listeners_.erase(listener_);
    if (!events_.listeners_.empty()) return;
    events_.subscription_.reset();
    events_.carets_.clear();
  }

 private:
  FocusEvents& events_;
  const std::list<Listener>::iterator listener_;
};

FocusEvents::FocusEvents(Focus& focus, AtspiEvents& events)
    : focus_(focus), events_(events), settling_(events.loop(), [this] { settleArrivals(); }) {}

void FocusEvents::settleArrivals() {
  findUntold();
  for (const auto& name : std::exchange(unsettled_, {})) focus_.settle(name);
}

std::unique_ptr<Registration> FocusEvents::listen(Listener listener) {
  if (!subscription_) {
    subscription_ = events_.subscribe({"object:state-changed:focused", "StateChanged", "focused", {}},
                                      [this](const AtspiEvent& event) { arrived(event); });
  }
  listeners_.push_back(std::move(listener));
  return std::make_unique<Handle>(*this, std::prev(listeners_.end()));
}

void FocusEvents::arrived(const AtspiEvent& event) {
  if (event.detail1 == 0) return left(event.source);
  settling_.request();
  tell(event.source);
}

void FocusEvents::tell(const AtspiReference& element) {
  carets_.erase(element.busName);
  written_.erase(element.busName);
  unsettled_.insert(element.busName);
  for (const auto& listener : listeners_) listener(element);
  focus_.arrived(element);
}

void FocusEvents::left(const AtspiReference& element) {
  if (const auto before = focus_.left(element); !before.isNull()) {
    settling_.request();
    return tell(before);
  }
  if (carets_.contains(element.busName) || !focus_.mayHaveGoneUntold(element)) return;
  AtspiEventKind caretMoved{"object:text-caret-moved", "TextCaretMoved", "", {element.busName, ""}};
  carets_[element.busName] = events_.subscribe(std::move(caretMoved), [this](const AtspiEvent& event) {
    written_[event.source.busName] = event.source;
    settling_.request();
  });
}

void FocusEvents::findUntold() {
  for (const auto& [busName, element] : std::exchange(written_, {})) {
    if (!carets_.contains(busName) || !focus_.isUntold(element)) continue;
    tell(element);
    focus_.left(element);  // which it will not tell either
  }
}

}  // namespace norra::linux_desktop
