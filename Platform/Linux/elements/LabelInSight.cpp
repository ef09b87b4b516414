#include "Platform/Linux/elements/LabelInSight.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

#include "Platform/Linux/elements/Naming.h"
#include "Platform/Linux/elements/Structure.h"

namespace norra::linux_desktop {
namespace {

constexpr std::size_t maxNeighbours = 40;
constexpr int maxLevels = 2;
// In pixels.
constexpr std::int32_t maxGapBefore = 160;
// Switches stand at the end of a line.
constexpr std::int32_t maxGapInLine = 1000;
constexpr std::int32_t maxGapAbove = 16;
constexpr std::int32_t maxIndentation = 24;
constexpr std::int32_t slack = 2;

struct Neighbour {
  AtspiReference reference;
  AtspiRectangle place;
  bool isLabel = false;
};

std::int32_t rightOf(const AtspiRectangle& place) { return place.x + place.width; }
std::int32_t bottomOf(const AtspiRectangle& place) { return place.y + place.height; }

bool isInOneLine(const AtspiRectangle& one, const AtspiRectangle& other) {
  const auto apart = std::abs(2 * one.y + one.height - 2 * other.y - other.height);
  return apart <= std::max(one.height, other.height);
}

// How far before or above the field; nothing: neither.
std::int32_t gapTo(const AtspiRectangle& field, const AtspiRectangle& label, std::int32_t maxGap) {
  constexpr auto none = std::numeric_limits<std::int32_t>::max();
  const auto before = field.x - rightOf(label);
  if (isInOneLine(field, label)) return before >= -slack && before <= maxGap ? before : none;
  const auto above = field.y - bottomOf(label);
  const bool isAbove = above >= -slack && above <= maxGapAbove && std::abs(field.x - label.x) <= maxIndentation;
  return isAbove ? maxGap + above : none;
}

Ask placeAsk(const Toolkit& toolkit) { return toolkit.saysPlacesOnScreen ? Ask::extents : Ask::windowExtents; }

AtspiRectangle placeIn(const AtspiFacts& facts, Ask ask) {
  return ask == Ask::extents ? facts.extents : facts.windowExtents;
}

// A mere sign stands between two fields: the colon of a time, a dash, a cross.
bool isSign(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\n");
  if (first == std::string_view::npos) return true;
  const auto sign = text.substr(first, text.find_last_not_of(" \t\n") + 1 - first);
  if (sign.size() == 1) return std::isalnum(static_cast<unsigned char>(sign.front())) == 0;
  // From U+2000 on there are signs of all kinds, before the letters of the Far East.
  return sign.size() == 3 && (sign.front() == '\xE2' || sign == "\uFF1A");
}

bool isFreeLabel(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool isText = role == AtspiRole::label || role == AtspiRole::staticText;
  const bool isTaken = !firstTarget(facts.relations, AtspiRelationType::labelFor).isNull();
  return isText && !isTaken && !isSign(facts.name);
}

bool isShown(const AtspiFacts& facts, const Toolkit& toolkit) {
  return hasState(facts.states, toolkit.tellsWhatIsShowing ? AtspiState::showing : AtspiState::visible);
}

std::vector<Neighbour> neighbours(const ElementView& around, const AtspiReference& except) {
  const auto children = firstChildren(around, maxNeighbours);
  const auto place = placeAsk(around.toolkit());
  std::vector<AtspiQuestion> questions;
  for (const auto& child : children) {
    questions.push_back({child, {Ask::role, Ask::name, Ask::states, Ask::relations, place}});
  }
  around.reader().read(questions);
  std::vector<Neighbour> found;
  for (const auto& child : children) {
    const auto& facts = around.reader().known(child);
    const auto where = placeIn(facts, place);
    const bool isThere = facts.answered(place) && where.width > 0 && where.height > 0;
    if (child != except && isThere && isShown(facts, around.toolkit()))
      found.push_back({child, where, isFreeLabel(facts)});
  }
  return found;
}

AtspiReference nearestLabel(const AtspiRectangle& field, const std::vector<Neighbour>& neighbours,
                            std::int32_t maxGap) {
  const auto gap = [&](const Neighbour& one) { return gapTo(field, one.place, maxGap); };
  const auto nearest = std::ranges::min_element(neighbours, {}, gap);
  const bool isNear = nearest != neighbours.end() && gap(*nearest) != std::numeric_limits<std::int32_t>::max();
  return isNear && nearest->isLabel ? nearest->reference : AtspiReference{};
}

// Many a combo box is called by what is chosen in it.
bool isNamed(const ElementView& view) {
  const bool mayBeValue = view.role() == AtspiRole::comboBox;
  return !mayBeValue && !properName(view.need(Ask::name).name, view.role(), view.toolkit()).empty();
}

// What is clicked is mostly called by what stands on it.
bool isBlankControl(const ElementView& view) {
  const auto role = view.role();
  const bool mayBe = role == AtspiRole::checkBox || role == AtspiRole::toggleButton || role == AtspiRole::switchControl;
  return mayBe && firstChildren(view, 1).empty();
}

bool mayHaveLabel(const ElementView& view) {
  const auto role = view.role();
  const bool mayBe = is(role, RoleKind::field) || role == AtspiRole::comboBox || role == AtspiRole::spinButton ||
                     role == AtspiRole::slider || isBlankControl(view);
  if (view.toolkit().showsWebPages || !mayBe) return false;
  // What a slider is described by may be the value that it had.
  const bool isDescribed = !is(role, RoleKind::number) && descriptionOf(view).error == axError::success;
  return !isNamed(view) && !isDescribed && placeholderOf(view).error != axError::success;
}

// Fields lie in it, or it is the box that this one is the field of.
bool mayBeForm(AtspiRole role) {
  return !is(role, RoleKind::control) && !is(role, RoleKind::itemContainer) && !is(role, RoleKind::field);
}

}  // namespace

AtspiReference labelInSight(const ElementView& view) {
  if (!mayHaveLabel(view)) return {};
  const auto ask = placeAsk(view.toolkit());
  const auto field = placeIn(view.needOnly(ask), ask);
  if (field.width <= 0) return {};
  auto inside = view.reference();
  for (int level = 0; level < maxLevels; ++level) {
    const auto around = view.other(inside).parent();
    if (around.reference().isNull() || !mayBeForm(around.role())) return {};
    const auto others = around.role() == AtspiRole::comboBox ? std::vector<Neighbour>{} : neighbours(around, inside);
    if (!others.empty()) return nearestLabel(field, others, isBlankControl(view) ? maxGapInLine : maxGapBefore);
    inside = around.reference();
  }
  return {};
}

}  // namespace norra::linux_desktop
