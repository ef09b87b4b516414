#include "Platform/Linux/reading/AtspiFacts.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/atspi/AtspiRole.h"

namespace norra::linux_desktop {
namespace {

enum class Access : std::uint8_t { property, method };
enum class ArgumentKind : std::uint8_t {
  none,
  zero,
  one,
  screenCoordinates,
  windowCoordinates,
  uriName,
  urlName,
  fromStartToEnd,
  firstParagraph,
  firstFields
};

struct Question {
  Ask ask;
  Access access;
  const char* interface;
  const char* member;
  bool (*store)(sd_bus_message*, AtspiFacts&);
  ArgumentKind argument = ArgumentKind::none;
};

template <auto Field, auto Read>
bool take(sd_bus_message* message, AtspiFacts& facts) {
  auto answer = Read(message);
  if (!answer) return false;
  facts.*Field = static_cast<std::remove_reference_t<decltype(facts.*Field)>>(std::move(*answer));
  return true;
}

constexpr std::array<std::pair<std::string_view, AtspiInterface>, 11> interfaceNames{{
    {atspi::action, AtspiInterface::action},
    {atspi::collection, AtspiInterface::collection},
    {atspi::component, AtspiInterface::component},
    {atspi::document, AtspiInterface::document},
    {atspi::editableText, AtspiInterface::editableText},
    {atspi::hyperlink, AtspiInterface::hyperlink},
    {atspi::selection, AtspiInterface::selection},
    {atspi::table, AtspiInterface::table},
    {atspi::tableCell, AtspiInterface::tableCell},
    {atspi::text, AtspiInterface::text},
    {atspi::value, AtspiInterface::value},
}};

bool takeInterfaces(sd_bus_message* message, AtspiFacts& facts) {
  const auto names = readTexts(message);
  if (!names) return false;
  for (const auto& [name, bit] : interfaceNames) {
    for (const auto& one : *names) {
      if (one == name) facts.interfaces |= static_cast<std::uint16_t>(bit);
    }
  }
  return true;
}

using Facts = AtspiFacts;

constexpr std::array<Question, askCount> questions{{
    {Ask::role, Access::method, atspi::accessible, "GetRole", take<&Facts::role, readInteger>},
    {Ask::states, Access::method, atspi::accessible, "GetState", take<&Facts::states, readStates>},
    {Ask::interfaces, Access::method, atspi::accessible, "GetInterfaces", takeInterfaces},
    {Ask::name, Access::property, atspi::accessible, "Name", take<&Facts::name, readText>},
    {Ask::description, Access::property, atspi::accessible, "Description", take<&Facts::description, readText>},
    {Ask::parent, Access::property, atspi::accessible, "Parent", take<&Facts::parent, readReference>},
    {Ask::childCount, Access::property, atspi::accessible, "ChildCount", take<&Facts::childCount, readInteger>},
    {Ask::children, Access::method, atspi::accessible, "GetChildren", take<&Facts::children, readReferences>},
    {Ask::attributes, Access::method, atspi::accessible, "GetAttributes", take<&Facts::attributes, readAttributes>},
    {Ask::relations, Access::method, atspi::accessible, "GetRelationSet", take<&Facts::relations, readRelations>},
    {Ask::indexInParent, Access::method, atspi::accessible, "GetIndexInParent",
     take<&Facts::indexInParent, readInteger>},
    {Ask::localizedRoleName, Access::method, atspi::accessible, "GetLocalizedRoleName",
     take<&Facts::localizedRoleName, readText>},
    {Ask::accessibleId, Access::property, atspi::accessible, "AccessibleId", take<&Facts::accessibleId, readText>},
    {Ask::helpText, Access::property, atspi::accessible, "HelpText", take<&Facts::helpText, readText>},
    {Ask::actionCount, Access::property, atspi::action, "NActions", take<&Facts::actionCount, readInteger>},
    {Ask::firstActionName, Access::method, atspi::action, "GetName", take<&Facts::firstActionName, readText>,
     ArgumentKind::zero},
    {Ask::secondActionName, Access::method, atspi::action, "GetName", take<&Facts::secondActionName, readText>,
     ArgumentKind::one},
    {Ask::characterCount, Access::property, atspi::text, "CharacterCount", take<&Facts::characterCount, readInteger>},
    {Ask::currentValue, Access::property, atspi::value, "CurrentValue", take<&Facts::currentValue, readNumber>},
    {Ask::extents, Access::method, atspi::component, "GetExtents", take<&Facts::extents, readRectangle>,
     ArgumentKind::screenCoordinates},
    {Ask::windowExtents, Access::method, atspi::component, "GetExtents", take<&Facts::windowExtents, readRectangle>,
     ArgumentKind::windowCoordinates},
    {Ask::documentURI, Access::method, atspi::document, "GetAttributeValue", take<&Facts::documentURI, readText>,
     ArgumentKind::uriName},
    {Ask::documentURL, Access::method, atspi::document, "GetAttributeValue", take<&Facts::documentURL, readText>,
     ArgumentKind::urlName},
    {Ask::linkURI, Access::method, atspi::hyperlink, "GetURI", take<&Facts::linkURI, readText>, ArgumentKind::zero},
    {Ask::selectedChildCount, Access::property, atspi::selection, "NSelectedChildren",
     take<&Facts::selectedChildCount, readInteger>},
    {Ask::selectedRows, Access::method, atspi::table, "GetSelectedRows", take<&Facts::selectedRows, readIntegers>},
    {Ask::cellPosition, Access::property, atspi::tableCell, "Position", take<&Facts::cellPosition, readPair>},
    {Ask::cellTable, Access::property, atspi::tableCell, "Table", take<&Facts::cellTable, readReference>},
    {Ask::columnCount, Access::property, atspi::table, "NColumns", take<&Facts::columnCount, readInteger>},
    {Ask::wholeText, Access::method, atspi::text, "GetText", take<&Facts::wholeText, readText>,
     ArgumentKind::fromStartToEnd},
    {Ask::displayedText, Access::method, atspi::text, "GetStringAtOffset", take<&Facts::displayedText, readText>,
     ArgumentKind::firstParagraph},
    {Ask::fieldsBelow, Access::method, atspi::collection, "GetMatches", take<&Facts::fieldsBelow, readReferences>,
     ArgumentKind::firstFields},
}};
static_assert(std::ranges::is_sorted(questions, std::ranges::less_equal(), &Question::ask), "in the order of Ask");

const Question& questionFor(Ask ask) { return questions[static_cast<std::size_t>(ask)]; }

std::vector<AtspiArgument> argumentsFor(ArgumentKind kind) {
  switch (kind) {
    case ArgumentKind::none: return {};
    case ArgumentKind::zero: return {std::int32_t{0}};
    case ArgumentKind::one: return {std::int32_t{1}};
    case ArgumentKind::screenCoordinates: return {std::uint32_t{0}};
    case ArgumentKind::windowCoordinates: return {std::uint32_t{1}};
    case ArgumentKind::uriName: return {std::string("URI")};
    case ArgumentKind::urlName: return {std::string("DocURL")};
    case ArgumentKind::fromStartToEnd: return {std::int32_t{0}, std::int32_t{-1}};
    case ArgumentKind::firstParagraph: return {std::int32_t{0}, std::uint32_t{4}};
    case ArgumentKind::firstFields: return {FirstWithState{static_cast<std::uint8_t>(AtspiState::editable), 2}};
  }
  return {};
}

}  // namespace

AtspiCall callFor(Ask ask, const AtspiReference& element) {
  const auto& question = questionFor(ask);
  if (question.access == Access::property) return propertyCall(element, question.interface, question.member);
  return {element, question.interface, question.member, argumentsFor(question.argument)};
}

void store(Ask ask, const AtspiReply& reply, AtspiFacts& facts) {
  auto& error = facts.errors[static_cast<std::size_t>(ask)];
  error = reply.error;
  facts.asked |= ask;
  if (error == axError::success && !questionFor(ask).store(reply.message.get(), facts)) error = axError::failure;
}

}  // namespace norra::linux_desktop
