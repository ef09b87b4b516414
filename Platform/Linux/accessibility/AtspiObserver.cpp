#include "Platform/Linux/accessibility/AtspiObserver.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Platform/Linux/accessibility/AtspiApplicationElement.h"
#include "Platform/Linux/accessibility/AtspiElement.h"
#include "Platform/Linux/following/Focus.h"
#include "Platform/Linux/following/Waking.h"

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;
constexpr auto focusChanged = "AXFocusedUIElementChanged"sv;
constexpr auto valueChanged = "AXValueChanged"sv;
constexpr std::array elementNotifications{valueChanged, "AXSelectedRowsChanged"sv, "AXSelectedCellsChanged"sv,
                                          "AXSelectedChildrenChanged"sv};

// An application tells of nothing until it has learnt that somebody listens; what it did not tell is looked at, twice
// as late each time.
constexpr std::uint64_t firstFocusCheckMicroseconds = 100'000;
constexpr std::uint64_t firstCheckOfMuteMicroseconds = 20'000;
constexpr std::uint64_t lastFocusCheckMicroseconds = 5'000'000;

bool isElementNotification(std::string_view notification) {
  return std::ranges::find(elementNotifications, notification) != elementNotifications.end();
}

}  // namespace

AtspiObserver::AtspiObserver(ObserverServices& services, ProcessIdentifier process, AXObserverCallback callback)
    : services_(services),
      process_(process),
      callback_(std::move(callback)),
      focusChange_(services.events.loop(), [this] { tellFocus(); }),
      lateFocusCheck_(services.events.loop(), [this] { checkFocus(); }),
      cleanUp_(services.events.loop(), [this] { ended_.clear(); }) {
  wake(services.session, process);
}

AXError AtspiObserver::addNotification(const AXUIElement& element, std::string_view notification) {
  if (dynamic_cast<const AtspiApplicationElement*>(&element.primitives())) return addFocus(notification);
  const auto* observed = dynamic_cast<const AtspiElement*>(&element.primitives());
  if (!observed) return axError::illegalArgument;
  if (!isElementNotification(notification)) return axError::notificationUnsupported;
  auto* known = watchOf(observed->reference());
  if (known && known->isWanted(notification)) return axError::notificationAlreadyRegistered;
  auto& watch = known ? *known : newWatch(observed->reference());
  watch.want(notification);
  updateInput();
  return axError::success;
}

AXError AtspiObserver::removeNotification(const AXUIElement& element, std::string_view notification) {
  if (dynamic_cast<const AtspiApplicationElement*>(&element.primitives())) return removeFocus(notification);
  const auto* observed = dynamic_cast<const AtspiElement*>(&element.primitives());
  auto* watch = observed ? watchOf(observed->reference()) : nullptr;
  if (!watch || !watch->isWanted(notification)) return axError::notificationNotRegistered;
  watch->unwant(notification);
  if (watch->isIdle()) end(observed->reference());
  updateInput();
  return axError::success;
}

AXError AtspiObserver::addFocus(std::string_view notification) {
  if (notification != focusChanged) return axError::notificationUnsupported;
  if (focusEvents_) return axError::notificationAlreadyRegistered;
  timeOuts_ = services_.session.shared.statistics.timeOuts;
  focused_ = services_.focus.of(process_);
  isMute_ = !answers(focused_);
  focusEvents_ = services_.focusEvents.listen([this](const AtspiReference& element) { focusArrived(element); });
  picture_ = services_.focusPicture.use();
  services_.focusPicture.take(focused_);
  checkFocusLater(firstFocusCheckMicroseconds);
  return axError::success;
}

AXError AtspiObserver::removeFocus(std::string_view notification) {
  if (notification != focusChanged || !focusEvents_) return axError::notificationNotRegistered;
  focusEvents_.reset();
  picture_.reset();
  return axError::success;
}

void AtspiObserver::focusArrived(const AtspiReference& element) {
  auto& session = services_.session;
  if (session.processes.processOf(element.busName, session.reader()) != process_) return;
  focusChange_.request();
}

void AtspiObserver::checkFocusLater(std::uint64_t microseconds) {
  nextFocusCheck_ = 2 * microseconds;
  lateFocusCheck_.requestAfter(microseconds);
}

void AtspiObserver::checkFocus() {
  if (!focusEvents_) return;
  tellFocus();
  tellFocusThatWasMute();
  const bool isTold = !focused_.isNull() && services_.focus.isTold(focused_.busName);
  const bool isMissed = tellFocusThatWasMissed();
  const bool isSure = isTold && !isMissed && !isMute_;
  if (!isSure && nextFocusCheck_ < lastFocusCheckMicroseconds) checkFocusLater(nextFocusCheck_);
}

bool AtspiObserver::answers(const AtspiReference& element) const {
  return element.isNull() || services_.session.reader().read(element, Ask::role).answered(Ask::role);
}

// GTK 4 tells of elements before they can be asked.
void AtspiObserver::tellFocusThatWasMute() {
  if (!isMute_ || !answers(focused_)) return;
  isMute_ = false;
  tellOfFocus();
}

// An application that starts may be too busy to say what has the focus. Whether answers were missed since it was asked.
bool AtspiObserver::tellFocusThatWasMissed() {
  auto& shared = services_.session.shared;
  const auto timeOuts = shared.statistics.timeOuts.load();
  if (timeOuts == timeOuts_) return false;
  if (shared.resting.isResting(focused_.busName, std::chrono::steady_clock::now())) return true;
  timeOuts_ = timeOuts;
  tellOfFocus();
  return true;
}

void AtspiObserver::tellFocus() {
  if (!focusEvents_) return;
  const auto focused = services_.focus.of(process_);
  const bool isOpen = !focused.isNull() && services_.session.applications.of(focused.busName)->focus.open() == focused;
  if (focused_ == focused && isOpen_ == isOpen) return;
  if (auto* left = watchOf(focused_)) left->settle();
  focused_ = focused;
  isOpen_ = isOpen;
  isMute_ = !answers(focused_);
  if (isMute_) checkFocusLater(firstCheckOfMuteMicroseconds);
  if (isOpen || !tellFocusOfChanged()) tellOfFocus();
}

void AtspiObserver::tellOfFocus() {
  tell(services_.handles.application(process_), focusChanged);
  services_.focusPicture.take(focused_);
}

// Whether it had begun to change before it got the focus; then the change is told too.
bool AtspiObserver::tellFocusOfChanged() {
  if (focused_.isNull()) return false;
  auto& session = services_.session;
  const auto application = session.applications.of(focused_.busName);
  auto former = application->takeFormerValue(focused_);
  if (!former || services_.focus.lastInput().wasChoiceIn(focused_)) return false;
  {
    const AtspiReader::Before before(session.reader(), focused_, *std::move(former));
    tellOfFocus();
  }
  tellOf(focused_, valueChanged);
  return true;
}

void AtspiObserver::tell(const AXUIElement& element, std::string_view notification) {
  if (isOnLoop_) callback_(element, notification);
}

void AtspiObserver::tellOf(const AtspiReference& element, std::string_view notification) {
  if (notification == focusChanged || !isToldAsChange(element, notification)) return tellOfFocus();
  tell(services_.handles.element(element), notification);
  if (notification == valueChanged) services_.focusPicture.noteValue(element);
}

// What was chosen with a click was told as that; what an application writes or selects on its own the user has not
// done.
bool AtspiObserver::isToldAsChange(const AtspiReference& element, std::string_view notification) {
  const auto& lastInput = services_.focus.lastInput();
  const ElementView view(services_.session.reader(), element);
  if (notification != valueChanged) return !lastInput.wasOutside(view);
  if (lastInput.wasChoiceIn(element)) return false;
  const auto* watch = watchOf(element);
  return !watch || !lastInput.wasElsewhere(view, watch->since());
}

ElementWatch* AtspiObserver::watchOf(const AtspiReference& element) {
  const auto found = std::ranges::find(watches_, element, &ElementWatch::element);
  return found != watches_.end() ? found->get() : nullptr;
}

ElementWatch& AtspiObserver::newWatch(const AtspiReference& element) {
  watches_.push_back(std::make_unique<ElementWatch>(
      services_.session, services_.events, element,
      [this, element](std::string_view notification) { tellOf(element, notification); }));
  return *watches_.back();
}

void AtspiObserver::end(const AtspiReference& element) {
  const auto found = std::ranges::find(watches_, element, &ElementWatch::element);
  ended_.push_back(std::move(*found));
  watches_.erase(found);
  cleanUp_.request();
}

void AtspiObserver::updateInput() {
  const bool isNeeded = std::ranges::any_of(watches_, [](const auto& watch) { return watch->needsInput(); });
  if (isNeeded == (input_ != nullptr)) return;
  if (!isNeeded) return input_.reset();
  input_ = services_.watchInput([this] {
    for (const auto& watch : watches_) watch->noteInput();
  });
}

}  // namespace norra::linux_desktop
