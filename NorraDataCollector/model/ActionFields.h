// The members of every payload record after `action`, in the order in which they are written and read.
//
// This is the one place that both directions of the wire format go by, and with them the columns of a table of reports,
// the rows of the page and the description in the documents. A member that is added here is in all of them; a record
// that is missing here does not compile.
#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>

#include "NorraDataCollector/model/Action.h"

namespace norra {

template <typename Data, typename Value>
struct Field {
  std::string_view name;
  Value Data::*member;
};

template <typename Data, typename Value>
Field(const char*, Value Data::*) -> Field<Data, Value>;

constexpr auto fields(std::type_identity<UndefinedData>) { return std::tuple(); }

constexpr auto fields(std::type_identity<CollectorData>) {
  return std::tuple(Field{"operation", &CollectorData::operation});
}

constexpr auto fields(std::type_identity<ChangeApplicationData>) {
  using Data = ChangeApplicationData;
  return std::tuple(Field{"processID", &Data::processID}, Field{"applicationName", &Data::applicationName},
                    Field{"fileDescription", &Data::fileDescription}, Field{"windowTitle", &Data::windowTitle});
}

constexpr auto fields(std::type_identity<OpenMenuData>) {
  using Data = OpenMenuData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"automationID", &Data::automationID});
}

constexpr auto fields(std::type_identity<ClickData>) {
  using Data = ClickData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"button", &Data::button},
                    Field{"toggleState", &Data::toggleState});
}

constexpr auto fields(std::type_identity<ClickHyperlinkData>) {
  using Data = ClickHyperlinkData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"automationID", &Data::automationID},
                    Field{"url", &Data::url});
}

constexpr auto fields(std::type_identity<ClickListItemData>) {
  using Data = ClickListItemData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"button", &Data::button},
                    Field{"columnName", &Data::columnName}, Field{"columnValue", &Data::columnValue});
}

constexpr auto fields(std::type_identity<ClickRadioButtonData>) {
  using Data = ClickRadioButtonData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"groupName", &Data::groupName});
}

template <CodingKeys kind>
constexpr auto fields(std::type_identity<ValueChangeData<kind>>) {
  using Data = ValueChangeData<kind>;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"newValue", &Data::newValue});
}

template <CodingKeys kind>
constexpr auto fields(std::type_identity<KeyPressData<kind>>) {
  using Data = KeyPressData<kind>;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"key", &Data::key});
}

constexpr auto fields(std::type_identity<ExternalData>) { return std::tuple(Field{"message", &ExternalData::message}); }

constexpr auto fields(std::type_identity<ConsoleData>) {
  using Data = ConsoleData;
  return std::tuple(Field{"command", &Data::command}, Field{"prompt", &Data::prompt}, Field{"shell", &Data::shell});
}

constexpr auto fields(std::type_identity<ClickComboBoxData>) {
  using Data = ClickComboBoxData;
  return std::tuple(Field{"elementName", &Data::elementName}, Field{"controlType", &Data::controlType},
                    Field{"automationID", &Data::automationID}, Field{"comboBoxValue", &Data::comboBoxValue},
                    Field{"button", &Data::button});
}

/// Calls `visit` with each field of the record's type.
template <typename Data, typename Visit>
constexpr void forEachField(Visit&& visit) {
  std::apply([&](const auto&... field) { (visit(field), ...); }, fields(std::type_identity<Data>{}));
}

}  // namespace norra
