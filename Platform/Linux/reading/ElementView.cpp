#include "Platform/Linux/reading/ElementView.h"

#include <array>

namespace norra::linux_desktop {
namespace {

// What is read of an element above the one that was clicked, unless it turns out to matter.
constexpr Asks ancestorAsks{Ask::role, Ask::parent};
constexpr Asks expectedAsks{Ask::role, Ask::parent, Ask::states};
constexpr int mostExpectedAncestors = 5;

constexpr std::array partsOfControls{AtspiRole::icon, AtspiRole::image, AtspiRole::label, AtspiRole::staticText};
constexpr std::array controls{AtspiRole::checkBox, AtspiRole::link,         AtspiRole::listItem,
                              AtspiRole::menuItem, AtspiRole::pushButton,   AtspiRole::radioButton,
                              AtspiRole::pageTab,  AtspiRole::toggleButton, AtspiRole::treeItem};

bool endsSearchAt(const AtspiFacts& facts) {
  return facts.asked.has(Ask::role) && endsSearch(static_cast<AtspiRole>(facts.role));
}

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
  if (application_->showsWebPages()) asks |= Ask::attributes;
  if (!application_->isUnknown(Ask::accessibleId)) asks |= Ask::accessibleId;
  if (!application_->isUnknown(Ask::helpText)) asks |= Ask::helpText;
  return asks;
}

Asks ElementView::asksOnPath(const AtspiFacts& facts) const {
  Asks asks;
  if (!application_->hasOneNameForEachRole()) asks |= Ask::localizedRoleName;
  const bool isPage = static_cast<AtspiRole>(facts.role) == AtspiRole::documentWeb;
  if (isPage && toolkit() == Toolkit::chromium) asks |= Ask::documentURI;
  return asks;
}

Asks ElementView::detailAsks(const AtspiFacts& facts) const {
  const auto role = static_cast<AtspiRole>(facts.role);
  Asks asks = asksForRole(role, toolkit());
  if (facts.has(AtspiInterface::value)) asks |= Ask::currentValue;
  if (facts.has(AtspiInterface::hyperlink) && role == AtspiRole::link) asks |= Ask::linkURI;
  if (application_->roleName(facts.role).empty()) asks |= Ask::localizedRoleName;
  return asks;
}

// The ancestors of a clicked element are asked for one after the other. Those that are known, or that it had the last
// time, are asked for ahead.
void ElementView::expectAncestors() const {
  if (!reader_.isOnPath(reference_) || endsSearchAt(reader_.known(reference_))) return;
  bool isControlSought = isOneOf(partsOfControls, static_cast<AtspiRole>(reader_.known(reference_).role));
  auto ancestor = reader_.likelyParent(reference_);
  for (int i = 0; i < mostExpectedAncestors && !ancestor.isNull(); ++i) {
    const auto& known = reader_.known(ancestor);
    const bool isControl = isControlSought && isOneOf(controls, static_cast<AtspiRole>(known.role));
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
