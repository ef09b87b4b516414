#include "benchmarks/ClickScenes.h"

#include "NorraDataCollector/elements/AccessibilityConstants.h"

namespace norra::benchmarks {
namespace {

using Elements = std::vector<AXUIElement>;

constexpr std::string_view groupRole = "AXGroup";

AXUIElement labelInButton(ConstantTree& tree) {
  auto& label = tree.add(role::staticText, {{attribute::value, "Save"}});
  auto& top = addGroupsAbove(tree, label, 4);
  auto& button = tree.add(role::button, {{attribute::title, "Save changes and close"},
                                         {attribute::identifier, "save-and-close"},
                                         {attribute::roleDescription, "push button"}});
  button.setActions({"AXPress"});
  ConstantTree::setParent(top, button);
  return ConstantTree::handle(label);
}

AXUIElement labelledPopUpButton(ConstantTree& tree) {
  auto& title = tree.add(role::staticText, {{attribute::value, "Font size"}});
  auto& button = tree.add(role::popUpButton, {{attribute::titleUIElement, ConstantTree::handle(title)},
                                              {attribute::value, "12"},
                                              {attribute::roleDescription, "pop-up button"}});
  addGroupsAbove(tree, button, 5);
  return ConstantTree::handle(button);
}

/// The name is that of a text two levels below.
AXUIElement namelessButton(ConstantTree& tree) {
  auto& text = tree.add(role::staticText, {{attribute::value, "Open"}});
  auto& image = tree.add(role::image);
  auto& box =
      tree.add(groupRole, {{attribute::children, Elements{ConstantTree::handle(image), ConstantTree::handle(text)}}});
  auto& button = tree.add(role::button, {{attribute::children, Elements{ConstantTree::handle(box)}}});
  addGroupsAbove(tree, button, 5);
  return ConstantTree::handle(button);
}

AXUIElement linkOnPage(ConstantTree& tree) {
  auto& text = tree.add(role::staticText, {{attribute::value, "Annual report"}, {attribute::domIdentifier, ""}});
  auto& link = tree.add(role::link, {{attribute::title, "Annual report"},
                                     {attribute::url, NSURL{"https://www.example.org/reports/annual.html"}}});
  ConstantTree::setParent(text, link);
  auto& top = addGroupsAbove(tree, link, 3);
  ConstantTree::setParent(top, tree.add(role::webArea, {{attribute::url, NSURL{"https://www.example.org/"}}}));
  return ConstantTree::handle(text);
}

AXUIElement tableCell(ConstantTree& tree) {
  auto& header = tree.add(role::button, {{attribute::title, "Subject"}});
  auto& column = tree.add("AXColumn", {{attribute::header, ConstantTree::handle(header)}});
  auto& text = tree.add(role::staticText, {{attribute::value, "Lunch on Thursday"}});
  const Elements onlyText{ConstantTree::handle(text)};
  auto& cell = tree.add(role::cell, {{attribute::columnIndexRange, CFRange{0, 1}}, {attribute::children, onlyText}});
  auto& row = tree.add(
      role::row, {{attribute::selected, NSNumber{true}}, {attribute::children, Elements{ConstantTree::handle(cell)}}});
  auto& table = tree.add(role::table, {{attribute::columns, Elements{ConstantTree::handle(column)}}});
  ConstantTree::setParent(addGroupsAbove(tree, text, 1), cell);
  ConstantTree::setParent(cell, row);
  ConstantTree::setParent(addGroupsAbove(tree, row, 1), table);
  return ConstantTree::handle(text);
}

AXUIElement menuItem(ConstantTree& tree) {
  ConstantElement* below = nullptr;
  const auto add = [&](std::string_view role, ConstantElement::Attributes attributes) {
    auto& element = tree.add(role, std::move(attributes));
    if (below != nullptr) ConstantTree::setParent(*below, element);
    below = &element;
  };
  add(role::menuItem, {{attribute::title, "Clear Menu"}});
  const auto& item = *below;
  add(role::menu, {});
  add(role::menuItem, {{attribute::title, "Open Recent"}});
  add(role::menu, {});
  add(role::menuBarItem, {{attribute::title, "File"}});
  add(role::menuBar, {});
  return ConstantTree::handle(item);
}

}  // namespace

const std::vector<ClickScene>& clickScenes() {
  static const std::vector<ClickScene> scenes{
      {"text deep in a button", labelInButton},      {"labelled pop-up button", labelledPopUpButton},
      {"nameless button, searched", namelessButton}, {"text in a link on a page", linkOnPage},
      {"text in a table cell", tableCell},           {"menu item, two menus deep", menuItem}};
  return scenes;
}

ConstantElement& addGroupsAbove(ConstantTree& tree, ConstantElement& bottom, int count) {
  auto* top = &bottom;
  for (int level = 0; level < count; ++level) {
    auto& group = tree.add(groupRole);
    ConstantTree::setParent(*top, group);
    top = &group;
  }
  return *top;
}

}  // namespace norra::benchmarks
