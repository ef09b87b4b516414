#include "Platform/Linux/applications/Activations.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

namespace norra::linux_desktop {
namespace {

constexpr std::uint64_t titleStands = 250'000;  // microseconds
constexpr int checksOfFirstWindow = 3;
constexpr std::size_t minLettersOfAName = 4;
constexpr std::array<std::string_view, 4> separators{" - ", " \u2013 ", " \u2014 ", ": "};
constexpr std::size_t maxKnown = 4096;

std::pair<std::uint32_t, ProcessIdentifier> identityOf(const std::optional<FrontWindow>& window) {
  if (!window) return {};
  return {window->application.window, window->application.process};
}

bool hasGoneAgain(const ApplicationWindow& window) { return window.process == 0 && window.className.empty(); }

std::string inSmallLetters(std::string_view text) {
  std::string small(text);
  std::ranges::transform(small, small.begin(), [](unsigned char c) { return std::tolower(c); });
  return small;
}

std::vector<std::string> wordsOf(std::string_view name) {
  std::vector<std::string> words(1);
  for (const char c : inSmallLetters(name)) {
    const bool isPart = std::isalnum(static_cast<unsigned char>(c)) != 0;
    if (isPart) words.back() += c;
    if (!isPart && !words.back().empty()) words.emplace_back();
  }
  std::erase_if(words, [](const auto& word) { return word.size() < minLettersOfAName; });
  return words;
}

// A window that shows nothing yet is often called as its application is.
bool saysOnlyWhose(const std::string& title, const ApplicationWindow& window) {
  const auto isIn = [&title](std::string_view part) { return title.find(part) != std::string::npos; };
  if (std::ranges::any_of(separators, isIn)) return false;
  const auto small = inSmallLetters(title);
  return std::ranges::any_of(wordsOf(window.className),
                             [&](const auto& word) { return small.find(word) != std::string::npos; });
}

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

bool Activations::isFirstOfItsProcess(const Identity& window) const {
  return std::ranges::none_of(known_, [&](const auto& known) { return known.second == window.second; });
}

void Activations::frontMayHaveChanged() {
  auto front = windows_.front();
  const auto identity = identityOf(front);
  if (std::exchange(front_, identity) == identity || !front) return;
  tellHeld();
  if (hasGoneAgain(front->application)) return;
  const bool isFirst = isFirstOfItsProcess(identity);
  if (isKnown(identity)) return tell(applications_.applicationOf(front->application));
  held_ = Held{.window = std::move(*front), .checksToStand = isFirst ? checksOfFirstWindow : 1};
  titleCheck_.requestAfter(titleStands);
}

void Activations::checkTitle() {
  if (!held_) return;
  const auto front = windows_.front();
  const bool isStillThere = front && front->application.window == held_->window.application.window;
  auto title = isStillThere ? front->title : held_->window.title;
  auto& [window, checksToStand, checksLeft, stoodFor] = *held_;
  stoodFor = title == window.title ? stoodFor + 1 : 0;
  window.title = std::move(title);
  const bool stands = !window.title.empty() && stoodFor >= checksToStand;
  if (--checksLeft == 0 || (stands && !saysOnlyWhose(window.title, window.application))) return tellHeld();
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
