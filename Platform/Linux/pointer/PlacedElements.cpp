#include "Platform/Linux/pointer/PlacedElements.h"

#include <algorithm>
#include <array>

#include "Platform/Linux/elements/Structure.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxLevels = 40;
constexpr std::size_t maxChildren = 64;
constexpr std::int64_t maxColumns = 64;
constexpr std::size_t maxCellsInARow = 16;
constexpr std::int32_t nowhere = -2147483647;

Ask askFor(Coordinates coordinates) { return coordinates == Coordinates::ofScreen ? Ask::extents : Ask::windowExtents; }

std::optional<AtspiRectangle> placeIn(const AtspiFacts& facts, Coordinates coordinates) {
  const auto ask = askFor(coordinates);
  if (!facts.answered(ask)) return std::nullopt;
  const auto& place = ask == Ask::extents ? facts.extents : facts.windowExtents;
  if (place.width <= 0 || place.height <= 0 || place.x <= nowhere || place.y <= nowhere) return std::nullopt;
  return place;
}

std::vector<PlacedElement> placed(const ElementView& view, const std::vector<AtspiReference>& references,
                                  Coordinates coordinates) {
  const auto liesInOwnWindow = view.toolkit().liesInOwnWindow;
  std::vector<AtspiQuestion> questions;
  for (const auto& child : references) {
    questions.push_back({child, Asks{Ask::role, Ask::states, askFor(coordinates)} | view.toolkit().liesInOwnWindowBy});
  }
  view.reader().read(questions);
  std::vector<PlacedElement> children;
  for (const auto& child : references) {
    const auto& facts = view.reader().known(child);
    auto place = liesInOwnWindow && liesInOwnWindow(facts) ? std::nullopt : placeIn(facts, coordinates);
    children.push_back({child, static_cast<AtspiRole>(facts.role), facts.states, place});
    view.reader().noteParent(child, view.reference());
  }
  return children;
}

std::optional<AtspiRectangle> placeOf(const ElementView& view, const AtspiReference& element) {
  if (element.isNull()) return std::nullopt;
  return placeIn(view.reader().read(element, Ask::extents), Coordinates::ofScreen);
}

bool saysNoPlace(const ElementView& view, const PlacedElement& child, Coordinates coordinates) {
  return !view.reader().known(child.reference).answered(askFor(coordinates));
}

bool isPressedAsAWhole(AtspiRole role) {
  using enum RoleKind;
  return isAny(role, {control, field, item, menuPart, checkable});
}

// How far outside of it a point lies, by the side where it is farthest.
double distanceFrom(const AtspiRectangle& place, CGPoint point) {
  const double right = double{1} * place.x + place.width;
  const double bottom = double{1} * place.y + place.height;
  return std::max({place.x - point.x, point.x - right, place.y - point.y, point.y - bottom, 0.0});
}

// Of a toolkit that says only where the content of its controls is.
const PlacedElement* nearestAround(const std::vector<PlacedElement>& children, CGPoint point, const Toolkit& toolkit) {
  const PlacedElement* nearest = nullptr;
  double nearestYet = toolkit.marginOfControls;
  for (const auto& child : children) {
    if (!child.place || !isPressedAsAWhole(child.role)) continue;
    const double distance = distanceFrom(*child.place, point);
    if (distance >= nearestYet) continue;
    nearest = &child;
    nearestYet = distance;
  }
  return nearest;
}

// Where one lies above the other, and has the pointer.
const PlacedElement* topmostAt(const std::vector<PlacedElement>& children, CGPoint point, const Toolkit& toolkit) {
  const PlacedElement* topmost = nullptr;
  const bool mayBeHidden = toolkit.saysWhatIsShown && children.size() > 1;
  for (const auto& child : children) {
    const bool isShown = !mayBeHidden || hasState(child.states, AtspiState::showing);
    if (!isShown || !child.isAt(point)) continue;
    if (toolkit.firstChildIsTopmost) return &child;
    topmost = &child;
  }
  return topmost;
}

bool holdsPage(const PlacedElement& child, const Toolkit& toolkit) {
  return toolkit.putsPagesBelowTabs && child.role == AtspiRole::pageTab && hasState(child.states, AtspiState::selected);
}

// Such a page may say that it lies beside its tab.
bool isPlaceSure(const ElementView& view, const PlacedElement& child, Coordinates coordinates) {
  const bool isPage = view.toolkit().putsPagesBelowTabs && view.role() == AtspiRole::pageTab;
  return !isPage && !saysNoPlace(view, child, coordinates) && !holdsPage(child, view.toolkit());
}

bool hasMany(const ElementView& view) {
  const bool isCounted = view.reader().known(view.reference()).asked.has(Ask::childCount);
  const auto& facts = view.needOnly(isCounted ? Asks{Ask::childCount} : Asks{Ask::childCount, Ask::children});
  return facts.childCount > static_cast<std::int64_t>(maxChildren);
}

// The child to go on with: the topmost at the point, else one that does not say where it is but has a child there.
AtspiReference nextDown(const ElementView& view, CGPoint point, Coordinates coordinates, int levelsOfUnplaced) {
  if (hasMany(view)) {
    auto asked = askedElementAt(view, point, coordinates);
    if (!asked.isNull() && asked != view.reference()) return asked;
  }
  const auto children = placedChildren(view, coordinates);
  if (const auto* topmost = topmostAt(children, point, view.toolkit())) return topmost->reference;
  if (const auto* nearest = nearestAround(children, point, view.toolkit())) return nearest->reference;
  if (levelsOfUnplaced == 0) return {};
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    if (isPlaceSure(view, *child, coordinates)) continue;
    auto below = nextDown(view.other(child->reference), point, coordinates, levelsOfUnplaced - 1);
    if (!below.isNull()) return below;
  }
  return {};
}

AtspiReference cellAt(const ElementView& table, CGPoint point) {
  const auto cells = placedChildren(table, Coordinates::ofScreen);
  const auto* cell = topmostAt(cells, point, table.toolkit());
  return cell ? cell->reference : AtspiReference{};
}

// What a control is made of is the toolkit's business.
bool mayHoldMore(AtspiRole role) {
  using enum RoleKind;
  return !isAny(role, {control, field, number, checkable, item, menuPart, partOfControl});
}

}  // namespace

bool PlacedElement::isAt(CGPoint point) const { return place && contains(*place, point); }

std::vector<PlacedElement> placedChildren(const ElementView& view, Coordinates coordinates) {
  return placed(view, firstChildren(view, maxChildren), coordinates);
}

std::vector<PlacedElement> fewPlacedChildren(const ElementView& view, Coordinates coordinates) {
  return placed(view, fewChildren(view), coordinates);
}

AtspiReference childAtHeight(const ElementView& list, CGPoint point, std::size_t maxInARow) {
  std::size_t first = 0;
  const auto count = static_cast<std::size_t>(std::max<std::int64_t>(0, list.needOnly(Ask::childCount).childCount));
  auto end = count;
  while (first < end) {
    const auto middle = first + (end - first) / 2;
    const auto place = placeOf(list, childAt(list, middle));
    if (!place) return {};
    if (point.y < double{1} * place->y + place->height) {
      end = middle;
    } else {
      first = middle + 1;
    }
  }
  for (auto index = first; index < std::min(count, first + maxInARow); ++index) {
    auto child = childAt(list, index);
    const auto place = placeOf(list, child);
    if (!place || point.y < place->y) return {};
    if (contains(*place, point)) return child;
  }
  return {};
}

AtspiReference deepestByPlace(const ElementView& view, CGPoint point, Coordinates coordinates) {
  auto current = view.reference();
  for (int level = 0; level < maxLevels; ++level) {
    const auto next = nextDown(view.other(current), point, coordinates, 2);
    if (next.isNull() || next == current) break;
    current = next;
  }
  return current;
}

AtspiReference headerAt(const ElementView& table, CGPoint point) {
  if (!table.has(AtspiInterface::table)) return {};
  const auto count = std::clamp<std::int64_t>(table.needOnly(Ask::columnCount).columnCount, 0, maxColumns);
  std::vector<AtspiCall> calls;
  for (std::int32_t i = 0; i < count; ++i) {
    calls.push_back({table.reference(), atspi::table, "GetColumnHeader", {i}});
  }
  std::vector<AtspiQuestion> headers;
  for (const auto& reply : table.reader().exchange(calls)) {
    auto header = readReference(reply.message.get());
    if (header && !header->isNull()) headers.push_back({std::move(*header), Ask::extents});
  }
  table.reader().read(headers);
  const auto found = std::ranges::find_if(
      headers, [&](const auto& header) { return contains(table.reader().known(header.element).extents, point); });
  return found != headers.end() ? found->element : AtspiReference{};
}

AtspiReference deeperByPlace(const ElementView& answer, CGPoint point) {
  const auto likely = answer.reader().likelyRole(answer.reference());
  answer.need(likely && !mayHoldMore(*likely) ? Asks{Ask::role} : Asks{Ask::role, Ask::childCount});
  if (!mayHoldMore(answer.role()) || answer.needOnly(Ask::childCount).childCount == 0) return answer.reference();
  if (!is(answer.role(), RoleKind::tableLike)) return deepestByPlace(answer, point, Coordinates::ofScreen);
  auto part = headerAt(answer, point);
  if (part.isNull()) part = hasMany(answer) ? childAtHeight(answer, point, maxCellsInARow) : cellAt(answer, point);
  return part.isNull() ? answer.reference() : part;
}

AtspiReference askedElementAt(const ElementView& view, CGPoint point, Coordinates coordinates, Asks asks) {
  const AtspiQuestion question{view.reference(), asks};
  const auto x = static_cast<std::int32_t>(point.x);
  const auto y = static_cast<std::int32_t>(point.y);
  const auto replies = view.reader().read({&question, 1}, {hitTestCall(view.reference(), x, y, coordinates)});
  return readReference(replies.front().message.get()).value_or(AtspiReference{});
}

}  // namespace norra::linux_desktop
