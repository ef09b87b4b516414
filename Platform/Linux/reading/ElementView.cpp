#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

// What is read of an element above the one that was clicked, unless it turns out to matter.
constexpr Asks ancestorAsks{Ask::role, Ask::parent};
constexpr Asks expectedAsks{Ask::role, Ask::parent, Ask::states};
constexpr int maxExpectedAncestors = 5;

bool endsSearchAt(const AtspiFacts& facts) {
  return facts.asked.has(Ask::role) && endsSearch(static_cast<AtspiRole>(facts.role));
}

bool isOfKind(const AtspiFacts& facts, RoleKind kind) { return is(static_cast<AtspiRole>(facts.role), kind); }

}  // namespace

const AtspiFacts& ElementView::need(Asks asks) const {
  const auto& known = reader_.known(reference_);
  if ((asks - known.asked).isEmpty()) return known;
  const bool isPassedBy = known.asked.has(Ask::role) && (asks - ancestorAsks).isEmpty();
  if (!isPassedBy) asks |= generalAsks();
  if (!isPassedBy && reader_.isOnPath(reference_)) asks |= asksOnPath(known);
  if (known.asked.has(Ask::interfaces)) asks |= detailAsks(known);
  expectAncestors();
  return reader_.read(reference_, asks);
}

Asks ElementView::generalAsks() const {
  Asks asks{Ask::role, Ask::states, Ask::interfaces, Ask::name, Ask::description, Ask::parent, Ask::relations};
  if (toolkit().showsWebPages) asks |= Ask::attributes;
  if (!application_->isUnknown(Ask::accessibleId)) asks |= Ask::accessibleId;
  if (!application_->isUnknown(Ask::helpText)) asks |= Ask::helpText;
  return asks;
}

Asks ElementView::asksOnPath(const AtspiFacts& facts) const {
  Asks asks;
  if (!toolkit().hasOneNameForEachRole) asks |= Ask::localizedRoleName;
  const bool isPage = static_cast<AtspiRole>(facts.role) == AtspiRole::documentWeb;
  if (isPage && toolkit().answersPageAddressAtOnce) asks |= toolkit().pageAddress;
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
  if (!reader_.isOnPath(reference_) || endsSearchAt(reader_.known(reference_))) return;
  bool isControlSought = isOfKind(reader_.known(reference_), RoleKind::partOfControl);
  auto ancestor = reader_.likelyParent(reference_);
  for (int i = 0; i < maxExpectedAncestors && !ancestor.isNull(); ++i) {
    const auto& known = reader_.known(ancestor);
    const bool isControl = isControlSought && isOfKind(known, RoleKind::control);
    const bool isPage = static_cast<AtspiRole>(known.role) == AtspiRole::documentWeb;
    if (isControl || isPage) {
      reader_.expect(ancestor, generalAsks() | asksOnPath(known));
    } else if (!known.asked.has(Ask::role)) {
      reader_.expect(ancestor, expectedAsks);
    }
    if (isControl) isControlSought = false;
    if (endsSearchAt(known)) return;
    ancestor = reader_.likelyParent(ancestor);
  }
}

}  // namespace norra::linux_desktop
