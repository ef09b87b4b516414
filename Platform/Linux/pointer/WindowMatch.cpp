#include "Platform/Linux/pointer/WindowMatch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/pointer/PlacedElements.h"

namespace norra::linux_desktop {
namespace {

// A menu or another pop-up may have no accessible of its own, and must not be taken for what lies below it.
constexpr double maxDistanceOfPopUp = 100;
constexpr double maxDistanceOfPopover = 80;
constexpr int maxLevelsOfPopover = 16;
constexpr int maxLevelsOfOpener = 4;
constexpr std::size_t maxElementsSearched = 1000;
constexpr std::size_t maxPartsSearched = 64;
// Of one that says nothing of its place.
constexpr double unknownDistance = 1e6;

constexpr double minScale = 0.5;
constexpr double maxScale = 5;
constexpr double minDifferenceOfScales = 0.09;
constexpr double maxDistortion = 0.03;
// Where screens begin is scaled by some and not by others.
constexpr double maxDistanceByScreens = 50;

struct Fit {
  double distance = unknownDistance;
  OwnPixels pixels;
};

Coordinates coordinatesOf(const Toolkit& toolkit) {
  return toolkit.saysPlacesOnScreen ? Coordinates::ofScreen : Coordinates::ofWindow;
}

// GTK 4 does not say where its windows are, only how large.
Fit fitAt(const AtspiRectangle& place, const ScreenRectangle& window, double scale, Coordinates coordinates) {
  const auto size = std::abs(place.width * scale - window.width) + std::abs(place.height * scale - window.height);
  if (coordinates == Coordinates::ofWindow) return {size, {scale}};
  const auto offset = std::abs(place.x * scale - window.x) + std::abs(place.y * scale - window.y);
  if (scale == 1) return {size + offset, {}};
  return {size + std::min(offset, maxDistanceByScreens),
          {scale, {place.x - window.x / scale, place.y - window.y / scale}}};
}

// Where windows may have a border of their own only a whole number is sure.
std::vector<double> likelyScales(const AtspiRectangle& place, const ScreenRectangle& window, Coordinates coordinates) {
  std::vector<double> scales{1};
  const auto across = window.width / place.width;
  const auto down = window.height / place.height;
  if (across < minScale || across > maxScale) return scales;
  if (std::lround(across) > 1 && std::lround(across) == std::lround(down)) scales.push_back(std::round(across));
  const bool isScale = std::abs(across - 1) >= minDifferenceOfScales && std::abs(across / down - 1) < maxDistortion;
  if (isScale && coordinates == Coordinates::ofScreen) scales.push_back(across);
  return scales;
}

Fit better(const Fit& one, const Fit& other) { return other.distance < one.distance ? other : one; }

ScreenRectangle withoutShadow(const WindowOnScreen& window) {
  const auto& [left, right, top, bottom] = window.shadow;
  const auto& [x, y, width, height] = window.client;
  return {x + left, y + top, width - left - right, height - top - bottom};
}

// A pop-up may be of any size, and is drawn as large as the window that it was opened from.
Fit fitOf(const AtspiRectangle& place, const WindowOnScreen& window, const ElementView& view) {
  const auto coordinates = coordinatesOf(view.toolkit());
  Fit best;
  for (const auto& rectangle : {window.client, window.frame, withoutShadow(window)}) {
    const auto scales = window.overrideRedirect ? std::vector<double>{1, view.application().pixels().scale}
                                                : likelyScales(place, rectangle, coordinates);
    for (const auto scale : scales) best = better(best, fitAt(place, rectangle, scale, coordinates));
  }
  return best;
}

struct RankedCandidate {
  TopLevelCandidate candidate;
  double distance = 0;
  bool hasTitle = false;
};

// A frame that does not say where it is has all that it holds in one child.
std::optional<AtspiRectangle> placeOfContent(const ElementView& topLevel) {
  const auto children = fewPlacedChildren(topLevel, coordinatesOf(topLevel.toolkit()));
  return children.empty() ? std::nullopt : children.front().place;
}

std::vector<RankedCandidate> candidatesFor(const ElementView& root, const WindowOnScreen& window) {
  std::vector<RankedCandidate> candidates;
  for (const auto& one : fewPlacedChildren(root, coordinatesOf(root.toolkit()))) {
    if (!hasState(one.states, AtspiState::visible)) continue;
    const auto place = one.place ? one.place : placeOfContent(root.other(one.reference));
    const auto fit = place ? fitOf(*place, window, root) : Fit{};
    if (window.overrideRedirect && fit.distance > maxDistanceOfPopUp) continue;
    const bool isActive = hasState(one.states, AtspiState::active);
    candidates.push_back({{one.reference, fit.pixels, isActive}, fit.distance, false});
  }
  return candidates;
}

// Windows of an application may lie at the same place, one above the other.
void compareTitles(const ElementView& root, const WindowOnScreen& window, std::vector<RankedCandidate>& candidates) {
  if (candidates.size() < 2 || window.overrideRedirect || window.title.empty()) return;
  std::vector<AtspiQuestion> questions;
  for (const auto& one : candidates) questions.push_back({one.candidate.reference, Ask::name});
  root.reader().read(questions);
  for (auto& one : candidates) {
    one.hasTitle = root.reader().known(one.candidate.reference).name == window.title;
  }
}

ScreenRectangle inOwnPixels(const ScreenRectangle& rectangle, const OwnPixels& pixels) {
  const auto [x, y] = pixels.of({rectangle.x, rectangle.y});
  return {x, y, rectangle.width / pixels.scale, rectangle.height / pixels.scale};
}

double distanceOfPopover(const ElementView& element, const WindowOnScreen& window) {
  const auto& facts = element.needOnly(Ask::windowExtents);
  if (!facts.answered(Ask::windowExtents)) return unknownDistance;
  return fitAt(facts.windowExtents, window.client, 1, Coordinates::ofWindow).distance;
}

bool liesInOwnWindow(const ElementView& root, const AtspiReference& element) {
  const auto asked = root.toolkit().liesInOwnWindow;
  return asked && asked(root.reader().known(element));
}

// The keyboard focus went into it.
AtspiReference popoverAroundFocus(const ElementView& root, const WindowOnScreen& window) {
  AtspiReference best;
  double bestDistance = maxDistanceOfPopover;
  auto current = root.application().focus.lastArrival();
  const auto asks = Asks{Ask::windowExtents, Ask::role, Ask::parent} | root.toolkit().liesInOwnWindowBy;
  for (int level = 0; level < maxLevelsOfPopover && !current.isNull(); ++level) {
    const auto& facts = root.other(current).needOnly(asks);
    if (static_cast<AtspiRole>(facts.role) == AtspiRole::frame) break;
    const auto distance = distanceOfPopover(root.other(current), window);
    if (distance < maxDistanceOfPopover && liesInOwnWindow(root, current)) return current;
    if (distance < bestDistance) {
      best = current;
      bestDistance = distance;
    }
    current = facts.parent;
  }
  return best;
}

// The parts of all these elements, after what they are was asked in one wave; not of those that have very many.
std::vector<AtspiReference> partsOfAll(const ElementView& root, const std::vector<AtspiReference>& elements) {
  std::vector<AtspiQuestion> questions;
  const auto asks = Asks{Ask::role, Ask::childCount, Ask::children} | root.toolkit().liesInOwnWindowBy;
  for (const auto& element : elements) questions.push_back({element, asks});
  root.reader().read(questions);
  std::vector<AtspiReference> parts;
  for (const auto& element : elements) {
    const auto& children = root.reader().known(element).children;
    if (children.size() <= maxPartsSearched) parts.insert(parts.end(), children.begin(), children.end());
  }
  std::erase_if(parts, [](const auto& part) { return part.isNull(); });
  return parts;
}

// The one among these, of which it is known what they are, that is as large as the window; null: none is.
AtspiReference popoverAmong(const ElementView& root, const std::vector<AtspiReference>& elements,
                            const WindowOnScreen& window) {
  AtspiReference best;
  double bestDistance = maxDistanceOfPopover;
  for (const auto& element : elements) {
    if (!liesInOwnWindow(root, element)) continue;
    const auto distance = distanceOfPopover(root.other(element), window);
    if (distance < bestDistance) {
      best = element;
      bestDistance = distance;
    }
  }
  return best;
}

// What was clicked lies in it, or has opened it: then it lies in that, or beside it in the same widget.
AtspiReference popoverByClick(const ElementView& root, const AtspiReference& clicked, const WindowOnScreen& window) {
  AtspiReference popover;
  int level = 0;
  searchUp(root.other(clicked), maxLevelsOfPopover, [&](const ElementView& view) {
    const auto parts = partsOfAll(root, {view.reference()});
    popover = popoverAmong(root, {view.reference()}, window);
    if (popover.isNull() && level++ < maxLevelsOfOpener) {
      partsOfAll(root, parts);
      popover = popoverAmong(root, parts, window);
    }
    return view.role() == AtspiRole::frame ? Search::ends : foundIf(!popover.isNull());
  });
  return popover;
}

// Only open ones are in the tree.
AtspiReference popoverBelow(const ElementView& root, const WindowOnScreen& window) {
  AtspiReference best;
  std::size_t searched = 0;
  for (auto level = fewChildren(root); !level.empty() && searched < maxElementsSearched; searched += level.size()) {
    auto next = partsOfAll(root, level);
    best = popoverAmong(root, level, window);
    if (!best.isNull()) break;
    level = std::move(next);
  }
  return best;
}

}  // namespace

std::vector<TopLevelCandidate> topLevelsLike(const ElementView& root, const WindowOnScreen& window) {
  auto candidates = candidatesFor(root, window);
  compareTitles(root, window, candidates);
  const auto rank = [](const RankedCandidate& one) { return std::pair(!one.hasTitle, one.distance); };
  const auto best = std::ranges::min_element(candidates, {}, rank);
  if (best == candidates.end()) return {};
  const auto bestRank = rank(*best);
  std::vector<TopLevelCandidate> alike;
  for (const auto& one : candidates) {
    if (rank(one) == bestRank) alike.push_back(one.candidate);
  }
  return alike;
}

OwnPixels pixelsIn(const ElementView& topLevel, const WindowOnScreen& window) {
  const bool isOnScreen = coordinatesOf(topLevel.toolkit()) == Coordinates::ofScreen;
  const auto& facts = topLevel.needOnly({Ask::role, isOnScreen ? Ask::extents : Ask::windowExtents});
  const auto& own = isOnScreen ? facts.extents : facts.windowExtents;
  const auto place = own.width > 0 && own.height > 0 ? own : placeOfContent(topLevel);
  return place ? fitOf(*place, window, topLevel).pixels : OwnPixels{};
}

AtspiReference popoverOf(const ElementView& root, const WindowOnScreen& window, const AtspiReference& lastClicked) {
  const bool isClickKnown = lastClicked.busName == root.reference().busName;
  auto popover = isClickKnown ? popoverByClick(root, lastClicked, window) : AtspiReference{};
  if (popover.isNull()) popover = popoverAroundFocus(root, window);
  return popover.isNull() ? popoverBelow(root, window) : popover;
}

WindowOnScreen inOwnPixels(WindowOnScreen window, const OwnPixels& pixels) {
  if (pixels.areOfScreen()) return window;
  window.frame = inOwnPixels(window.frame, pixels);
  window.client = inOwnPixels(window.client, pixels);
  for (auto* side : {&window.shadow.left, &window.shadow.right, &window.shadow.top, &window.shadow.bottom}) {
    *side /= pixels.scale;
  }
  return window;
}

}  // namespace norra::linux_desktop
