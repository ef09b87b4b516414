#include "tests/soak/SoakDesktop.h"

namespace norra::soak {
namespace {

using simulated::Attributes;
using simulated::ElementDescription;
using simulated::ElementReference;
using References = std::vector<ElementReference>;

struct Template {
  std::string role;
  std::string parent;
  Attributes attributes{};
  std::vector<std::string> actions{};
};

std::map<std::string, Template> makeTemplates() {
  const NSURL page{"https://www.bing.com/search?q=a"};
  std::map<std::string, Template> templates{
      {"window", {"AXWindow", "application", {{"AXTitle", "Letter"}}}},
      {"box", {"AXGroup", "window"}},
      {"inner box", {"AXGroup", "box"}},
      {"button", {"AXButton", "inner box", {{"AXTitle", "Save"}, {"AXIdentifier", "save"}}, {"AXPress"}}},
      {"button label", {"AXStaticText", "button", {{"AXValue", "Save"}}}},
      {"check box", {"AXCheckBox", "box", {{"AXTitle", "Bold"}, {"AXValue", NSNumber{true}}}, {"AXPress"}}},
      {"slider", {"AXSlider", "box", {{"AXTitle", "Volume"}, {"AXValue", NSNumber{50.5}}}}},
      {"stepper", {"AXIncrementor", "box", {{"AXTitle", "Copies"}, {"AXValue", NSNumber{std::int64_t{3}}}}}},
      {"tabs", {"AXTabGroup", "box", {{"AXTitle", "Pages"}}}},
      {"tab", {"AXRadioButton", "tabs", {{"AXTitle", "Margins"}}}},
      {"combo box", {"AXComboBox", "box", {{"AXTitle", "Font"}, {"AXValue", "Serif"}}}},
      {"page", {"AXWebArea", "window", {{"AXURL", page}}}},
      {"link", {"AXLink", "page", {{"AXTitle", "Annual report"}, {"AXURL", page}}}},
      {"link text", {"AXStaticText", "link", {{"AXValue", "Annual report"}, {"AXDOMIdentifier", ""}}}},
      {"web text", {"AXTextArea", "page", {{"AXDOMIdentifier", "q"}, {"AXTitle", "Search"}, {"AXValue", ""}}}},
      {"text", {"AXTextField", "box", {{"AXTitle", "Subject"}, {"AXValue", ""}}}},
      {"password", {"AXTextField", "box", {{"AXSubrole", "AXSecureTextField"}, {"AXValue", ""}}}},
      {"native text", {"AXTextArea", "box", {{"AXValue", "private"}}}},
      {"header", {"AXButton", "table", {{"AXTitle", "Subject"}}}},
      {"table", {"AXTable", "box", {{"AXTitle", "Mail"}, {"AXSelectedRows", References{}}}}},
      {"row", {"AXRow", "table", {{"AXSelected", NSNumber{true}}}}},
      {"cell", {"AXCell", "row", {{"AXColumnIndexRange", CFRange{0, 1}}}}},
      {"cell text", {"AXStaticText", "cell", {{"AXValue", "Lunch on Thursday"}}}},
      {"second row", {"AXRow", "table", {{"AXTitle", "Budget"}}}},
      {"list", {"AXList", "box", {{"AXTitle", "Places"}}}},
      {"item", {"AXGroup", "list", {{"AXDescription", "Pictures"}}}},
      {"second item", {"AXGroup", "list", {{"AXDescription", "Music"}}}},
      {"menu bar item", {"AXMenuBarItem", "application", {{"AXTitle", "File"}}}},
      {"menu", {"AXMenu", "menu bar item"}},
      {"menu item", {"AXMenuItem", "menu", {{"AXTitle", "Open"}}, {"AXPick"}}},
  };
  return templates;
}

const std::map<std::string, Template>& templates() {
  static const auto all = makeTemplates();
  return all;
}

/// What the elements of a process say about each other.
Attributes links(ProcessIdentifier process, const std::string& name) {
  const auto reference = [&](const std::string& other) { return ElementReference{identifier(process, other)}; };
  if (name == "row") return {{"AXChildren", References{reference("cell")}}};
  if (name == "cell") return {{"AXChildren", References{reference("cell text")}}};
  if (name == "table") return {{"AXColumns", References{reference("second row")}}};
  if (name == "second row") return {{"AXHeader", reference("header")}};
  if (name == "combo box") return {{"AXTitleUIElement", reference("button label")}};
  return {};
}

ElementDescription application(ProcessIdentifier process) {
  const auto reference = [&](const std::string& other) { return ElementReference{identifier(process, other)}; };
  return {.process = process,
          .attributes = {{"AXRole", "AXApplication"},
                         {"AXFocusedUIElement", reference("text")},
                         {"AXFocusedWindow", reference("window")}}};
}

}  // namespace

std::string identifier(ProcessIdentifier process, const std::string& element) {
  return std::to_string(process) + " " + element;
}

ElementDescription element(ProcessIdentifier process, const std::string& name) {
  const auto& found = templates().at(name);
  auto attributes = found.attributes;
  attributes.merge(links(process, name));
  attributes["AXRole"] = found.role;
  attributes["AXParent"] = ElementReference{identifier(process, found.parent)};
  return {.process = process, .attributes = std::move(attributes), .actions = found.actions};
}

const std::vector<std::string>& focusableElements() {
  static const std::vector<std::string> names{"text",    "password",  "web text", "native text", "slider",
                                              "stepper", "check box", "table",    "list"};
  return names;
}

simulated::DesktopDescription soakDesktop() {
  simulated::DesktopDescription desktop;
  double left = 0;
  for (const auto process : processes) {
    double top = 0;
    for (const auto& [name, content] : templates()) {
      desktop.elements[identifier(process, name)] = element(process, name);
      desktop.screen.push_back({{left, top, 100, rowHeight}, {identifier(process, name)}});
      top += rowHeight;
    }
    desktop.elements[identifier(process, "application")] = application(process);
    desktop.applications.push_back({.process = process,
                                    .bundleIdentifier = process == 502 ? "com.google.Chrome" : "org.example.Office",
                                    .localizedName = "Office",
                                    .element = ElementReference{identifier(process, "application")}});
    left += 100;
  }
  desktop.frontmost = processes.front();
  return desktop;
}

}  // namespace norra::soak
