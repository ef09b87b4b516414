#include "Platform/Linux/following/Focus.h"

#include <algorithm>
#include <array>
#include <deque>
#include <unordered_set>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/following/Waking.h"
#include "Platform/Linux/reading/AtspiContext.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t mostElementsSearched = 1200;
constexpr std::size_t mostChildrenSearched = 40;
constexpr int mostLevelsOfItems = 4;
constexpr int mostLevelsOfMenus = 8;

constexpr std::array items{AtspiRole::listItem, AtspiRole::tableCell, AtspiRole::tableRow,
                           AtspiRole::treeItem, AtspiRole::icon,      AtspiRole::tableRowHeader};

bool isFocused(const AtspiFacts& facts) { return hasState(facts.states, AtspiState::focused); }

// Containers with very many children are not searched; what is focused in them is theirs.
bool isSearched(const AtspiFacts& facts) {
  return !hasState(facts.states, AtspiState::managesDescendants) &&
         (hasState(facts.states, AtspiState::showing) || hasState(facts.states, AtspiState::visible));
}

std::vector<AtspiReference> shownChildren(const ElementView& view) {
  auto children = firstChildren(view, mostChildrenSearched);
  std::vector<AtspiQuestion> questions;
  for (const auto& child : children) questions.push_back({child, Asks{Ask::role, Ask::states, Ask::childCount}});
  view.reader().read(questions);
  return children;
}

// The current page tab of Qt always says that it is focused.
bool mayOnlySaySo(const AtspiFacts& facts) { return static_cast<AtspiRole>(facts.role) == AtspiRole::pageTab; }

bool isBetter(const AtspiFacts& facts, const AtspiReference& best) {
  return isFocused(facts) && (best.isNull() || !mayOnlySaySo(facts));
}

// Breadth first; the deepest focused element wins, since toolkits call containers focused too.
AtspiReference searchFocused(const ElementView& window) {
  std::deque<AtspiReference> open{window.reference()};
  std::unordered_set<AtspiReference, AtspiReferenceHash> seen;
  AtspiReference best;
  while (!open.empty() && seen.size() < mostElementsSearched) {
    const auto current = open.front();
    open.pop_front();
    for (const auto& child : shownChildren(window.other(current))) {
      if (!seen.insert(child).second) continue;
      const auto& facts = window.reader().known(child);
      if (isBetter(facts, best)) best = child;
      if (isSearched(facts) && facts.childCount > 0) open.push_back(child);
    }
  }
  return best;
}

// What an application told of holds until it tells of something else; what was found holds while it is so.
bool isStillFocused(AtspiContext& context, const std::string& busName) {
  const auto found = context.focus.found(busName);
  if (!found) return true;
  const auto& facts = context.reader().read(*found, Asks{Ask::role, Ask::states});
  return isFocused(facts) && !mayOnlySaySo(facts);
}

AtspiReference rememberedFocus(AtspiContext& context, ProcessIdentifier process, AtspiReader& reader) {
  for (const auto& name : context.processes.busNamesOf(process, reader)) {
    auto focused = settleFocus(context, name);
    if (!focused.isNull() && isStillFocused(context, name)) return focused;
  }
  return {};
}

bool saysPlaceOnScreen(const ElementView& view) { return view.toolkit() != Toolkit::gtk4; }

Asks keptOf(const ElementView& item) {
  const Asks kept{Ask::localizedRoleName};
  return saysPlaceOnScreen(item) ? kept | Ask::extents : kept;
}

bool isPartOfMenu(AtspiRole role) { return roleDependsOnParent(role) || role == AtspiRole::popupMenu; }

// The combo box whose list of options this is; null: it is none.
AtspiReference comboBoxOfList(const ElementView& list) {
  if (list.role() != AtspiRole::list) return {};
  const auto parent = list.need(Ask::parent).parent;
  return list.other(parent).role() == AtspiRole::comboBox ? parent : AtspiReference{};
}

// An option in the open list of a combo box.
bool isOption(const ElementView& item) {
  if (item.role() != AtspiRole::listItem) return false;
  return !comboBoxOfList(item.other(item.need(Ask::parent).parent)).isNull();
}

void rememberHighlight(const ElementView& item) {
  const auto comboBox = comboBoxOf(item);
  const auto& facts = item.need(Ask::extents);
  if (!facts.answered(Ask::extents) || mappedRole(item).role == "AXMenu") return;
  item.context().highlightedItems.highlighted(item.reference(), facts.extents, comboBox,
                                              std::chrono::steady_clock::now());
}

// The button in a combo box of GTK 3 is part of it.
AtspiReference withoutOwnButton(const ElementView& button) {
  const auto parent = button.need(Ask::parent).parent;
  return button.other(parent).role() == AtspiRole::comboBox ? parent : button.reference();
}

}  // namespace

bool isItemOfMenu(const ElementView& view) { return isPartOfMenu(view.role()) || isOption(view); }

AtspiReference comboBoxOf(const ElementView& item) {
  auto current = item.reference();
  for (int level = 0; level < mostLevelsOfMenus && !current.isNull(); ++level) {
    const auto view = item.other(current);
    const auto parent = view.need(item.generalAsks() | (level == 0 ? keptOf(item) : Asks{})).parent;
    view.reader().keep(current, AtspiReader::KeptFor::silenceAndEnd);
    if (view.role() == AtspiRole::comboBox) return current;
    const bool mayGoOn = isPartOfMenu(view.role()) || view.role() == AtspiRole::list || level == 0;
    if (!mayGoOn) break;
    current = parent;
  }
  return {};
}

AtspiReference activeWindowOf(AtspiContext& context, const AtspiReference& root) {
  const ElementView view(context, context.reader(), root);
  const auto children = shownChildren(view);
  const auto found = std::ranges::find_if(
      children, [&](const auto& child) { return hasState(view.reader().known(child).states, AtspiState::active); });
  return found != children.end() ? *found : AtspiReference{};
}

AtspiReference followedElement(const ElementView& focused) {
  if (focused.role() == AtspiRole::toggleButton) return withoutOwnButton(focused);
  if (!isOneOf(items, focused.role())) return focused.reference();
  auto above = focused.need(Ask::parent).parent;
  for (int level = 0; level < mostLevelsOfItems && !above.isNull(); ++level) {
    const auto container = focused.other(above);
    if (isItemContainer(container.role())) {
      focused.context().selectedItems.note(above, focused.reference());
      return above;
    }
    above = container.need(Ask::parent).parent;
  }
  return focused.reference();
}

AtspiReference settleFocus(AtspiContext& context, const std::string& busName) {
  if (const auto arrived = context.focus.takeArrival(busName)) {
    const ElementView view(context, context.reader(), *arrived);
    if (const auto comboBox = comboBoxOfList(view); !comboBox.isNull()) {
      context.highlightedItems.wentToList(*arrived, comboBox, std::chrono::steady_clock::now());
    } else if (isItemOfMenu(view)) {
      if (saysPlaceOnScreen(view)) rememberHighlight(view);
    } else {
      context.focus.follow(followedElement(view));
      // A page that has just been loaded or turned to.
      if (view.role() == AtspiRole::documentWeb) wake(context, context.processes.processOf(busName, context.reader()));
    }
  }
  return context.focus.followed(busName).value_or(AtspiReference{});
}

AtspiReference focusedElementOf(AtspiContext& context, ProcessIdentifier process) {
  auto& reader = context.reader();
  if (auto remembered = rememberedFocus(context, process, reader); !remembered.isNull()) return remembered;
  const auto root = context.processes.rootOf(process, reader);
  if (root.isNull()) return {};
  const auto window = activeWindowOf(context, root);
  if (window.isNull()) return {};
  const auto found = searchFocused(ElementView(context, reader, window));
  if (found.isNull()) return {};
  auto followed = followedElement(ElementView(context, reader, found));
  context.focus.followFound(followed, found);
  return followed;
}

}  // namespace norra::linux_desktop
