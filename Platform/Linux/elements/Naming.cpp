#include "Platform/Linux/elements/Naming.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <vector>

#include "Platform/Linux/elements/LabelInSight.h"
#include "Platform/Linux/elements/PageNames.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

// How far above a label the labelled element is looked for.
constexpr int maxLevelsOfALabel = 3;
// How far above what is written into it a combo box lies.
constexpr int maxLevelsInComboBox = 2;
// Where a text is looked for in an element without a name.
constexpr std::size_t maxParts = 6;
constexpr int maxLevelsOfParts = 3;

constexpr std::array namedByTheirParts{AtspiRole::checkBox,   AtspiRole::listItem,     AtspiRole::pageTab,
                                       AtspiRole::pushButton, AtspiRole::radioButton,  AtspiRole::tableCell,
                                       AtspiRole::tableRow,   AtspiRole::toggleButton, AtspiRole::treeItem};

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// The bullet or the number that a web page puts before an item of a list.
bool isListMark(const AtspiFacts& facts) {
  const auto tag = facts.attributes.find("tag");
  return tag != facts.attributes.end() && tag->second == "::marker";
}

// As it is shown: rounded, and with the decimal comma of many languages.
bool isNumber(std::string text, double number) {
  std::ranges::replace(text, ',', '.');
  double parsed = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  const auto point = text.find('.');
  const auto decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  return std::abs(parsed - number) <= 0.5 * std::pow(10, -static_cast<double>(decimals));
}

std::string_view firstHalf(std::string_view name) {
  const auto middle = name.size() / 2;
  const bool isDouble =
      name.size() % 2 == 1 && name[middle] == ' ' && name.substr(0, middle) == name.substr(middle + 1);
  return isDouble ? name.substr(0, middle) : name;
}

AtspiReference labelBeside(const ElementView& view) {
  const auto siblings = firstChildren(view.parent(), maxParts);
  std::vector<AtspiQuestion> questions;
  for (const auto& sibling : siblings) questions.push_back({sibling, {Ask::role, Ask::relations}});
  view.reader().read(questions);
  const auto label = std::ranges::find_if(siblings, [&](const auto& sibling) {
    return std::ranges::any_of(view.reader().known(sibling).relations, [&](const auto& relation) {
      return relation.type == AtspiRelationType::labelFor &&
             std::ranges::find(relation.targets, view.reference()) != relation.targets.end();
    });
  });
  return label != siblings.end() ? *label : AtspiReference{};
}

AtspiReference firstLabel(const ElementView& view) {
  const auto label = firstTarget(view.need(Ask::relations).relations, AtspiRelationType::labelledBy);
  if (!label.isNull()) return label;
  const bool mayLieBeside = view.role() == AtspiRole::comboBox && !view.toolkit().labelsComboBoxes;
  return mayLieBeside ? labelBeside(view) : AtspiReference{};
}

// What is written into a combo box is called as that is, and so are the parts of a date.
AtspiReference relatedLabel(const ElementView& view) {
  auto label = firstLabel(view);
  if (label.isNull() && view.toolkit().showsWebPages) {
    if (const auto field = fieldOfParts(view); !field.isNull()) return firstLabel(view.other(field));
  }
  if (!label.isNull() || !is(view.role(), RoleKind::field)) return label;
  const auto comboBox = searchUp(view.parent(), maxLevelsInComboBox, [](const auto& around) {
    if (around.role() == AtspiRole::comboBox) return Search::found;
    return is(around.role(), RoleKind::mereContainer) ? Search::goesOn : Search::ends;
  });
  return comboBox.isNull() ? AtspiReference{} : firstLabel(view.other(comboBox));
}

AtspiReference labelOf(const ElementView& view) {
  auto label = relatedLabel(view);
  return label.isNull() ? labelInSight(view) : label;
}

bool liesIn(const ElementView& inner, const AtspiReference& outer) {
  const auto isOuter = [&outer](const auto& view) { return foundIf(view.reference() == outer); };
  return !searchUp(inner.parent(), maxLevelsOfALabel, isOuter).isNull();
}

bool isOwnPart(const ElementView& view, const AtspiReference& label) {
  if (label == view.reference()) return true;
  return view.toolkit().isLabelledByOwnParts && liesIn(view.other(label), view.reference());
}

// What is around an element is not its label, although Qt says so of the box of a group.
std::string withoutOwnLabel(const ElementView& view, std::string name) {
  if (!view.toolkit().joinsNameAndLabel) return name;
  const auto half = firstHalf(name);
  if (half.size() == name.size()) return name;
  const auto label = firstLabel(view);
  return !label.isNull() && isOwnPart(view, label) ? std::string(half) : name;
}

bool isShownText(const ElementView& part) {
  const bool isText = part.role() == AtspiRole::label || part.role() == AtspiRole::staticText;
  const auto shown = part.toolkit().tellsWhatIsShowing ? AtspiState::showing : AtspiState::visible;
  return isText && part.hasState(shown) && !isBlank(part.need(Ask::name).name);
}

bool showsText(const ElementView& view, int level = 0) {
  const auto parts = firstChildren(view, maxParts);
  std::vector<AtspiQuestion> questions;
  for (const auto& part : parts) questions.push_back({part, view.generalAsks() | Ask::childCount});
  view.reader().read(questions);
  return std::ranges::any_of(parts, [&](const auto& reference) {
    const auto part = view.other(reference);
    if (isShownText(part)) return true;
    return level < maxLevelsOfParts && is(part.role(), RoleKind::mereContainer) && showsText(part, level + 1);
  });
}

// The search for a name finds the text that stands on the screen, where no tooltip or description is taken for a name.
bool isNamedByItsParts(const ElementView& view) {
  const bool mayBe = std::ranges::find(namedByTheirParts, view.role()) != namedByTheirParts.end();
  const bool mayHoldPage = view.role() == AtspiRole::pageTab && view.toolkit().putsPagesBelowTabs;
  if (!mayBe || mayHoldPage || view.toolkit().showsWebPages) return false;
  return properName(view.need(Ask::name).name, view.role(), view.toolkit()).empty() && showsText(view);
}

// Some icons are called by what they are used for elsewhere.
bool isIconBesideText(const ElementView& view) {
  const bool isIcon = view.role() == AtspiRole::icon || view.role() == AtspiRole::image;
  if (!isIcon || view.toolkit().showsWebPages) return false;
  return !view.need(Ask::name).name.empty() && showsText(view.parent());
}

AttributeResult attributeNamed(const ElementView& view, std::string_view name) {
  const auto& attributes = view.need(Ask::attributes).attributes;
  const auto found = attributes.find(name);
  return found == attributes.end() ? noValue() : textOrNoValue(found->second);
}

// One that has gone meanwhile is called by what it is no longer.
bool stillHasRole(const ElementView& view) {
  AtspiFacts now;
  store(Ask::role, view.reader().call(callFor(Ask::role, view.reference())), now);
  return now.role == view.need(Ask::role).role;
}

}  // namespace

std::string properName(std::string_view name, AtspiRole role, const Toolkit& toolkit) {
  if (isBlank(name)) return {};
  return std::string(toolkit.properName ? toolkit.properName(name, role) : name);
}

std::string properDescription(const AtspiFacts& facts) {
  if (isBlank(facts.description) || facts.description == facts.name) return {};
  if (facts.answered(Ask::currentValue) && isNumber(facts.description, facts.currentValue)) return {};
  return facts.description;
}

AttributeResult titleOf(const ElementView& view) {
  const auto& facts = view.need(Ask::name);
  if (isListMark(facts) || isIconBesideText(view)) return noValue();
  if (facts.name.empty() && view.toolkit().nameOfNameless) return textOrNoValue(view.toolkit().nameOfNameless(view));
  auto name = view.toolkit().showsWebPages ? nameInPage(view) : facts.name;
  if (view.toolkit().nameWithoutOpened) name = view.toolkit().nameWithoutOpened(view, std::move(name));
  return textOrNoValue(withoutOwnLabel(view, properName(name, view.role(), view.toolkit())));
}

AttributeResult descriptionOf(const ElementView& view) {
  const auto& facts = view.need(Ask::description);
  if (facts.description.empty()) return noValue();
  if (view.toolkit().showsWebPages && isDescribedByField(view)) return noValue();
  if (isNamedByItsParts(view)) return noValue();
  return textOrNoValue(properDescription(view.has(AtspiInterface::value) ? view.need(Ask::currentValue) : facts));
}

AttributeResult placeholderOf(const ElementView& view) {
  if (!is(view.role(), RoleKind::field) && view.role() != AtspiRole::spinButton) return unsupported();
  return attributeNamed(view, view.toolkit().placeholderAttribute);
}

AttributeResult helpOf(const ElementView& view) {
  if (view.application().isUnknown(Ask::helpText)) return unsupported();
  const auto& text = view.need(Ask::helpText).helpText;
  return text.empty() || isNamedByItsParts(view) ? noValue() : valueOf(text);
}

AttributeResult identifierOf(const ElementView& view) {
  if (view.application().isUnknown(Ask::accessibleId)) return unsupported();
  const auto& facts = view.need({Ask::accessibleId, Ask::name});
  const auto properIdentifier = view.toolkit().properIdentifier;
  return textOrNoValue(properIdentifier ? std::string(properIdentifier(facts)) : facts.accessibleId);
}

AttributeResult domIdentifierOf(const ElementView& view) {
  if (!view.toolkit().showsWebPages) return unsupported();
  const auto& attributes = view.need(Ask::attributes).attributes;
  if (!attributes.contains("tag")) return unsupported();
  const auto id = attributes.find("id");
  return valueOf(id == attributes.end() ? std::string() : id->second);
}

AttributeResult roleDescriptionOf(const ElementView& view) {
  const auto role = view.need(Ask::role).role;
  if (auto name = view.application().roleName(role); !name.empty()) return valueOf(std::move(name));
  auto name = view.need(Ask::localizedRoleName).localizedRoleName;
  if (name.empty() || !view.toolkit().hasOneNameForEachRole) return textOrNoValue(std::move(name));
  if (!stillHasRole(view)) return noValue();
  view.application().noteRoleName(role, name);
  return valueOf(std::move(name));
}

AttributeResult titleElementOf(const ElementView& view) {
  const auto label = labelOf(view);
  if (label.isNull()) return noValue();
  view.reader().expect(label, view.generalAsks());
  if (isOwnPart(view, label) || (!view.toolkit().showsWebPages && liesIn(view, label))) return noValue();
  const auto named = view.other(label);
  if (view.toolkit().showsWebPages && isFieldOfPage(named)) return noValue();
  return elementNamed(label);
}

void keepNames(const ElementView& view) {
  const auto asks = view.generalAsks() | Ask::localizedRoleName;
  if (!view.need(asks).answered(Ask::role)) return;
  titleOf(view);
  view.reader().keep(view.reference(), AtspiReader::KeptFor::silence);
  const auto label = labelOf(view);
  if (label.isNull() || !view.other(label).need(asks).answered(Ask::role)) return;
  titleOf(view.other(label));
  view.reader().keep(label, AtspiReader::KeptFor::silence);
}

}  // namespace norra::linux_desktop
