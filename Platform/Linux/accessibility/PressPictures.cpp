#include "Platform/Linux/accessibility/PressPictures.h"

#include <array>
#include <utility>

#include "Platform/Linux/accessibility/PicturedElement.h"
#include "Platform/Linux/elements/Value.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::milliseconds;

// Browsers find what lies at a place only a moment after they were asked for it, and some menus highlight only what is
// pressed.
constexpr std::array pauses{milliseconds(0), milliseconds(10), milliseconds(20)};
constexpr milliseconds pauseBeforeMakingSure{30};
constexpr int maxLevelsOfNumber = 3;
constexpr int maxLevelsOfItem = 3;

// A number that changes at the press gets the focus with it, and is followed only afterwards.
void noteNumber(const ElementView& pressed) {
  const auto isNumber = [](const auto& view) { return foundIf(view.role() == AtspiRole::spinButton); };
  const auto found = searchUp(pressed, maxLevelsOfNumber, isNumber);
  if (found.isNull()) return;
  const auto view = pressed.other(found);
  const auto content = contentOf(view).value;
  const auto* number = std::get_if<NSNumber>(&content);
  if (number && view.application().focus.followed() != found) view.application().noteFormerValue(found, *number);
}

// A row, an icon or a cell, or a text or an image in one.
bool isOnItem(const ElementView& pressed) {
  const auto item = searchUp(pressed, maxLevelsOfItem, [](const auto& view) {
    if (is(view.role(), RoleKind::item)) return Search::found;
    return is(view.role(), RoleKind::partOfControl) ? Search::goesOn : Search::ends;
  });
  return !item.isNull();
}

constexpr milliseconds pauseAfterActivation{50};

}  // namespace

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
  {
    const std::lock_guard lock(mutex_);
    released_ = pressed_;
  }
  changed_.notify_all();
}

void PressPictures::noteActivation() {
  {
    const std::lock_guard lock(mutex_);
    isActivated_ = true;
  }
  changed_.notify_all();
}

std::optional<AXUIElement> PressPictures::elementAt(CGPoint point) {
  std::unique_lock lock(mutex_);
  const auto press = released_;
  if (!press || !press->place) return std::nullopt;
  changed_.wait_for(lock, patience, [&press] { return press->picture->isFinished(); });
  return press->picture->isFinished() && isSamePress(*press, point) ? press->element : std::nullopt;
}

// With the lock held. A hand moves a little, and a click on a large button may end far from where it began. Where the
// window has gone since, another comes up below the pointer; a menu opens above it.
bool PressPictures::isSamePress(const Press& press, CGPoint released) const {
  if (isSamePlace(*press.place, released)) return true;
  const bool isWithin = press.area && contains(*press.area, *press.place) && contains(*press.area, released);
  return isWithin && !pointed_.isCovered(*press.place, released);
}

void PressPictures::run() {
  std::unique_lock lock(mutex_);
  while (awaitWork(lock)) {
    auto press = std::exchange(untaken_, nullptr);
    if (!press) isActivated_ = false;
    lock.unlock();
    if (press) {
      take(*press);
      taken_ = std::move(press);
    } else {
      prepare();
    }
    lock.lock();
    changed_.notify_all();
  }
}

// False: it is over. What was seen is not kept for longer than it is of use.
bool PressPictures::awaitWork(std::unique_lock<std::mutex>& lock) {
  const auto isDue = [this] { return isEnding_ || untaken_ || isActivated_; };
  if (!changed_.wait_for(lock, keptFor, isDue)) {
    pressed_.reset();
    released_.reset();
    taken_.reset();
    changed_.wait(lock, isDue);
  }
  return !isEnding_;
}

// An application tells of a window that it opens a moment after the window manager does.
void PressPictures::prepare() {
  {
    std::unique_lock lock(mutex_);
    if (changed_.wait_for(lock, pauseAfterActivation, [this] { return isEnding_ || untaken_; })) return;
  }
  const AtspiReader::Reading reading(session_.reader());
  pointed_.prepare();
}

void PressPictures::take(Press& press) {
  pointed_.notePress();
  if (completesDoubleClick(press)) {
    press.element = taken_->element;
    press.area = taken_->area;
    return press.picture->finish();
  }
  for (const auto pause : pauses) {
    if (!press.place || !mayLookAfter(pause, press) || !look(press)) break;
  }
  press.picture->finish();
}

// The application opens an item at the second press, before anybody can ask what was pressed, and what it shows then
// lies under the pointer. Pages act at the release.
bool PressPictures::completesDoubleClick(const Press& press) const {
  if (!taken_ || !taken_->isOnItem || !press.place) return false;
  return press.time - taken_->time <= doubleClickTime && isSamePlace(*taken_->place, *press.place);
}

bool PressPictures::mayLookAfter(std::chrono::milliseconds pause, const Press& press) {
  std::unique_lock lock(mutex_);
  return pause.count() == 0 ||
         !changed_.wait_for(lock, pause, [&] { return isEnding_ || untaken_ || released_.get() == &press; });
}

bool PressPictures::isInWebPage(const AtspiReference& element) const {
  const auto application = session_.applications.find(element.busName);
  return application && application->isMet() && application->toolkit().showsWebPages;
}

// Whether another look may find more.
bool PressPictures::look(Press& press) {
  const AtspiReader::Reading reading(session_.reader());
  const auto pressed = pointed_.atPress(*press.place);
  if (pressed.isNull()) return false;
  const bool isTold = rehearse(press, pressed);
  const ElementView view(session_.reader(), pressed);
  noteNumber(view);
  press.isOnItem = isTold && !isInWebPage(pressed) && isOnItem(view);
  if (isTold && pointed_.isGuess(pressed)) makeSure(press, pressed);
  return !isTold && (pressed.path == AtspiReference::rootPath || isInWebPage(pressed));
}

// What is found out by and by is right, unless the page has acted on the press.
void PressPictures::makeSure(Press& press, const AtspiReference& guessed) {
  mayLookAfter(pauseBeforeMakingSure, press);
  const auto found = pointed_.atPress(*press.place);
  if (!found.isNull() && found != guessed && !pointed_.hasActed(guessed, press.area)) rehearse(press, found);
}

bool PressPictures::rehearse(Press& press, const AtspiReference& pressed) {
  AXUIElement element(std::make_shared<PicturedElement>(session_, press.picture, handles_.element(pressed)));
  if (!rehearse_(element)) return false;
  press.element = std::move(element);
  press.area = pointed_.areaOf(pressed);
  press.picture->keepFacts(session_.reader().allKnown());
  return true;
}

}  // namespace norra::linux_desktop
