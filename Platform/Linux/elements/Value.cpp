#include "Platform/Linux/elements/Value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/elements/PageNames.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/elements/Structure.h"
#include "Platform/Linux/elements/Text.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr std::int32_t maxActions = 16;
constexpr std::size_t maxChildrenOfAComboBox = 4;
constexpr double largestExactInteger = 9007199254740992.0;

using namespace std::string_view_literals;
constexpr std::array<std::pair<std::string_view, std::string_view>, 14> actions{{
    {"click"sv, "AXPress"sv},
    {"press"sv, "AXPress"sv},
    {"activate"sv, "AXPress"sv},
    {"jump"sv, "AXPress"sv},
    {"open"sv, "AXPress"sv},
    {"toggle"sv, "AXPress"sv},
    {"check"sv, "AXPress"sv},
    {"uncheck"sv, "AXPress"sv},
    {"increment"sv, "AXIncrement"sv},
    {"increase"sv, "AXIncrement"sv},
    {"decrement"sv, "AXDecrement"sv},
    {"decrease"sv, "AXDecrement"sv},
    {"select"sv, "AXPick"sv},
    {"cancel"sv, "AXCancel"sv},
}};

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool equalWithoutCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, [](char a, char b) { return lower(a) == lower(b); });
}

AttributeResult number(double value) {
  const bool isInteger = std::abs(value) < largestExactInteger && std::trunc(value) == value;
  return isInteger ? valueOf(NSNumber{static_cast<std::int64_t>(value)}) : valueOf(NSNumber{value});
}

// Of others it says that a button of the mouse is held on them.
bool isPressedIn(const ElementView& view) {
  return view.role() == AtspiRole::toggleButton && view.hasState(AtspiState::pressed);
}

AttributeResult checkedState(const ElementView& view) {
  if (view.hasState(AtspiState::indeterminate)) return valueOf(NSNumber{std::int64_t{2}});
  if (isExpander(view)) return valueOf(NSNumber{std::int64_t{view.hasState(AtspiState::expanded) ? 1 : 0}});
  const auto state = view.role() == AtspiRole::pageTab ? AtspiState::selected : AtspiState::checked;
  const bool isOn = view.hasState(state) || isPressedIn(view);
  return valueOf(NSNumber{std::int64_t{isOn ? 1 : 0}});
}

// That its menu is open is nothing that it holds, and would be told as a text.
bool opensMenu(const ElementView& view) {
  return view.role() == AtspiRole::toggleButton && mappedRole(view).role == "AXMenuButton";
}

bool isEmpty(const AttributeResult& text) {
  const auto* value = std::get_if<std::string>(&text.value);
  return !value || value->empty();
}

// What is chosen in a closed list is called as it stands on the screen.
AttributeResult chosenIn(const ElementView& list) {
  if (!list.has(AtspiInterface::selection)) return noValue();
  const auto reply = list.reader().call({list.reference(), atspi::selection, "GetSelectedChild", {std::int32_t{0}}});
  const auto item = readReference(reply.message.get());
  return item && !item->isNull() ? textOrNoValue(list.other(*item).need(Ask::name).name) : noValue();
}

AttributeResult contentOfPart(const ElementView& part) {
  if (is(part.role(), RoleKind::field)) return textValue(part);
  const bool isList = part.role() == AtspiRole::menu || is(part.role(), RoleKind::itemContainer);
  return isList ? chosenIn(part) : noValue();
}

AttributeResult contentOfComboBox(const ElementView& view) {
  if (view.toolkit().namesComboBoxesByTheirValue) return textOrNoValue(view.need(Ask::name).name);
  auto content = view.has(AtspiInterface::text) ? textValue(view) : noValue();
  if (!isEmpty(content) || view.hasState(AtspiState::editable)) return content;
  for (const auto& child : firstChildren(view, maxChildrenOfAComboBox)) {
    auto part = contentOfPart(view.other(child));
    if (part.error == axError::success) return part;
  }
  if (isEmpty(content) && view.toolkit().chosenIn) return textOrNoValue(view.toolkit().chosenIn(view));
  return isEmpty(content) ? chosenIn(view) : content;
}

// The only number in a text, with a point before its fraction; nothing where there is none, or more.
std::optional<double> onlyNumberIn(std::string_view text) {
  constexpr std::string_view digits = "0123456789";
  const auto begin = text.find_first_of(digits);
  if (begin == std::string_view::npos) return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(text.data() + begin, text.data() + text.size(), value);
  const auto rest = text.substr(static_cast<std::size_t>(end - text.data()));
  if (error != std::errc() || rest.find_first_of(digits) != std::string_view::npos) return std::nullopt;
  return begin > 0 && text[begin - 1] == '-' ? -value : value;
}

// Languages differ in what stands before the fraction, and between thousands.
bool shows(std::string text, double value) {
  auto withoutMarks = text;
  std::erase_if(withoutMarks, [](char c) { return c == ',' || c == '.'; });
  const bool isShown = onlyNumberIn(text) == value || onlyNumberIn(withoutMarks) == value;
  std::ranges::replace(text, ',', '.');
  return isShown || onlyNumberIn(text) == value;
}

// A page may say what stands there in words alone, as browsers do for the parts of a date.
AttributeResult numberInPage(const ElementView& view, double value) {
  const bool mayBeUnsaid = view.role() == AtspiRole::spinButton && value == 0;
  if (!mayBeUnsaid) return number(value);
  const auto& attributes = view.need(Ask::attributes).attributes;
  const auto tag = attributes.find("tag");
  const auto words = attributes.find("valuetext");
  const bool isUnsaid = tag != attributes.end() && tag->second != "input" && words != attributes.end();
  if (!isUnsaid || words->second.empty()) return number(value);
  const auto shown = onlyNumberIn(words->second);
  return shown ? number(*shown) : valueOf(words->second);
}

// A box for a number may have the one that was there before what is written in it, and that of a date has none.
AttributeResult numberOrText(const ElementView& view) {
  const auto value = view.need(Ask::currentValue).currentValue;
  if (view.toolkit().showsWebPages) return numberInPage(view, value);
  if (!view.has(AtspiInterface::text)) return number(value);
  auto text = textValue(view);
  const auto* shown = std::get_if<std::string>(&text.value);
  if (!shown || shown->empty() || shows(*shown, value)) return number(value);
  const bool isMereNumber = shown->find_first_not_of("0123456789.-") == std::string::npos;
  const auto written = isMereNumber ? onlyNumberIn(*shown) : std::nullopt;
  return written ? number(*written) : text;
}

// Text that only repeats the name is not asked for.
AttributeResult textBesideName(const ElementView& view) {
  if (!is(view.role(), RoleKind::textHolder)) return noValue();
  if (!view.need(Ask::name).name.empty() || !view.has(AtspiInterface::text)) return noValue();
  if (view.toolkit().showsWebPages && (isWritten(view) || view.role() == AtspiRole::label)) return noValue();
  return textValue(view);
}

std::vector<std::string> actionNamesFrom(const ElementView& view, std::int32_t first, std::int32_t count) {
  std::vector<AtspiCall> calls;
  for (std::int32_t i = first; i < count; ++i) {
    calls.push_back({view.reference(), atspi::action, "GetName", {i}});
  }
  std::vector<std::string> names;
  for (const auto& reply : view.reader().exchange(calls)) {
    names.push_back(readText(reply.message.get()).value_or(""));
  }
  return names;
}

// GTK 4 lists all that its widgets' classes can do ("clipboard.copy"), which says nothing of this one.
bool isClassAction(std::string_view name) { return name.find('.') != std::string_view::npos; }

std::vector<std::string> ownActionNames(const ElementView& view) {
  if (!view.has(AtspiInterface::action)) return {};
  Asks asks{Ask::actionCount, Ask::firstActionName};
  if (view.toolkit().actionsReadAhead > 1) asks |= Ask::secondActionName;
  const auto& facts = view.need(asks);
  const auto count = static_cast<std::int32_t>(std::clamp<std::int64_t>(facts.actionCount, 0, maxActions));
  if (count == 0 || isClassAction(facts.firstActionName)) return {};
  std::vector<std::string> names{facts.firstActionName};
  if (count > 1 && facts.answered(Ask::secondActionName)) names.push_back(facts.secondActionName);
  auto rest = actionNamesFrom(view, static_cast<std::int32_t>(names.size()), count);
  names.insert(names.end(), rest.begin(), rest.end());
  return names;
}

// A page may make an editor of anything.
bool isTypedInto(const ElementView& view) {
  const auto role = mappedRole(view).role;
  return role == "AXTextField" || (role == "AXTextArea" && view.toolkit().showsWebPages);
}

// A page that lets the user go from cell to cell is told of the clicks on them by whatever is around.
bool isCellOfGrid(const ElementView& view) {
  const auto role = view.role();
  const bool mayBe = role == AtspiRole::tableCell || role == AtspiRole::rowHeader || role == AtspiRole::tableRow;
  if (!mayBe || !view.toolkit().showsWebPages) return false;
  const auto& facts = view.need({Ask::states, Ask::attributes});
  return hasXmlRole(facts, "gridcell") || hasState(facts.states, AtspiState::focusable) ||
         hasState(facts.states, AtspiState::selectable);
}

}  // namespace

std::string_view mappedAction(std::string_view action) {
  const auto* row =
      std::ranges::find_if(actions, [action](const auto& one) { return equalWithoutCase(one.first, action); });
  return row != actions.end() ? row->second : std::string_view();
}

AttributeResult contentOf(const ElementView& view) {
  const auto role = view.role();
  if (is(role, RoleKind::field)) return textValue(view);
  if (opensMenu(view)) return noValue();
  if (is(role, RoleKind::checkable) || isExpander(view)) return checkedState(view);
  if (role == AtspiRole::comboBox) return contentOfComboBox(view);
  if (role == AtspiRole::spinButton && view.has(AtspiInterface::value)) return numberOrText(view);
  if (view.has(AtspiInterface::value)) return number(view.need(Ask::currentValue).currentValue);
  return textBesideName(view);
}

AXResult<std::vector<std::string>> actionNamesOf(const ElementView& view) {
  if (const auto error = view.roleError(); error != axError::success) return {error, {}};
  const bool isContainer = is(view.role(), RoleKind::mereContainer) && !view.toolkit().showsWebPages;
  if (isCellOfGrid(view)) return {axError::success, {"AXPress"}};
  if (isContainer) return {};
  std::vector<std::string> names;
  for (const auto& action : ownActionNames(view)) {
    const auto mapped = mappedAction(action);
    if (!mapped.empty() && std::ranges::find(names, mapped) == names.end()) names.emplace_back(mapped);
  }
  if (names.empty() && isTypedInto(view)) names.emplace_back("AXConfirm");
  return {axError::success, std::move(names)};
}

}  // namespace norra::linux_desktop
