// Java's Swing, whose accessibility a wrapper carries to the bus.
#include <algorithm>
#include <limits>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

using Children = std::vector<PlacedElement>;

constexpr int maxLevelsInPopup = 8;

// All that is drawn by a renderer is a label.
AtspiRole trueRole(const AtspiFacts& facts) {
  if (facts.has(AtspiInterface::tableCell)) return AtspiRole::tableCell;
  if (hasState(facts.states, AtspiState::transient)) return AtspiRole::listItem;
  const bool isNode = hasState(facts.states, AtspiState::collapsed) || hasState(facts.states, AtspiState::expanded);
  return isNode ? AtspiRole::treeItem : AtspiRole::label;
}

struct Popup {
  AtspiReference menu;  // null: none
  AtspiRectangle place;
};

// What is open in a window lies in a panel that has the right place, unlike the menu in it.
Popup popupAround(const ElementView& found) {
  auto& reader = found.reader();
  auto current = found.reference();
  for (int level = 0; level < maxLevelsInPopup && !current.isNull(); ++level) {
    const auto& facts = reader.known(current);
    const auto inside = std::ranges::find_if(facts.children, [&](const auto& child) {
      return static_cast<AtspiRole>(reader.known(child).role) == AtspiRole::popupMenu;
    });
    if (inside != facts.children.end()) {
      const bool isOpenThere = static_cast<AtspiRole>(facts.role) == AtspiRole::panel;
      return isOpenThere ? Popup{*inside, facts.extents} : Popup{};
    }
    current = reader.likelyParent(current);
  }
  return {};
}

// The items say where they are relative to what opened the menu, as if that were the menu. They fill it but for its
// border.
std::int32_t offsetOf(const Children& items, const AtspiRectangle& popup) {
  auto top = std::numeric_limits<std::int32_t>::max();
  auto bottom = std::numeric_limits<std::int32_t>::min();
  for (const auto& item : items) {
    if (!item.place) continue;
    top = std::min(top, item.place->y);
    bottom = std::max(bottom, item.place->y + item.place->height);
  }
  return top > bottom ? 0 : popup.y + (popup.height - (bottom - top)) / 2 - top;
}

// Whoever asks an item is told the menu that it belongs to, on which the way down did not lead.
const AtspiReference& withOwnParent(const ElementView& view, const AtspiReference& item) {
  const auto reply = view.reader().call(propertyCall(item, atspi::accessible, "Parent"));
  if (const auto parent = readReference(reply.message.get())) view.reader().noteParent(item, *parent);
  return item;
}

AtspiReference itemAt(const ElementView& found, const Popup& popup, CGPoint point) {
  const auto items = placedChildren(found.other(popup.menu), Coordinates::ofScreen);
  const auto y = point.y - offsetOf(items, popup.place);
  const auto item = std::ranges::find_if(items, [y](const auto& child) {
    return child.place && y >= child.place->y && y < child.place->y + child.place->height;
  });
  if (item == items.end()) return popup.menu;
  if (is(item->role, RoleKind::menuPart)) return withOwnParent(found, item->reference);
  return deepestByPlace(found.other(item->reference), point, Coordinates::ofScreen);
}

// The label in a column's header says that it has no height.
AtspiReference labelOfHeaderAt(const ElementView& header, CGPoint point) {
  for (const auto& child : header.reader().known(header.reference()).children) {
    const auto& facts = header.reader().known(child);
    const auto& [x, y, width, height] = facts.extents;
    const bool isLabel = static_cast<AtspiRole>(facts.role) == AtspiRole::label;
    if (isLabel && height == 0 && point.x >= x && point.x < x + width) return child;
  }
  return header.reference();
}

// What a menu or a combo box opens is not where it lies in the tree.
AtspiReference closed(AtspiReader& reader, const AtspiReference& found) {
  auto outermost = found;
  auto current = found;
  bool isInPopup = false;
  for (int level = 0; level < maxLevelsInPopup && !current.isNull(); ++level) {
    const auto role = static_cast<AtspiRole>(reader.known(current).role);
    if (role == AtspiRole::menu || (role == AtspiRole::comboBox && isInPopup)) outermost = current;
    isInPopup |= role == AtspiRole::popupMenu;
    current = reader.likelyParent(current);
  }
  return outermost;
}

// Its own hit test never leaves the uppermost pane.
AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  auto& reader = topLevel.reader();
  const auto found = topLevel.other(closed(reader, deepestByPlace(topLevel, at.point, Coordinates::ofScreen)));
  const auto popup = popupAround(found);
  return popup.menu.isNull() ? labelOfHeaderAt(found, at.point) : itemAt(found, popup, at.point);
}

}  // namespace

const Toolkit java{
    .isLabelledByOwnParts = false,
    .putsPagesBelowTabs = true,
    .firstChildIsTopmost = true,
    .saysPlacesOfMenuItems = false,
    .putsFieldsIntoSpinButtons = true,
    .labelsComboBoxes = false,
    .trueRole = trueRole,
    .vagueRole = AtspiRole::label,
    .knownBy = {Ask::states, Ask::interfaces},
    .elementAt = elementAt,
};

}  // namespace norra::linux_desktop
