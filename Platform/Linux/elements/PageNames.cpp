#include "Platform/Linux/elements/PageNames.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr std::string_view embedded = "\uFFFC";  // stands in a text for another element
constexpr std::size_t maxParts = 16;
constexpr int maxLevels = 4;

constexpr std::array fields{AtspiRole::comboBox, AtspiRole::listBox, AtspiRole::slider, AtspiRole::spinButton};
constexpr std::array partsOfTexts{AtspiRole::paragraph, AtspiRole::section, AtspiRole::staticText};

std::string_view attributeOf(const ElementView& view, std::string_view name) {
  const auto& attributes = view.need(Ask::attributes).attributes;
  const auto found = attributes.find(name);
  return found == attributes.end() ? std::string_view() : std::string_view(found->second);
}

bool isPage(const ElementView& view) {
  return view.role() == AtspiRole::documentWeb || view.role() == AtspiRole::documentFrame;
}

// A page may make an editor of elements that are not editable and take the keys itself.
bool liesInTextArea(const ElementView& view) {
  auto at = view.reference();
  for (int level = 0; level < maxLevels && !at.isNull(); ++level) {
    const auto& facts = view.other(at).needOnly(Asks{Ask::role, Ask::states, Ask::parent});
    const auto role = static_cast<AtspiRole>(facts.role);
    if (is(role, RoleKind::field) && hasState(facts.states, AtspiState::multiLine)) return level > 0;
    if (std::ranges::find(partsOfTexts, role) == partsOfTexts.end()) return false;
    at = facts.parent;
  }
  return false;
}

// What a browser shows is a leaf of its own; it has no tag.
bool isMereText(const ElementView& view) {
  return view.role() == AtspiRole::staticText && attributeOf(view, "tag").empty();
}

bool holdsField(const ElementView& view) {
  if (isMereText(view)) return false;
  const auto& facts = view.need(Ask::fieldsBelow);
  return !facts.answered(Ask::fieldsBelow) || !facts.fieldsBelow.empty();
}

bool holdsEditor(const ElementView& view) {
  return std::ranges::any_of(view.need(Ask::fieldsBelow).fieldsBelow,
                             [&](const auto& field) { return view.other(field).hasState(AtspiState::multiLine); });
}

// The elements that stand in the text as one character each. Mere texts may be among the children too.
std::vector<AtspiReference> embeddedIn(const ElementView& view) {
  auto children = firstChildren(view, maxParts);
  if (!view.toolkit().listsMereTexts) return children;
  std::vector<AtspiQuestion> questions;
  for (const auto& child : children) questions.push_back({child, view.generalAsks()});
  view.reader().read(questions);
  std::erase_if(children, [&](const auto& child) {
    const auto part = view.other(child);
    return isMereText(part) || attributeOf(part, "tag") == "::marker";
  });
  return children;
}

std::string textWithoutFields(const ElementView& view, int level = 0) {
  if (level > maxLevels || isFieldOfPage(view) || !view.has(AtspiInterface::text)) return {};
  if (level > 0 && holdsEditor(view)) return {};
  std::string text = view.need(Ask::wholeText).wholeText;
  if (text.find(embedded) == std::string::npos) return text;
  const auto parts = embeddedIn(view);
  std::size_t next = 0;
  for (auto at = text.find(embedded); at != std::string::npos; at = text.find(embedded, at)) {
    const auto part = next < parts.size() ? textWithoutFields(view.other(parts[next++]), level + 1) : std::string();
    text.replace(at, embedded.size(), " " + part + " ");
  }
  return text;
}

// A browser puts the mark of a list before what stands in its items, whatever role the page gives these.
std::string_view withoutListMark(std::string_view name) {
  static constexpr std::array<std::string_view, 3> marks{"\u2022 ", "\u25E6 ", "\u25AA "};
  for (const auto mark : marks) {
    if (name.starts_with(mark)) return name.substr(mark.size());
  }
  return name;
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string withoutNeedlessBlanks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (!isBlank(c)) result += c;
    if (isBlank(c) && !result.empty() && result.back() != ' ') result += ' ';
  }
  if (result.ends_with(' ')) result.pop_back();
  return result;
}

std::vector<AtspiReference> targetsOf(const ElementView& view, AtspiRelationType type) {
  std::vector<AtspiReference> targets;
  for (const auto& relation : view.need(Ask::relations).relations) {
    if (relation.type != type) continue;
    targets.insert(targets.end(), relation.targets.begin(), relation.targets.end());
  }
  return targets;
}

// A label around the field that it names holds that one, and a browser leaves it out.
bool isOrHoldsOtherField(const ElementView& view, const AtspiReference& target) {
  if (target == view.reference()) return true;
  const auto other = view.other(target);
  const auto& facts = other.need(other.generalAsks() | Ask::fieldsBelow);
  if (isFieldOfPage(other) || !facts.answered(Ask::fieldsBelow)) return true;
  return std::ranges::any_of(facts.fieldsBelow, [&](const auto& field) { return field != view.reference(); });
}

bool isToldByField(const ElementView& view, AtspiRelationType type) {
  return std::ranges::any_of(targetsOf(view, type),
                             [&](const auto& target) { return isOrHoldsOtherField(view, target); });
}

// Chromium does not say so by a relation.
bool isToldByItself(const ElementView& view, AtspiRelationType type, std::string_view from, std::string_view how) {
  return view.hasState(AtspiState::editable) && attributeOf(view, from) == how && targetsOf(view, type).empty();
}

bool isNamedByField(const ElementView& view) {
  return isToldByField(view, AtspiRelationType::labelledBy) ||
         isToldByItself(view, AtspiRelationType::labelledBy, "name-from", "related-element");
}

// Not from a label, an attribute, or the like.
std::string nameFromContent(const ElementView& view) {
  if (isWritten(view)) return {};
  const bool isOwnText = view.role() == AtspiRole::label || holdsField(view);
  const auto text = isOwnText ? textWithoutFields(view) : view.need(Ask::name).name;
  return withoutNeedlessBlanks(withoutListMark(text));
}

bool isClickableText(const ElementView& view) {
  using enum AtspiRole;
  constexpr std::array texts{section, paragraph, heading, staticText};
  return std::ranges::find(texts, view.role()) != texts.end() && mappedRole(view).role == "AXButton";
}

// What stands large on it.
std::string headingIn(const ElementView& card) {
  for (const auto& part : firstChildren(card, maxParts)) {
    if (card.other(part).role() == AtspiRole::heading) return nameFromContent(card.other(part));
  }
  return {};
}

std::string nameOfClickable(const ElementView& view) {
  if (isWritten(view)) return {};
  auto heading = view.role() == AtspiRole::section ? headingIn(view) : std::string();
  return heading.empty() ? withoutNeedlessBlanks(textWithoutFields(view)) : heading;
}

// What is chosen in a drop-down may be a part of its name, as a page puts it together.
std::string withoutValue(const ElementView& view, const std::string& name) {
  const bool mayHoldValue = view.role() == AtspiRole::comboBox && view.has(AtspiInterface::text) &&
                            attributeOf(view, "name-from") == "related-element";
  if (!mayHoldValue) return name;
  const auto value = " " + withoutNeedlessBlanks(view.need(Ask::wholeText).wholeText);
  return value.size() > 1 && name.ends_with(value) ? name.substr(0, name.size() - value.size()) : name;
}

}  // namespace

std::string nameInPage(const ElementView& view) {
  const auto& name = view.need(Ask::name).name;
  if (view.role() == AtspiRole::label) return nameFromContent(view);
  if (name.empty() && isClickableText(view)) return nameOfClickable(view);
  if (name.empty() || isPage(view)) return name;
  if (attributeOf(view, "explicit-name") == "true")
    return isNamedByField(view) ? std::string() : withoutValue(view, name);
  return is(view.role(), RoleKind::field) ? name : nameFromContent(view);
}

bool isDescribedByField(const ElementView& view) {
  return isToldByField(view, AtspiRelationType::describedBy) ||
         isToldByItself(view, AtspiRelationType::describedBy, "description-from", "aria-describedby");
}

AtspiReference fieldOfParts(const ElementView& part) {
  const bool mayBePart = part.role() == AtspiRole::spinButton || part.role() == AtspiRole::entry;
  if (!mayBePart || attributeOf(part, "tag") != "span") return {};
  const auto around = part.parent();
  return attributeOf(around, "text-input-type").empty() ? AtspiReference{} : around.reference();
}

bool isFieldOfPage(const ElementView& view) {
  return is(view.role(), RoleKind::field) || std::ranges::find(fields, view.role()) != fields.end() || isWritten(view);
}

bool isWritten(const ElementView& view) {
  if (is(view.role(), RoleKind::field) || std::ranges::find(fields, view.role()) != fields.end() || isPage(view))
    return false;
  return view.hasState(AtspiState::editable) || liesInTextArea(view);
}

}  // namespace norra::linux_desktop
