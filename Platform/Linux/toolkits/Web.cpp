// Chromium and Gecko, which show web pages.
#include <algorithm>
#include <string_view>
#include <vector>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

constexpr int maxLevelsInLabel = 3;
constexpr int maxLevelsOfOption = 4;
constexpr std::size_t maxBesideOpener = 12;
// Unlike what is told to an element above, or nowhere.
constexpr std::string_view ownClick = "click";

Asks asksForRoleInPage(AtspiRole role) {
  switch (role) {
    case AtspiRole::menu:
    case AtspiRole::menuItem:
    case AtspiRole::documentFrame: return Ask::attributes;
    case AtspiRole::columnHeader:
    case AtspiRole::tableColumnHeader: return Ask::states;
    case AtspiRole::image: return {Ask::states, Ask::firstActionName};
    case AtspiRole::section:
      return {Ask::states, Ask::attributes, Ask::firstActionName, Ask::childCount, Ask::characterCount};
    case AtspiRole::paragraph: return {Ask::states, Ask::attributes, Ask::firstActionName};
    case AtspiRole::grouping: return {Ask::states, Ask::attributes};
    case AtspiRole::heading:
    case AtspiRole::staticText: return {Ask::attributes, Ask::firstActionName};
    default: return {};
  }
}

bool isPartOfPage(const AtspiFacts& facts) { return facts.attributes.contains("tag"); }

// What can be written in as a whole, without being called a field.
bool isUncalledEditor(const AtspiFacts& facts) {
  return isPartOfPage(facts) && hasState(facts.states, AtspiState::editable) &&
         hasState(facts.states, AtspiState::focusable);
}

// Nothing but a text that does something of its own when it is clicked.
bool isClickableText(const AtspiFacts& facts) {
  const bool isLeaf = facts.childCount == 0 || (facts.childCount == 1 && facts.characterCount > 1);
  return isLeaf && facts.firstActionName == ownClick;
}

bool isClickableImage(const AtspiFacts& facts) {
  return facts.firstActionName == ownClick && hasState(facts.states, AtspiState::focusable);
}

RoleAndSubrole editorOrButton(const AtspiFacts& facts, bool isButton) {
  if (isUncalledEditor(facts)) return {"AXTextArea", ""};
  return isButton ? RoleAndSubrole{"AXButton", ""} : RoleAndSubrole{};
}

// Of such an element a page makes a line or a paragraph, nothing larger.
bool isClickableLine(const AtspiFacts& facts) { return isPartOfPage(facts) && facts.firstActionName == ownClick; }

// A header sorts only if the keyboard can get there, a dialog is a part of the page, and so is what it calls a
// document.
RoleAndSubrole roleOfPart(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  switch (static_cast<AtspiRole>(facts.role)) {
    case AtspiRole::columnHeader:
    case AtspiRole::tableColumnHeader:
      if (hasState(facts.states, AtspiState::focusable)) return {"AXButton", "AXSortButton"};
      return {"AXCell", ""};
    case AtspiRole::image: return isClickableImage(facts) ? RoleAndSubrole{"AXButton", ""} : RoleAndSubrole{};
    case AtspiRole::section: return editorOrButton(facts, isClickableText(facts) || surroundings.isCard);
    case AtspiRole::paragraph: return editorOrButton(facts, isClickableLine(facts));
    case AtspiRole::heading:
    case AtspiRole::staticText: return isClickableLine(facts) ? RoleAndSubrole{"AXButton", ""} : RoleAndSubrole{};
    case AtspiRole::grouping: return editorOrButton(facts, false);
    case AtspiRole::documentFrame:
      return hasXmlRole(facts, "document") ? RoleAndSubrole{"AXGroup", ""} : RoleAndSubrole{};
    case AtspiRole::alert:
    case AtspiRole::dialog: return {"AXGroup", ""};
    default: return {};
  }
}

// The menu bar of a page does not belong to the window.
RoleAndSubrole roleInPage(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const bool isInMenuBar =
      is(static_cast<AtspiRole>(facts.role), RoleKind::menuPart) && surroundings.parentRole == AtspiRole::menuBar;
  if (isInMenuBar && facts.attributes.contains("xml-roles")) return {"AXMenuItem", ""};
  return roleOfPart(facts, surroundings);
}

// It takes an editor for a single line where the page does not say that it has more.
bool isEditorOfPage(const AtspiFacts& facts) {
  const auto tag = facts.attributes.find("tag");
  const bool isInput = tag == facts.attributes.end() || tag->second == "input";
  return hasState(facts.states, AtspiState::editable) && !isInput && hasXmlRole(facts, "textbox");
}

RoleAndSubrole roleInGecko(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool mayBeEditor = role == AtspiRole::text || role == AtspiRole::entry;
  return mayBeEditor && isEditorOfPage(facts) ? RoleAndSubrole{"AXTextArea", ""} : roleInPage(facts, surroundings);
}

bool isReachedByLabel(AtspiRole role) { return is(role, RoleKind::checkable) || is(role, RoleKind::field); }

// What is ticked, or got the focus, by a click on its label. Null: the element lies in none, or in that of something
// else.
AtspiReference reachedByLabel(const ElementView& hit) {
  const auto label = searchUp(hit, maxLevelsInLabel, [](const auto& view) {
    if (is(view.role(), RoleKind::checkable) || is(view.role(), RoleKind::control)) return Search::ends;
    return foundIf(view.role() == AtspiRole::label);
  });
  if (label.isNull()) return {};
  auto labelled = firstTarget(hit.other(label).need(Ask::relations).relations, AtspiRelationType::labelFor);
  return isReachedByLabel(hit.other(labelled).role()) ? labelled : AtspiReference{};
}

bool isOption(AtspiRole role) { return role == AtspiRole::menuItem || role == AtspiRole::listItem; }

bool isPartOfList(AtspiRole role) { return isOption(role) || role == AtspiRole::menu || role == AtspiRole::panel; }

// A closed select answers with an option that is not on the screen.
AtspiReference withoutHiddenOption(const ElementView& topLevel, AtspiReference answer) {
  topLevel.reader().notePath(answer);
  for (int level = 0; level < maxLevelsOfOption; ++level) {
    const auto hit = topLevel.other(answer);
    if (level == 0 ? !isOption(hit.role()) && hit.role() != AtspiRole::menu : !isPartOfList(hit.role())) break;
    if (hit.hasState(AtspiState::showing)) break;
    const auto parent = hit.need(Ask::parent).parent;
    if (parent.isNull()) break;
    answer = parent;
  }
  return answer;
}

// A browser may leave out the label of what is ticked. Then what is around both lies there, and what was ticked has got
// the focus.
AtspiReference tickedByUnlistedLabel(const ElementView& hit, const PointedAt& at) {
  if (is(hit.role(), RoleKind::control) || is(hit.role(), RoleKind::checkable)) return {};
  auto focused = at.focusedByPress();
  if (focused.isNull() || !is(hit.other(focused).role(), RoleKind::checkable)) return {};
  auto above = focused;
  for (int level = 0; level < maxLevelsInLabel; ++level) {
    above = hit.other(above).need(Ask::parent).parent;
    if (above == hit.reference()) return focused;
  }
  return {};
}

bool isList(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  return role == AtspiRole::menu || role == AtspiRole::popupMenu || is(role, RoleKind::itemContainer);
}

// What an element controls, as it says, or what lies beside it.
std::vector<AtspiReference> mayBeOpenedBy(const ElementView& opener) {
  const auto& facts = opener.need({Ask::relations, Ask::parent});
  const auto found = std::ranges::find(facts.relations, AtspiRelationType::controllerFor, &AtspiRelation::type);
  if (found != facts.relations.end()) return found->targets;
  return firstChildren(opener.other(facts.parent), maxBesideOpener);
}

// The list or menu at a point that the element with the keyboard focus has opened lies above the rest. Null: none does.
AtspiReference openedAt(const ElementView& opener, CGPoint point) {
  if (!hasState(opener.needOnly(Ask::states).states, AtspiState::expanded)) return {};
  const auto lists = mayBeOpenedBy(opener);
  std::vector<AtspiQuestion> questions;
  for (const auto& list : lists) questions.push_back({list, {Ask::role, Ask::extents}});
  opener.reader().read(questions);
  const auto found = std::ranges::find_if(lists, [&](const auto& list) {
    const auto& facts = opener.reader().known(list);
    return isList(facts) && contains(facts.extents, point);
  });
  return found != lists.end() ? deepestByPlace(opener.other(*found), point, Coordinates::ofScreen) : AtspiReference{};
}

// Nor are options and items of menus found out later.
AtspiReference guessedAt(const ElementView& topLevel, const PointedAt& at) {
  const auto opener = at.focusedBefore();
  if (opener.isNull()) return askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  topLevel.reader().expect(opener, Ask::states);
  auto answer = askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  auto opened = openedAt(topLevel.other(opener), at.point);
  return opened.isNull() ? answer : opened;
}

// The deepest element comes at once. Where it is guessed, it may be what was found last, if that lies there too, or
// what something else covers.
AtspiReference answerAt(const ElementView& topLevel, const PointedAt& at) {
  const bool isGuess = topLevel.toolkit().guessesAtFirst;
  auto answer = isGuess ? guessedAt(topLevel, at) : askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  const bool isFound = !answer.isNull() && answer != topLevel.reference();
  if (isFound && (at.isPress || !isGuess)) return answer;
  return isGuess ? guessedAt(topLevel, at) : askedElementAt(topLevel, at.point, Coordinates::ofScreen);
}

AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  const auto answer = answerAt(topLevel, at);
  if (answer.isNull()) return topLevel.reference();
  const auto shown = withoutHiddenOption(topLevel, answer);
  auto reached = reachedByLabel(topLevel.other(shown));
  if (reached.isNull()) reached = tickedByUnlistedLabel(topLevel.other(shown), at);
  return reached.isNull() ? shown : reached;
}

bool isAt(const ElementView& view, CGPoint point) {
  return !view.reference().isNull() && contains(view.needOnly(Ask::extents).extents, point);
}

// While a list is open, it finds nothing in the window below it. The element that opened it has the keyboard focus.
AtspiReference elementAtInGecko(const ElementView& topLevel, const PointedAt& at) {
  auto found = elementAt(topLevel, at);
  if (found != topLevel.reference()) return found;
  const auto focused = at.focused();
  return isAt(topLevel.other(focused), at.point) ? focused : found;
}

}  // namespace

const Toolkit chromium{
    .showsWebPages = true,
    .listsMereTexts = true,
    .hasOneNameForEachRole = true,
    .actionsReadAhead = 2,
    .guessesAtFirst = true,
    .answersPageAddressAtOnce = true,
    .placeholderAttribute = "placeholder",
    .asksForRole = asksForRoleInPage,
    .ownRole = roleInPage,
    .elementAt = elementAt,
};

const Toolkit gecko{
    .showsWebPages = true,
    .hasOneNameForEachRole = true,
    .countsFromShadow = true,
    .pageAddress = Ask::documentURL,
    .asksForRole = asksForRoleInPage,
    .ownRole = roleInGecko,
    .elementAt = elementAtInGecko,
};

}  // namespace norra::linux_desktop
