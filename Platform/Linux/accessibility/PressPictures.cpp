#include "Platform/Linux/accessibility/PressPictures.h"

#include <utility>

#include "Platform/Linux/accessibility/PicturedElement.h"

namespace norra::linux_desktop {

PressPictures::PressPictures(AtspiSession& session, PointedElement& pointed, const ElementHandles& handles,
                             ClickRehearsal rehearse)
    : session_(session), pointed_(pointed), handles_(handles), rehearse_(std::move(rehearse)) {
  if (rehearse_) thread_ = std::thread([this] { run(); });
}

PressPictures::~PressPictures() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    if (pressed_) pressed_->picture->giveUp();
  }
  changed_.notify_all();
  thread_.join();
}

void PressPictures::notePress(std::optional<CGPoint> place) {
  if (!rehearse_) return;
  {
    const std::lock_guard lock(mutex_);
    // The one before is still wanted when its button was released.
    if (pressed_ && pressed_ != released_) pressed_->picture->giveUp();
    pressed_ = untaken_ = std::make_shared<Press>(place);
  }
  changed_.notify_all();
}

void PressPictures::noteRelease() {
  const std::lock_guard lock(mutex_);
  released_ = pressed_;
}

std::optional<AXUIElement> PressPictures::elementAt(CGPoint point) {
  std::unique_lock lock(mutex_);
  const auto press = released_;
  if (!press || !press->place || !isSamePlace(*press->place, point)) return std::nullopt;
  changed_.wait_for(lock, patience, [&press] { return press->picture->isFinished(); });
  return press->picture->isFinished() ? press->element : std::nullopt;
}

void PressPictures::run() {
  std::unique_lock lock(mutex_);
  while (const auto press = awaitPress(lock)) {
    lock.unlock();
    take(*press);
    lock.lock();
    changed_.notify_all();
  }
}

// Nothing: it is over. What was seen is not kept for longer than it is of use.
PressPictures::PressPtr PressPictures::awaitPress(std::unique_lock<std::mutex>& lock) {
  const auto isDue = [this] { return isEnding_ || untaken_; };
  if (!changed_.wait_for(lock, keptFor, isDue)) {
    pressed_.reset();
    released_.reset();
    changed_.wait(lock, isDue);
  }
  return isEnding_ ? nullptr : std::exchange(untaken_, nullptr);
}

void PressPictures::take(Press& press) {
  const AtspiReader::Reading reading(session_.reader());
  const auto pressed = pointed_.atPress(press.place);
  if (!pressed.isNull()) {
    AXUIElement element(std::make_shared<PicturedElement>(session_, press.picture, handles_.element(pressed)));
    if (rehearse_(element)) press.element = std::move(element);
    press.picture->keepFacts(session_.reader().allKnown());
  }
  press.picture->finish();
}

}  // namespace norra::linux_desktop
