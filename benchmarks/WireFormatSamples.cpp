#include "benchmarks/WireFormatSamples.h"

namespace norra::benchmarks {
namespace {

template <typename Data>
Data valueChange(std::string_view controlType, std::string_view newValue) {
  return {.elementName = "Quarterly figures",
          .controlType = std::string(controlType),
          .automationID = "report-form-value",
          .newValue = std::string(newValue)};
}

template <typename Data>
Data keyPress(std::string_view key) {
  return {.elementName = "Message", .controlType = "text area", .automationID = "", .key = std::string(key)};
}

ClickData click() {
  return {.elementName = "Save changes and close",
          .controlType = "push button",
          .automationID = "save-and-close",
          .button = MouseButton::left};
}

ChangeApplicationData applicationChange() {
  return {.processID = 48122,
          .applicationName = "org.example.TextEditor",
          .fileDescription = "Text Editor",
          .windowTitle = "Shopping list (~/Documents) - Text Editor"};
}

ClickHyperlinkData hyperlink() {
  return {.elementName = "Annual report",
          .automationID = "",
          .url = URL{"https://www.example.org/investors/reports/annual.html?year=2024"}};
}

ClickListItemData listItem() {
  return {.elementName = "Lunch on Thursday",
          .controlType = "table row",
          .automationID = "",
          .button = MouseButton::left,
          .columnName = "Subject",
          .columnValue = "Lunch on Thursday"};
}

ClickRadioButtonData radioButton() {
  return {.elementName = "Landscape",
          .controlType = "radio button",
          .automationID = "landscape",
          .groupName = "Paper orientation"};
}

ClickComboBoxData comboBox() {
  return {.elementName = "Font",
          .controlType = "combo box",
          .automationID = "font-family",
          .comboBoxValue = "Sans Serif",
          .button = MouseButton::left};
}

}  // namespace

const std::array<Action, kindCount>& sampleActions() {
  static const std::array<Action, kindCount> samples{
      UndefinedData(),
      CollectorData{.operation = CollectorOperation::start},
      applicationChange(),
      OpenMenuData{.elementName = "File", .automationID = "file-menu"},
      click(),
      hyperlink(),
      listItem(),
      radioButton(),
      valueChange<ToggleData>("check box", "1"),
      valueChange<ChangeTextData>("text field", "Turnover and profit, Zürich – second quarter"),
      valueChange<ChangePasswordData>("secure text field", ""),
      valueChange<ChangeSliderData>("slider", "72.5"),
      valueChange<ChangeSpinnerData>("stepper", "12"),
      valueChange<ChangeSelectedRowsData>("table", "[\"Lunch on Thursday\", \"Re: budget\"]"),
      valueChange<ChangeSelectedCellsData>("grid", "[\"B2\", \"B3\", \"B4\"]"),
      valueChange<ChangeSelectedChildrenData>("list", "[\"Pictures\"]"),
      keyPress<KeyCombinationData>("Command + Shift + s"),
      keyPress<SpecialKeyData>("carriage return"),
      ExternalData{.message = "A message from elsewhere"},
      ConsoleData{.command = "ls -l /tmp", .prompt = "user@host:~$", .shell = "/bin/bash"},
      comboBox()};
  return samples;
}

}  // namespace norra::benchmarks
