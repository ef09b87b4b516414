#include "Platform/Linux/following/Focus.h"

#include <algorithm>
#include <array>
#include <deque>
#include <unordered_set>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Value.h"
#include "Platform/Linux/following/MenuItems.h"
#include "Platform/Linux/following/Waking.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::steady_clock;

constexpr std::size_t maxElementsSearched = 1200;
constexpr std::size_t maxChildrenSearched = 40;
constexpr int maxLevelsOfItems = 4;
constexpr int maxLevelsInItem = 3;
constexpr int maxLevelsOfDropDown = 6;

bool isFocused(const AtspiFacts& facts) { return hasState(facts.states, AtspiState::focused); }

// Containers with very many children are not searched; what is focused in them is theirs.
bool isSearched(const AtspiFacts& facts) {
  return !hasState(facts.states, AtspiState::managesDescendants) &&
         (hasState(facts.states, AtspiState::showing) || hasState(facts.states, AtspiState::visible));
}

std::vector<AtspiReference> shownChildren(const ElementView& view) {
  auto children = firstChildren(view, maxChildrenSearched);
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
  while (!open.empty() && seen.size() < maxElementsSearched) {
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

// The box that the button or the field is a part of, in GTK 4 with something between them; else the part itself.
AtspiReference boxAround(const ElementView& part, AtspiRole box) {
  constexpr int maxLevels = 2;
  auto found = searchUp(part.parent(), maxLevels, [box](const auto& view) { return foundIf(view.role() == box); });
  return found.isNull() ? part.reference() : found;
}

// The list, table or tree that an item lies in; null: it is no item of one.
AtspiReference containerOf(const ElementView& item) {
  if (!is(item.role(), RoleKind::item)) return {};
  return searchUp(item.parent(), maxLevelsOfItems,
                  [](const auto& view) { return foundIf(is(view.role(), RoleKind::itemContainer)); });
}

// The list of an open drop-down belongs to it, wherever it is on the screen. Null: it is no such list.
AtspiReference dropDownAround(const ElementView& list) {
  return searchUp(list.parent(), maxLevelsOfDropDown, [](const auto& view) {
    if (endsSearch(view.role())) return Search::ends;
    return foundIf(view.role() == AtspiRole::comboBox);
  });
}

// The drop-down whose list the element lies in, as an item or a part of one; null: it lies in none.
AtspiReference dropDownOf(const ElementView& element) {
  AtspiReference list;
  searchUp(element, maxLevelsInItem, [&list](const auto& view) {
    list = containerOf(view);
    const bool mayBePart = is(view.role(), RoleKind::partOfControl) || is(view.role(), RoleKind::mereContainer);
    return list.isNull() && mayBePart ? Search::goesOn : Search::ends;
  });
  return list.isNull() ? AtspiReference{} : dropDownAround(element.other(list));
}

// What is followed while the element has the focus.
AtspiReference followedElement(const ElementView& focused) {
  const bool isButton = focused.role() == AtspiRole::toggleButton || focused.role() == AtspiRole::pushButton;
  if (isButton) return boxAround(focused, AtspiRole::comboBox);
  const bool mayBeInSpinButton = focused.toolkit().putsFieldsIntoSpinButtons && focused.role() == AtspiRole::text;
  if (mayBeInSpinButton) return boxAround(focused, AtspiRole::spinButton);
  auto container = is(focused.role(), RoleKind::itemContainer) ? focused.reference() : containerOf(focused);
  if (container.isNull()) return focused.reference();
  auto dropDown = dropDownAround(focused.other(container));
  return dropDown.isNull() ? container : dropDown;
}

bool isOfOpenList(const ElementView& focused, const AtspiReference& followed) {
  return followed != focused.reference() && focused.other(followed).role() == AtspiRole::comboBox &&
         (is(focused.role(), RoleKind::item) || is(focused.role(), RoleKind::itemContainer));
}

// What it holds is decided when its list closes.
void followOpen(const ElementView& comboBox) {
  auto& application = comboBox.application();
  if (application.focus.open() == comboBox.reference()) return;
  const auto content = contentOf(comboBox).value;
  const auto* text = std::get_if<std::string>(&content);
  if (text) application.noteFormerValue(comboBox.reference(), *text);
  application.focus.followOpen(comboBox.reference());
}

bool hasFocus(const ElementView& view) {
  const auto& facts = view.needOnly({Ask::role, Ask::states});
  return isFocused(facts) && !mayOnlySaySo(facts) && !is(static_cast<AtspiRole>(facts.role), RoleKind::item);
}

// What has the focus while an item says so that is merely the current one of `container`; null: the item has it.
AtspiReference holderBeside(const ElementView& item, const AtspiReference& container,
                            std::vector<AtspiReference> others) {
  if (item.toolkit().tellsFocusOnlyWhereItIs || container == item.reference()) return {};
  others.insert(others.begin(), item.application().focus.followed());
  std::erase_if(others, [&](const auto& other) { return other.isNull() || other == container; });
  const auto found =
      std::find_if(others.rbegin(), others.rend(), [&](const auto& other) { return hasFocus(item.other(other)); });
  return found != others.rend() ? *found : AtspiReference{};
}

void noteSelected(const ElementView& focused, const AtspiReference& followed) {
  const bool isItem = is(focused.role(), RoleKind::item) && followed != focused.reference();
  if (isItem) focused.application().selectedItems.note(followed, focused.reference());
}

}  // namespace

AtspiReference ownerOfOpenList(const ElementView& item) {
  if (!isItemOfMenu(item)) return dropDownOf(item);
  auto owner = comboBoxOf(item);
  if (owner.isNull() || !item.other(owner).need(Ask::name).name.empty()) return owner;
  auto followed = item.application().focus.followed();
  const bool isComboBox = !followed.isNull() && item.other(followed).role() == AtspiRole::comboBox;
  return isComboBox ? followed : AtspiReference{};
}

AtspiReference activeWindowOf(const ElementView& root) {
  const auto children = shownChildren(root);
  const auto found = std::ranges::find_if(
      children, [&](const auto& child) { return hasState(root.reader().known(child).states, AtspiState::active); });
  return found != children.end() ? *found : AtspiReference{};
}

Focus::Focus(AtspiSession& session) : session_(session) {
  session.shared.bus.onNewGeneration([this] { highlightedItems_.clear(); });
}

void Focus::arrived(const AtspiReference& element) {
  session_.applications.of(element.busName)->focus.noteArrival(element);
  highlightedItems_.left(element.busName, steady_clock::now());
}

AtspiReference Focus::settle(const std::string& busName) {
  const auto application = session_.applications.find(busName);
  if (!application) return {};
  const auto burst = application->focus.takeArrivals();
  if (!burst.empty()) look(ElementView(session_.reader(), burst.back()), burst);
  return application->focus.followed();
}

void Focus::look(const ElementView& arrived, const std::vector<AtspiReference>& burst) {
  if (const auto comboBox = comboBoxOfList(arrived); !comboBox.isNull()) {
    highlightedItems_.wentToList(arrived.reference(), comboBox, steady_clock::now());
  } else if (isItemOfMenu(arrived)) {
    if (saysPlaceOnScreen(arrived)) rememberHighlight(arrived);
    // While its list is open, the keys are for the combo box.
    if (const auto owner = ownerOfOpenList(arrived); !owner.isNull()) followOpen(arrived.other(owner));
  } else {
    const auto followed = followedElement(arrived);
    const auto holder = holderBeside(arrived, followed, burst);
    if (!holder.isNull()) return arrived.application().focus.follow(holder);
    if (isOfOpenList(arrived, followed)) return followOpen(arrived.other(followed));
    noteSelected(arrived, followed);
    arrived.application().focus.follow(followed);
    // A page that has just been loaded or turned to.
    const auto& busName = arrived.reference().busName;
    if (arrived.role() == AtspiRole::documentWeb)
      wake(session_, session_.processes.processOf(busName, arrived.reader()));
  }
}

void Focus::rememberHighlight(const ElementView& item) {
  keepMenuOf(item);
  const auto& facts = item.need(Ask::extents);
  if (!facts.answered(Ask::extents) || mappedRole(item).role == "AXMenu") return;
  const auto place = item.application().pixels().onScreen(facts.extents);
  highlightedItems_.highlighted(item.reference(), place, comboBoxOf(item), steady_clock::now());
}

// What an application told of holds until it tells of something else; what was found holds while it is so.
bool Focus::isStillFocused(const AtspiReference& found) {
  if (found.isNull()) return true;
  const auto& facts = session_.reader().read(found, Asks{Ask::role, Ask::states});
  return isFocused(facts) && !mayOnlySaySo(facts);
}

AtspiReference Focus::remembered(ProcessIdentifier process) {
  for (const auto& name : session_.processes.busNamesOf(process, session_.reader())) {
    auto focused = settle(name);
    if (!focused.isNull() && isStillFocused(session_.applications.of(name)->focus.found())) return focused;
  }
  return {};
}

AtspiReference Focus::of(ProcessIdentifier process) {
  auto focused = remembered(process);
  return focused.isNull() ? search(process) : focused;
}

AtspiReference Focus::search(ProcessIdentifier process) {
  auto& reader = session_.reader();
  const auto root = session_.processes.rootOf(process, reader);
  const auto window = root.isNull() ? root : activeWindowOf(ElementView(reader, root));
  const auto found = window.isNull() ? window : searchFocused(ElementView(reader, window));
  if (found.isNull()) return {};
  const ElementView view(reader, found);
  auto followed = followedElement(view);
  noteSelected(view, followed);
  view.application().focus.followFound(followed, found);
  return followed;
}

AtspiReference Focus::left(const AtspiReference& lost) {
  const auto application = session_.applications.find(lost.busName);
  if (!application) return {};
  auto before = application->focus.noteLoss(lost);
  return application->toolkit().tellsFocusOfAllFields ? AtspiReference{} : before;
}

bool Focus::mayHaveGoneUntold(const AtspiReference& lost) const {
  const auto application = session_.applications.find(lost.busName);
  if (!application || application->toolkit().tellsFocusOfAllFields) return false;
  return application->focus.lastArrival() == lost || application->focus.found() == lost;
}

// What can tell of its focus is called focusable, and does; the row of a list that can be written into does not.
bool Focus::isUntold(const AtspiReference& written) {
  const ElementView view(session_.reader(), written);
  return is(view.role(), RoleKind::field) && view.hasState(AtspiState::editable) &&
         !view.hasState(AtspiState::multiLine) &&
         (!view.hasState(AtspiState::focusable) || view.hasState(AtspiState::selectable));
}

bool Focus::isTold(const std::string& busName) const {
  const auto application = session_.applications.find(busName);
  return !application || application->focus.found().isNull();
}

bool Focus::isSecret(ProcessIdentifier process) {
  return std::ranges::any_of(session_.processes.busNamesOf(process, session_.reader()), [this](const auto& name) {
    const auto application = session_.applications.find(name);
    return application && application->wasPassword(application->focus.followed().path);
  });
}

}  // namespace norra::linux_desktop
