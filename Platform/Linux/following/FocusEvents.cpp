#include "Platform/Linux/following/FocusEvents.h"

#include <utility>

namespace norra::linux_desktop {

class FocusEvents::Handle final : public Registration {
 public:
  Handle(FocusEvents& events, std::list<Listener>::iterator listener) : events_(events), listener_(listener) {}
  ~Handle() override {
    events_.listeners_.erase(listener_);
    if (events_.listeners_.empty()) events_.subscription_.reset();
  }

 private:
  FocusEvents& events_;
  const std::list<Listener>::iterator listener_;
};

FocusEvents::FocusEvents(Focus& focus, AtspiEvents& events)
    : focus_(focus), events_(events), settling_(events.loop(), [this] { settleArrivals(); }) {}

void FocusEvents::settleArrivals() {
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
  if (event.detail1 == 0) return;
  unsettled_.insert(event.source.busName);
  settling_.request();
  for (const auto& listener : listeners_) listener(event.source);
  focus_.arrived(event.source);
}

}  // namespace norra::linux_desktop
