#include "Platform/Linux/following/MenuItems.h"

#include <vector>

namespace norra::linux_desktop {
namespace {

constexpr int maxLevelsOfMenus = 8;

bool isPartOfMenu(AtspiRole role) { return is(role, RoleKind::menuPart) || role == AtspiRole::popupMenu; }

// Options may lie in groups with a name.
bool isGroupOfOptions(const ElementView& view) {
  return view.toolkit().showsWebPages && view.role() == AtspiRole::panel;
}

// An option in the open list of a combo box.
bool isOption(const ElementView& item) {
  if (item.role() != AtspiRole::listItem) return false;
  return !comboBoxOfList(item.other(listOfOption(item))).isNull();
}

Asks keptOf(const ElementView& item) {
  const Asks kept = item.generalAsks() | Ask::localizedRoleName;
  return saysPlaceOnScreen(item) ? kept | Ask::extents : kept;
}

// The item and what it lies in, as far as that is part of a menu or of a list; a combo box is the last.
std::vector<AtspiReference> menuAround(const ElementView& item) {
  std::vector<AtspiReference> levels;
  auto current = item.reference();
  while (levels.size() < maxLevelsOfMenus && !current.isNull()) {
    const auto view = item.other(current);
    const auto parent = view.need(levels.empty() ? keptOf(item) : item.generalAsks()).parent;
    const bool isPart = isPartOfMenu(view.role()) || isGroupOfOptions(view);
    const bool mayGoOn = isPart || view.role() == AtspiRole::list || levels.empty();
    levels.push_back(current);
    if (!mayGoOn || view.role() == AtspiRole::comboBox) break;
    current = parent;
  }
  return levels;
}

}  // namespace

bool isItemOfMenu(const ElementView& view) { return isPartOfMenu(view.role()) || isOption(view); }

AtspiReference listOfOption(const ElementView& option) {
  auto above = option.need(Ask::parent).parent;
  return isGroupOfOptions(option.other(above)) ? option.other(above).need(Ask::parent).parent : above;
}

AtspiReference comboBoxOfList(const ElementView& list) {
  if (list.role() != AtspiRole::list) return {};
  const auto parent = list.need(Ask::parent).parent;
  return list.other(parent).role() == AtspiRole::comboBox ? parent : AtspiReference{};
}

AtspiReference comboBoxOf(const ElementView& item) {
  const auto levels = menuAround(item);
  const bool isInOne = !levels.empty() && item.other(levels.back()).role() == AtspiRole::comboBox;
  return isInOne ? levels.back() : AtspiReference{};
}

void keepMenuOf(const ElementView& item) {
  for (const auto& level : menuAround(item)) item.reader().keep(level, AtspiReader::KeptFor::silenceAndEnd);
}

bool saysPlaceOnScreen(const ElementView& view) {
  return view.toolkit().saysPlacesOnScreen && view.toolkit().saysPlacesOfMenuItems;
}

}  // namespace norra::linux_desktop
