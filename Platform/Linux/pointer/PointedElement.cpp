#include "Platform/Linux/pointer/PointedElement.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "Platform/Linux/following/MenuItems.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/WindowMatch.h"
#include "Platform/Linux/runtime/PlatformLogger.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::size_t maxMissing = 256;
constexpr int maxLevelsOfControl = 3;
// An application may act on a press before it is looked at here.
constexpr std::chrono::milliseconds timeToAct{100};

bool isPopover(const WindowOnScreen& window, const Toolkit& toolkit) {
  return window.overrideRedirect && toolkit.popoversAreWindows;
}

// Where the places of the toolkit count from, under Wayland.
PointedAt inPlacesOf(const Toolkit& toolkit, PointedAt at) {
  if (!at.window.isOfWayland || toolkit.countsFromShadow) return at;
  at.point.x -= at.window.shadow.left;
  at.point.y -= at.window.shadow.top;
  return at;
}

AtspiReference askedOrTopLevel(const ElementView& topLevel, const PointedAt& at) {
  if (const auto elementAt = topLevel.toolkit().elementAt) return elementAt(topLevel, at);
  auto answer = askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  return answer.isNull() ? topLevel.reference() : answer;
}

AtspiReference hitTest(const ElementView& topLevel, const PointedAt& pointed) {
  const auto at = inPlacesOf(topLevel.toolkit(), pointed);
  const auto answer = askedOrTopLevel(topLevel, at);
  topLevel.reader().notePath(answer);
  return topLevel.toolkit().saysPlacesOnScreen ? deeperByPlace(topLevel.other(answer), at.point) : answer;
}

}  // namespace

PointedElement::PointedElement(AtspiSession& session, Focus& focus, WindowsOnScreen& windows)
    : session_(session), focus_(focus), windows_(windows) {
  session.shared.bus.onNewGeneration([this] { topLevels_.clear(); });
}

// The list of a combo box opens under the pointer, on the item that is chosen. Until an item of it is highlighted, the
// click that opened it is not over.
AtspiReference PointedElement::comboBoxThatOpens(const AtspiReference& hit) {
  const auto item = view(hit);
  if (!isItemOfMenu(item)) return hit;
  keepMenuOf(item);
  auto comboBox = comboBoxOf(item);
  if (comboBox.isNull()) return hit;
  return focus_.highlightedItems().isOpen(comboBox, steady_clock::now()) ? hit : comboBox;
}

AtspiReference PointedElement::hitTestBelow(const FoundTopLevel& topLevel, PointedAt at) {
  const auto& reference = topLevel.reference;
  const auto application = session_.applications.of(reference.busName);
  application->notePixels(topLevel.pixels);
  at.point = topLevel.pixels.of(at.point);
  at.window = inOwnPixels(std::move(at.window), topLevel.pixels);
  at.focused = [application] { return application->focus.followed(); };
  at.focusedBefore = [this, application] { return application->focus.followedAt(pressTime_.load() - timeToAct); };
  at.focusedByPress = [this, application] { return application->focus.followedSince(pressTime_); };
  const auto hit = hitTest(view(reference), at);
  session_.reader().notePath(hit);
  if (hit.busName != reference.busName) session_.processes.adopt(hit.busName, reference.busName);
  return comboBoxThatOpens(hit);
}

PointedElement::FoundTopLevel PointedElement::findTopLevel(const WindowOnScreen& window) {
  const auto root = session_.processes.rootOf(window.process, session_.reader());
  if (root.isNull()) return {};
  if (isPopover(window, view(root).toolkit())) {
    const auto pixels = view(root).application().pixels();
    return {popoverOf(view(root), inOwnPixels(window, pixels), lastNoted()), pixels};
  }
  const auto alike = topLevelsLike(view(root), window);
  if (alike.empty()) return {};
  if (alike.size() == 1) {
    const auto& found = alike.front();
    topLevels_.note(window, found.reference, !found.pixels.areOfScreen());
    return {found.reference, found.pixels};
  }
  // Which of them is active is sure only now.
  const auto active = windows_.activeWindow();
  const bool isActive = active && active->window == window.window;
  const auto found = std::ranges::find(alike, isActive, &TopLevelCandidate::isActive);
  const auto& best = found != alike.end() ? *found : alike.front();
  return {best.reference, best.pixels};
}

PointedElement::FoundTopLevel PointedElement::knownTopLevel(const WindowOnScreen& window) {
  const auto known = topLevels_.find(window);
  if (known.isNull() || !topLevels_.isScaled(window)) return {known, {}};
  return {known, pixelsIn(view(known), window)};
}

// The list of a select in a page has no accessible of its own, and nothing in it is highlighted below the pointer. What
// the option says now is what it is called when it has gone.
AtspiReference PointedElement::optionAt(const std::string& busName, CGPoint point) {
  const auto highlighted = focus_.highlightedItems().highlightedIn(busName);
  if (highlighted.isNull()) return {};
  const auto item = view(highlighted);
  const auto inside = item.application().pixels().of(point);
  auto option = childAtHeight(item.other(listOfOption(item)), inside);
  if (!option.isNull() && item.other(option).role() == AtspiRole::panel)
    option = childAtHeight(item.other(option), inside);
  if (option.isNull() || !item.other(option).hasState(AtspiState::showing)) return {};
  keepMenuOf(item.other(option));
  return option;
}

AtspiReference PointedElement::elementIn(const PointedAt& at) {
  auto& reader = session_.reader();
  const auto& window = at.window;
  const auto known = knownTopLevel(window);
  if (!known.reference.isNull()) {
    auto hit = hitTestBelow(known, at);
    if (reader.read(known.reference, Ask::role).answered(Ask::role)) return hit;
    topLevels_.forget(window);
  }
  const auto topLevel = findTopLevel(window);
  if (!topLevel.reference.isNull()) return hitTestBelow(topLevel, at);
  // An application that has just opened a menu may still tell which item of it is highlighted.
  if (window.overrideRedirect) return session_.processes.rootOf(window.process, reader);
  if (session_.processes.busNamesOf(window.process, reader).empty()) noteMissing(window);
  return {};
}

// Null: no list of a select lies there.
AtspiReference PointedElement::optionOfPage(const WindowOnScreen& window, CGPoint point) {
  if (!window.overrideRedirect) return {};
  for (const auto& name : session_.processes.busNamesOf(window.process, session_.reader())) {
    const auto application = session_.applications.find(name);
    if (application && application->isMet() && application->toolkit().showsWebPages) return optionAt(name, point);
  }
  return {};
}

AtspiReference PointedElement::lastNoted() {
  const std::lock_guard lock(mutex_);
  return lastNoted_;
}

AtspiReference PointedElement::noted(AtspiReference found) {
  session_.reader().notePointed(found);
  if (!found.isNull()) {
    const std::lock_guard lock(mutex_);
    lastNoted_ = found;
  }
  if (!found.isNull()) focus_.lastInput().notePressed(view(found), ownerOfOpenList(view(found)));
  return found;
}

void PointedElement::prepare() {
  const auto window = windows_.activeWindow();
  const bool isNew = window && window->process != 0 && topLevels_.find(*window).isNull();
  if (isNew) findTopLevel(*window);
}

AtspiReference PointedElement::atPress(CGPoint place) {
  const auto inside = windows_.inApplication(place);
  auto highlighted = focus_.highlightedItems().at(inside, steady_clock::now());
  const auto window = highlighted.isNull() ? windows_.topLevelWindowAt(place) : std::nullopt;
  focus_.lastInput().notePress(place, !highlighted.isNull() || (window && window->overrideRedirect));
  if (!highlighted.isNull()) return noted(std::move(highlighted));
  if (!window || window->process == 0) return {};
  auto option = optionOfPage(*window, inside);
  return noted(option.isNull() ? elementIn({inside, *window, true}) : std::move(option));
}

bool PointedElement::isGuess(const AtspiReference& pressed) {
  const auto element = view(pressed);
  const auto role = element.role();
  const bool isOption =
      is(role, RoleKind::menuPart) || (role == AtspiRole::listItem && element.hasState(AtspiState::selectable));
  return element.toolkit().guessesAtFirst && !isOption;
}

bool PointedElement::hasActed(const AtspiReference& pressed, const std::optional<AtspiRectangle>& area) {
  session_.reader().askAnew(pressed);
  const auto element = view(pressed);
  const auto& facts = element.needOnly({Ask::role, Ask::states, Ask::extents});
  const auto now = element.application().pixels().onScreen(facts.extents);
  const bool isThere = facts.answered(Ask::role) && !hasState(facts.states, AtspiState::defunct) &&
                       (!area || contains(*area, centerOf(now)));
  const bool saysWhatIsOpen = hasState(facts.states, AtspiState::expandable);
  const bool mayBeOpen = hasState(facts.states, saysWhatIsOpen ? AtspiState::expanded : AtspiState::hasPopup);
  return !isThere || mayBeOpen;
}

// A control that shows an image and a text is pressed on one of them.
AtspiReference PointedElement::controlAround(const AtspiReference& pressed) {
  auto control = searchUp(view(pressed), maxLevelsOfControl, [](const auto& element) {
    const auto role = element.role();
    if (is(role, RoleKind::control)) return Search::found;
    const bool mayBePart = is(role, RoleKind::partOfControl) || is(role, RoleKind::mereContainer);
    return mayBePart ? Search::goesOn : Search::ends;
  });
  return control.isNull() ? pressed : control;
}

std::optional<AtspiRectangle> PointedElement::areaOf(const AtspiReference& pressed) {
  const auto element = view(controlAround(pressed));
  if (!element.toolkit().saysPlacesOnScreen) return std::nullopt;
  const auto& facts = element.needOnly(Ask::extents);
  if (!facts.answered(Ask::extents)) return std::nullopt;
  return element.application().pixels().onScreen(facts.extents);
}

bool PointedElement::isCovered(CGPoint pressed, CGPoint released) {
  const auto then = windows_.topLevelWindowAt(pressed);
  const auto now = windows_.topLevelWindowAt(released);
  return now && now->overrideRedirect && (!then || now->window != then->window);
}

// What is dragged from one control to another clicks neither.
bool PointedElement::wasDraggedTo(const AtspiReference& released, CGPoint point) {
  const auto pressed = focus_.lastInput().pressed();
  if (!pressed || isSamePlace(pressed->point, point) || pressed->element == released) return false;
  const auto from = controlAround(pressed->element);
  return is(view(from).role(), RoleKind::control) && from != controlAround(released);
}

AtspiReference PointedElement::at(CGPoint point) {
  const auto inside = windows_.inApplication(point);
  auto clicked = focus_.highlightedItems().clicked(inside, steady_clock::now());
  if (!clicked.isNull()) return noted(std::move(clicked));
  const auto window = windows_.topLevelWindowAt(point);
  if (window && window->process != 0) clicked = elementIn({inside, *window});
  const bool wasDragged = !clicked.isNull() && !window->overrideRedirect && wasDraggedTo(clicked, point);
  if (!clicked.isNull() && !wasDragged) return noted(std::move(clicked));
  clickLogger().debug(
      "A click at " + std::to_string(std::lround(point.x)) + ", " + std::to_string(std::lround(point.y)) +
      " gives no report: " + (wasDragged ? "the button was pressed on another control" : whyNothing(window)));
  return {};
}

std::string PointedElement::whyNothing(const std::optional<WindowOnScreen>& window) {
  if (!window) return "no window lies there";
  if (window->process == 0) return "its window does not say which process it belongs to";
  const auto application = "the application (process " + std::to_string(window->process) + ") ";
  const auto names = session_.processes.busNamesOf(window->process, session_.reader());
  if (names.empty()) return application + "is not on the accessibility bus";
  const auto now = steady_clock::now();
  const bool rests =
      std::ranges::any_of(names, [&](const auto& name) { return session_.shared.resting.isResting(name, now); });
  return application +
         (rests ? "did not answer in time and is left alone for a while" : "has no accessible element there");
}

// Its elements cannot be read, which is logged once for each process.
void PointedElement::noteMissing(const WindowOnScreen& window) {
  const std::lock_guard lock(mutex_);
  if (missing_.size() >= maxMissing || !missing_.insert(window.process).second) return;
  platformLogger().info("The application of window '" + window.title + "' (process " + std::to_string(window.process) +
                        ") is not on the accessibility bus: its elements cannot be read. If it supports "
                        "accessibility, start it again");
}

}  // namespace norra::linux_desktop
