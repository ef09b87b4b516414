#include "Platform/Linux/applications/Activations.h"

#include <vector>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t titleStands = 250'000;  // microseconds
constexpr int maxTitleChecks = 4;
constexpr std::size_t maxKnown = 4096;

std::pair<std::uint32_t, ProcessIdentifier> identityOf(const std::optional<FrontWindow>& window) {
  if (!window) return {};
  return {window->application.window, window->application.process};
}

bool hasGoneAgain(const ApplicationWindow& window) { return window.process == 0 && window.className.empty(); }

}  // namespace

/// Ends the calls of one handler.
class Activations::Handle final : public Registration {
 public:
  Handle(const std::shared_ptr<Handlers>& handlers, std::uint64_t handler) : handlers_(handlers), handler_(handler) {}
  ~Handle() override {
    if (const auto handlers = handlers_.lock()) handlers->erase(handler_);
  }

 private:
  std::weak_ptr<Handlers> handlers_;
  std::uint64_t handler_;
};

Activations::Activations(sd_event* event, ApplicationWindows& windows)
    : windows_(windows), titleCheck_(event, [this] { checkTitle(); }) {}

std::optional<NSRunningApplication> Activations::frontmost() {
  const auto front = windows_.front();
  return front ? applications_.applicationOf(front->application) : std::nullopt;
}

std::optional<NSRunningApplication> Activations::application(ProcessIdentifier process) {
  return applications_.application(process);
}

std::unique_ptr<Registration> Activations::onActivation(ActivationHandler handler) {
  tellHeld();  // it was before the registration
  const auto number = nextHandler_++;
  handlers_->emplace(number, std::move(handler));
  return std::make_unique<Handle>(handlers_, number);
}

void Activations::begin() {
  front_ = identityOf(windows_.front());
  known_.insert(front_);
}

bool Activations::isKnown(const Identity& window) {
  if (known_.size() >= maxKnown) known_.clear();
  return !known_.insert(window).second;
}

void Activations::frontMayHaveChanged() {
  auto front = windows_.front();
  const auto identity = identityOf(front);
  if (std::exchange(front_, identity) == identity || !front) return;
  tellHeld();
  if (hasGoneAgain(front->application)) return;
  if (isKnown(identity)) return tell(applications_.applicationOf(front->application));
  held_ = Held{std::move(*front), maxTitleChecks};
  titleCheck_.requestAfter(titleStands);
}

void Activations::checkTitle() {
  if (!held_) return;
  const auto front = windows_.front();
  const bool isStillThere = front && front->application.window == held_->window.application.window;
  auto title = isStillThere ? front->title : held_->window.title;
  const bool stands = !title.empty() && title == std::exchange(held_->window.title, title);
  if (stands || --held_->checksLeft == 0) return tellHeld();
  titleCheck_.requestAfter(titleStands);
}

// What the window says of its application may have come late too.
void Activations::tellHeld() {
  const auto held = std::exchange(held_, std::nullopt);
  if (!held) return;
  const auto& window = held->window.application;
  const auto now = windows_.applicationOf(window.process);
  tell(applications_.applicationOf(now && now->window == window.window ? *now : window));
}

// A handler may end its registration, or others.
void Activations::tell(const std::optional<NSRunningApplication>& application) {
  std::vector<std::uint64_t> numbers;
  for (const auto& [number, handler] : *handlers_) numbers.push_back(number);
  for (const auto number : numbers) {
    const auto handler = handlers_->find(number);
    if (handler == handlers_->end()) continue;
    const auto call = handler->second;
    call(application);
  }
}

}  // namespace norra::linux_desktop
