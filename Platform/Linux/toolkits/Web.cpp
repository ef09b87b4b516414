// Chromium and Gecko, which show web pages.
#include <array>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/pointer/PlacedElements.h"
#include "Platform/Linux/pointer/PointedAt.h"
#include "Platform/Linux/toolkits/Toolkits.h"

namespace norra::linux_desktop {
namespace {

// A header does not sort, and a dialog is a part of the page.
RoleAndSubrole roleInPage(const AtspiFacts& facts, const RoleSurroundings& /*surroundings*/) {
  switch (static_cast<AtspiRole>(facts.role)) {
    case AtspiRole::columnHeader:
    case AtspiRole::tableColumnHeader: return {"AXCell", ""};
    case AtspiRole::alert:
    case AtspiRole::dialog: return {"AXGroup", ""};
    default: return {};
  }
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

// The menu bar of a page does not belong to the window.
RoleAndSubrole roleInChromium(const AtspiFacts& facts, const RoleSurroundings& surroundings) {
  const bool isInMenuBar =
      is(static_cast<AtspiRole>(facts.role), RoleKind::menuPart) && surroundings.parentRole == AtspiRole::menuBar;
  return isInMenuBar ? RoleAndSubrole{"AXMenuItem", ""} : roleInPage(facts, surroundings);
}

// A closed select answers with an option that is not on the screen.
AtspiReference withoutHiddenOption(const ElementView& topLevel, AtspiReference answer) {
  topLevel.reader().notePath(answer);
  for (int level = 0; level < 3; ++level) {
    const auto hit = topLevel.other(answer);
    if (hit.role() != AtspiRole::menuItem && hit.role() != AtspiRole::menu && hit.role() != AtspiRole::listItem) break;
    if (hit.hasState(AtspiState::showing)) break;
    const auto parent = hit.need(Ask::parent).parent;
    if (parent.isNull()) break;
    answer = parent;
  }
  return answer;
}

// The deepest element comes at once, but the first answer may be of the place that was asked for before.
AtspiReference elementAt(const ElementView& topLevel, const PointedAt& at) {
  askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  const auto answer = askedElementAt(topLevel, at.point, Coordinates::ofScreen);
  return answer.isNull() ? topLevel.reference() : withoutHiddenOption(topLevel, answer);
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
    .answersPageAddressAtOnce = true,
    .placeholderAttribute = "placeholder",
    .ownRole = roleInChromium,
    .elementAt = elementAt,
};

const Toolkit gecko{
    .showsWebPages = true,
    .hasOneNameForEachRole = true,
    .pageAddress = Ask::documentURL,
    .ownRole = roleInGecko,
    .elementAt = elementAtInGecko,
};

}  // namespace norra::linux_desktop
