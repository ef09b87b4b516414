#include "NorraDataCollector/interpretation/SearchData.h"

#include <array>
#include <utility>

#include "NorraBase/OneOf.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/RolePredicates.h"

namespace norra {
namespace {

constexpr int maxWalkedElements = 6;
/// More than any menu has; a hostile application may have more.
constexpr std::size_t maxMenuLevels = 1000;

constexpr std::array tableRoles{role::table, role::outline, role::grid};
constexpr std::array groupRoles{role::tabGroup, role::radioGroup};
constexpr std::array controlRoles{role::slider,      role::button,     role::radioButton, role::checkBox,
                                  role::popUpButton, role::menuButton, role::menuItem,    role::comboBox,
                                  role::incrementor, role::dockItem};
constexpr std::array clickableTextRoles{role::textField, role::staticText, role::textArea, role::heading};

std::optional<AXAttributeValue> numberOrText(AXAttributeValue value) {
  if (std::holds_alternative<NSNumber>(value) || std::holds_alternative<std::string>(value)) return value;
  return std::nullopt;
}

class AncestorWalk {
 public:
  SearchData run(const AXUIElement& clicked);

 private:
  void examine(const AXUIElement& current, std::string_view role, int depth);
  void actOnRole(const AXUIElement& current, std::string_view role);
  void meetTable(const AXUIElement& current);
  void meetCell(const AXUIElement& current);
  void meetGroup(const AXUIElement& current);
  void meetLink(const AXUIElement& current);
  void meetControl(const AXUIElement& current, std::string_view role);
  void meetText(const AXUIElement& current, std::string_view role);
  void takeNames(const AXUIElement& current, std::optional<std::string> name);
  void take(const AXUIElement& current, std::string_view role);

  SearchData data_;
  std::optional<AXUIElement> previous_;
};

SearchData AncestorWalk::run(const AXUIElement& clicked) {
  auto current = clicked;
  for (int depth = 0;; ++depth) {
    const auto role = ax::roleOrUnknown(current);
    examine(current, role, depth);
    if (!canContinueSearch(role, true)) break;
    auto parent = ax::parent(current);
    if (!parent || depth + 1 == maxWalkedElements) break;
    previous_ = std::exchange(current, *std::move(parent));
  }
  return std::move(data_);
}

void AncestorWalk::examine(const AXUIElement& current, std::string_view role, int depth) {
  data_.roles.append(depth == 0 ? "" : " in ").append(role);
  if (!data_.isInInteractiveHierarchy) {
    data_.isInInteractiveHierarchy = checkInteractiveHierarchy(role, current, depth);
  }
  if (!data_.url) data_.url = ax::url(current);
  actOnRole(current, role);
}

void AncestorWalk::actOnRole(const AXUIElement& current, std::string_view role) {
  if (isOneOf(tableRoles, role)) return meetTable(current);
  if (role == role::cell) return meetCell(current);
  if (role == role::row && !data_.row) data_.row = current;
  if (isOneOf(groupRoles, role)) return meetGroup(current);
  if (role == role::link) return meetLink(current);
  if (isOneOf(controlRoles, role)) return meetControl(current, role);
  if (isOneOf(clickableTextRoles, role)) return meetText(current, role);
  if (role == role::list && !data_.listItemElement) data_.listItemElement = previous_;
}

void AncestorWalk::meetTable(const AXUIElement& current) {
  if (!data_.columns) data_.columns = ax::columns(current);
}

void AncestorWalk::meetCell(const AXUIElement& current) {
  if (data_.cell) return;
  data_.cell = current;
  data_.cellColumnIndexRange = ax::columnIndexRange(current);
}

void AncestorWalk::meetGroup(const AXUIElement& current) {
  if (!data_.groupName) data_.groupName = collectName({.titleElementOrElement = current});
}

void AncestorWalk::meetLink(const AXUIElement& current) {
  if (data_.linkElement) return;
  data_.linkName = collectName({.titleElementOrElement = current});
  data_.linkElement = current;
}

void AncestorWalk::meetControl(const AXUIElement& current, std::string_view role) {
  if (role == role::popUpButton && !data_.popupButtonTitleElementName) {
    data_.popupButtonTitleElementName = collectTitleElementName(current);
  }
  if (data_.interactiveElement && !data_.isInteractiveElementText) return;
  takeNames(current, role == role::menuItem ? menuItemPath(current) : collectName(current));
  data_.interactiveValue = numberOrText(ax::value(current, attribute::value));
  take(current, role);
}

void AncestorWalk::meetText(const AXUIElement& current, std::string_view role) {
  if (data_.interactiveElement) return;
  const auto isPressable = [&] {
    return (role == role::staticText || role == role::heading) && !ax::domIdentifier(current) &&
           hasInteractiveAction(ax::actions(current));
  };
  if (!ax::isFocused(current) && !isPressable()) return;
  takeNames(current, collectName(current));
  take(current, role);
  data_.isInteractiveElementText = true;
}

void AncestorWalk::takeNames(const AXUIElement& current, std::optional<std::string> name) {
  data_.interactiveName = std::move(name);
  data_.interactiveTitleElementName = collectTitleElementName(current);
}

void AncestorWalk::take(const AXUIElement& current, std::string_view role) {
  data_.interactiveElement = current;
  data_.interactiveRole = role;
  data_.interactiveSubrole = ax::subroleOrUnknown(current);
}

bool leadsToMenuItem(std::string_view role) {
  return role == role::menu || role == role::menuBarItem || role == role::menuItem;
}

/// A chain of parents that comes back to where it was is followed once, and one without an end only so far.
class MenuChain {
 public:
  explicit MenuChain(const AXUIElement& menuItem) : visited_{menuItem} {}

  /// The next element up; nothing at the end.
  std::optional<AXUIElement> next() {
    if (visited_.size() == maxMenuLevels) return std::nullopt;
    auto parent = ax::parent(visited_.back());
    if (!parent || isOneOf(visited_, *parent)) return std::nullopt;
    visited_.push_back(*parent);
    return parent;
  }

 private:
  std::vector<AXUIElement> visited_;
};

}  // namespace

SearchData collectSearchData(const AXUIElement& clicked) { return AncestorWalk().run(clicked); }

bool checkInteractiveHierarchy(std::string_view role, const AXUIElement& element, int depth) {
  if ((role == role::row || role == role::cell) && ax::isSelected(element)) return true;
  if (depth > 0 && isOneOf(tableRoles, role) && !ax::selectedCells(element).empty()) return true;
  if (depth > 0 && role == role::list) return true;
  return isInteractive(role) || hasInteractiveAction(ax::actions(element));
}

std::optional<std::string> menuItemPath(const AXUIElement& menuItem) {
  auto path = collectName(menuItem);
  if (!path) return std::nullopt;
  MenuChain chain(menuItem);
  while (const auto element = chain.next()) {
    const auto role = ax::role(*element);
    if (!role || !leadsToMenuItem(*role)) break;
    if (role == role::menu) continue;
    const auto name = collectName(*element);
    if (name && !name->empty()) path->insert(0, *name + " -> ");
  }
  return path;
}

}  // namespace norra
