#include "Platform/Linux/elements/Structure.h"

#include <algorithm>
#include <string>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/elements/PageNames.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Tables.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

// An element with more children than this is not asked for all of them.
constexpr std::size_t maxChildrenAtOnce = 200;
// So many are taken of an element with more.
constexpr std::size_t maxChildrenOfMany = 50;
// Names are looked for in the first children, so these are read together.
constexpr std::size_t childrenReadAhead = 3;
constexpr std::size_t maxUnlistedChildren = 4;
constexpr int maxLevels = 64;
constexpr int maxLevelsInLink = 3;

bool isRoot(const AtspiReference& reference) { return reference.path == AtspiReference::rootPath; }

std::vector<AtspiReference> childrenByIndex(const ElementView& view, std::size_t count) {
  std::vector<AtspiCall> calls;
  for (std::size_t i = 0; i < count; ++i) calls.push_back(childCall(view.reference(), static_cast<std::int32_t>(i)));
  std::vector<AtspiReference> children;
  for (const auto& reply : view.reader().exchange(calls)) {
    auto child = readReference(reply.message.get());
    if (child && !child->isNull()) children.push_back(std::move(*child));
  }
  return children;
}

AtspiReference withoutPageTab(const ElementView& view, const AtspiReference& parent) {
  if (!view.toolkit().putsPagesBelowTabs || isRoot(parent)) return parent;
  const auto above = view.other(parent);
  return above.role() == AtspiRole::pageTab ? above.need(Ask::parent).parent : parent;
}

// The box in an expander holds its title, and then what it shows.
AtspiReference withoutBoxOfExpander(const ElementView& view, const ElementView& box) {
  if (box.role() != AtspiRole::panel) return box.reference();
  const auto above = box.need(Ask::parent).parent;
  if (above.isNull() || isRoot(above) || !isExpander(box.other(above))) return box.reference();
  const bool isShown = view.need(Ask::indexInParent).indexInParent > 0;
  return isShown ? box.other(above).need(Ask::parent).parent : box.reference();
}

// What such a control is called stands on it; all else in it is what it shows or switches.
AtspiReference withoutControlAround(const ElementView& view, const AtspiReference& parent) {
  if (isRoot(parent)) return parent;
  const auto above = view.other(parent);
  if (view.toolkit().keepsExpandersInBoxes) return withoutBoxOfExpander(view, above);
  const auto isAroundContent = view.toolkit().isAroundContent;
  const bool mayBe = isAroundContent && is(above.role(), RoleKind::control);
  if (!mayBe || !isAroundContent(above.need(Ask::states))) return parent;
  const bool isItsLabel = view.role() == AtspiRole::label && view.need(Ask::name).name == above.need(Ask::name).name;
  return isItsLabel ? parent : above.need(Ask::parent).parent;
}

bool isControlOfItsOwn(AtspiRole role) {
  using enum RoleKind;
  const bool isControl = is(role, control) || is(role, number) || is(role, checkable) || is(role, field);
  return isControl && !is(role, item) && !is(role, menuPart) && role != AtspiRole::link;
}

// A page may make a link of all that lies around a control. A click on the control is none on the link.
AtspiReference withoutLinkAround(const ElementView& view, const AtspiReference& parent) {
  if (!view.toolkit().showsWebPages || !isControlOfItsOwn(view.role())) return parent;
  auto above = parent;
  for (int level = 0; level < maxLevelsInLink && !above.isNull() && !isRoot(above); ++level) {
    const auto& facts = view.other(above).needOnly({Ask::role, Ask::parent});
    const auto role = static_cast<AtspiRole>(facts.role);
    if (role == AtspiRole::link) return facts.parent;
    if (endsSearch(role)) return parent;
    above = facts.parent;
  }
  return parent;
}

AttributeResult elementOrApplication(const AtspiReference& reference) {
  return elementNamed(reference, {isRoot(reference) ? AtspiPart::Kind::application : AtspiPart::Kind::whole});
}

}  // namespace

AttributeResult parentOf(const ElementView& view) {
  const auto& facts = view.need(Asks{Ask::role, Ask::parent});
  if (facts.parent.isNull() || facts.parent == view.reference()) return noValue();
  const auto parent = facts.parent;
  if (view.reader().isOnPath(view.reference())) view.reader().notePath(parent);
  if (auto row = madeUpRowOf(view)) return valueOf(std::move(*row));
  const auto visible = withoutLinkAround(view, withoutControlAround(view, withoutPageTab(view, parent)));
  if (view.reader().isOnPath(view.reference())) view.reader().notePath(visible);
  return visible.isNull() ? noValue() : elementOrApplication(visible);
}

AtspiReference childAt(const ElementView& view, std::size_t index) {
  const auto call = childCall(view.reference(), static_cast<std::int32_t>(index));
  const auto replies = view.reader().exchange({&call, 1});
  return readReference(replies.front().message.get()).value_or(AtspiReference{});
}

std::vector<AtspiReference> fewChildren(const ElementView& view) {
  view.needOnly(Asks{Ask::childCount, Ask::children});
  return firstChildren(view, maxChildrenAtOnce);
}

std::vector<AtspiReference> firstChildren(const ElementView& view, std::size_t limit) {
  const auto count = view.needOnly(Ask::childCount).childCount;
  if (count <= 0) return {};
  const auto number = static_cast<std::size_t>(count);
  if (number > std::min(limit, maxChildrenAtOnce)) return childrenByIndex(view, std::min(limit, number));
  const auto& facts = view.needOnly(Ask::children);
  // What another process puts into a window is no child that is listed.
  if (facts.answered(Ask::children) && facts.children.empty())
    return childrenByIndex(view, std::min(number, maxUnlistedChildren));
  auto children = facts.children;
  std::erase_if(children, [](const auto& child) { return child.isNull(); });
  return children;
}

// What lies in an editor is its content.
bool isEditor(const ElementView& view) {
  if (is(view.role(), RoleKind::field) && view.hasState(AtspiState::multiLine)) return true;
  return view.toolkit().showsWebPages && isWritten(view);
}

AttributeResult childrenOf(const ElementView& view) {
  if (isEditor(view)) return noValue();
  // A page below its tab does not belong to it.
  if (view.role() == AtspiRole::pageTab && view.toolkit().putsPagesBelowTabs) return noValue();
  const auto count = view.needOnly(Ask::childCount).childCount;
  const bool hasMany = count > static_cast<std::int64_t>(maxChildrenAtOnce);
  const auto children = firstChildren(view, hasMany ? maxChildrenOfMany : maxChildrenAtOnce);
  std::vector<ElementKey> elements;
  for (const auto& child : children) {
    if (elements.size() < childrenReadAhead) view.reader().expect(child, view.generalAsks());
    elements.push_back({child});
  }
  return valueOf(std::move(elements));
}

AttributeResult windowOf(const ElementView& view) {
  const auto window = searchUp(view.parent(), maxLevels, [](const auto& above) {
    if (isRoot(above.reference())) return Search::ends;
    return foundIf(mappedRole(above).role == "AXWindow");
  });
  return window.isNull() ? noValue() : elementNamed(window);
}

AttributeResult urlOf(const ElementView& view) {
  const auto role = mappedRole(view).role;
  if (role == "AXLink" && view.has(AtspiInterface::hyperlink)) {
    const auto& uri = view.need(Ask::linkURI).linkURI;
    return uri.empty() ? noValue() : valueOf(NSURL{uri});
  }
  if (role != "AXWebArea" || !view.has(AtspiInterface::document)) return unsupported();
  const auto ask = view.toolkit().pageAddress;
  const auto& facts = view.need(ask);
  const auto& uri = ask == Ask::documentURL ? facts.documentURL : facts.documentURI;
  return uri.empty() ? noValue() : valueOf(NSURL{uri});
}

}  // namespace norra::linux_desktop
