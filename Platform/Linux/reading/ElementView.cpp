#include "Platform/Linux/reading/ElementView.h"

#include <algorithm>
#include <array>

namespace norra::linux_desktop {
namespace {

// What is read of an element above the one that was clicked, unless it turns out to matter.
constexpr Asks ancestorAsks{Ask::role, Ask::parent};
constexpr int maxExpectedAncestors = 5;

bool endsSearchAt(std::optional<AtspiRole> role) { return role && endsSearch(*role); }

// Of one that turns out to be more than that, its states are needed.
Asks expectedAsks(std::optional<AtspiRole> role) {
  const bool mayBeMore = !role || is(*role, RoleKind::statesDecide);
  return mayBeMore ? ancestorAsks | Ask::states : ancestorAsks;
}

bool isOfKind(std::optional<AtspiRole> role, RoleKind kind) { return role && is(*role, kind); }

bool mattersAlways(AtspiRole role) {
  using enum RoleKind;
  return isAny(role, {control, field, number, item, partOfControl});
}

}  // namespace

const AtspiFacts& ElementView::need(Asks asks) const {
  const auto& known = reader_.known(reference_);
  if ((asks - known.asked).isEmpty()) return known;
  const bool isPassedBy = known.asked.has(Ask::role) && (asks - passingAsks(known)).isEmpty();
  if (!isPassedBy) asks |= generalAsks();
  if (!isPassedBy && reader_.isOnPath(reference_)) asks |= asksOnPath(reader_.likelyRole(reference_));
  if (known.asked.has(Ask::interfaces)) asks |= detailAsks(known);
  expectAncestors();
  return reader_.read(reference_, asks);
}

Asks ElementView::passingAsks(const AtspiFacts& known) const {
  const auto role = static_cast<AtspiRole>(known.role);
  const bool mayMatter = reference_ == reader_.pointed() || mattersAlways(role);
  return mayMatter ? ancestorAsks : ancestorAsks | asksForRole(role, toolkit());
}

Asks ElementView::generalAsks() const {
  Asks asks{Ask::role, Ask::states, Ask::interfaces, Ask::name, Ask::description, Ask::parent, Ask::relations};
  if (toolkit().showsWebPages) asks |= Ask::attributes;
  if (!application_->isUnknown(Ask::accessibleId)) asks |= Ask::accessibleId;
  if (!application_->isUnknown(Ask::helpText)) asks |= Ask::helpText;
  return asks;
}

Asks ElementView::asksOnPath(std::optional<AtspiRole> role) const {
  Asks asks;
  if (!toolkit().hasOneNameForEachRole) asks |= Ask::localizedRoleName;
  if (role == AtspiRole::documentWeb && toolkit().answersPageAddressAtOnce) asks |= toolkit().pageAddress;
  return asks;
}

Asks ElementView::detailAsks(const AtspiFacts& facts) const {
  const auto role = static_cast<AtspiRole>(facts.role);
  Asks asks = asksForRole(role, toolkit());
  if (facts.has(AtspiInterface::value)) asks |= Ask::currentValue;
  if (facts.has(AtspiInterface::hyperlink) && role == AtspiRole::link) asks |= Ask::linkURI;
  if (application_->roleName(facts.role).empty()) asks |= Ask::localizedRoleName;
  const bool hasOwnName = facts.name.empty() || facts.attributes.contains("explicit-name");
  if (toolkit().showsWebPages && is(role, RoleKind::control) && !hasOwnName) asks |= Ask::fieldsBelow;
  return asks;
}

// The ancestors of a clicked element are asked for one after the other. Those that are known, or that it had the last
// time, are asked for ahead.
void ElementView::expectAncestors() const {
  const auto ownRole = reader_.likelyRole(reference_);
  if (!reader_.isOnPath(reference_) || endsSearchAt(ownRole)) return;
  bool isControlSought = isOfKind(ownRole, RoleKind::partOfControl);
  auto ancestor = reader_.likelyParent(reference_);
  for (int i = 0; i < maxExpectedAncestors && !ancestor.isNull(); ++i) {
    const auto role = reader_.likelyRole(ancestor);
    const bool isControl = isControlSought && isOfKind(role, RoleKind::control);
    if (isControl || role == AtspiRole::documentWeb) {
      reader_.expect(ancestor, generalAsks() | asksOnPath(role));
    } else if (!reader_.known(ancestor).asked.has(Ask::role)) {
      reader_.expect(ancestor, expectedAsks(role));
    }
    if (isControl) isControlSought = false;
    if (endsSearchAt(role)) return;
    ancestor = reader_.likelyParent(ancestor);
  }
}

}  // namespace norra::linux_desktop
