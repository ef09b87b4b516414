// How the cost of one interaction grows with what an application presents. Each is measured whole and with its bare
// reads only; the difference is the core's own.
#include <benchmark/benchmark.h>

#include <functional>

#include "NorraDataCollector/accessibility/SelectionChanges.h"
#include "NorraDataCollector/accessibility/ValueChanges.h"
#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/interpretation/ClickClassification.h"
#include "NorraDataCollector/interpretation/NameLists.h"
#include "NorraDataCollector/interpretation/WebContext.h"
#include "benchmarks/Benchmarks.h"
#include "benchmarks/ClickScenes.h"

namespace norra::benchmarks {
namespace {

/// What happens once, again and again.
using Interaction = std::function<void()>;
/// Builds what is interacted with, of a size, and gives the interaction. The tree outlives it.
using Preparation = Interaction (*)(ConstantTree& tree, std::size_t size);

Interaction clickOn(const ConstantElement& element) {
  return [clicked = ConstantTree::handle(element)] {
    benchmark::DoNotOptimize(actionsForClick(clicked, MouseButton::left, false));
  };
}

std::string repeated(std::string_view character, std::size_t count) {
  std::string text;
  text.reserve(character.size() * count);
  while (count-- > 0) text += character;
  return text;
}

Interaction buttonWithLongName(ConstantTree& tree, std::size_t size) {
  return clickOn(tree.add(role::button, {{attribute::title, repeated("n", size)}}));
}

Interaction buttonWithLongNameBeyondASCII(ConstantTree& tree, std::size_t size) {
  return clickOn(tree.add(role::button, {{attribute::title, repeated("é", size)}}));
}

/// A text that is typed into, one character at a time.
Interaction longText(ConstantTree& tree, std::size_t size) {
  auto& field = tree.add(role::textField, {{attribute::value, repeated("t", size)}, {attribute::title, "Text"}});
  auto data = std::make_shared<FocusedElementData>(ConstantTree::handle(field));
  auto texts = std::make_shared<std::pair<std::string, std::string>>(repeated("t", size), repeated("t", size) + "u");
  return [data, texts] {
    data->setText(texts->second);
    std::swap(texts->first, texts->second);
    benchmark::DoNotOptimize(takeTextChange(*data, false));
  };
}

Interaction deepTree(ConstantTree& tree, std::size_t size) {
  auto& button = tree.add(role::button, {{attribute::title, "Save"}});
  addGroupsAbove(tree, button, static_cast<int>(size));
  return clickOn(button);
}

/// No element of the tree has a name.
Interaction deepSearch(ConstantTree& tree, std::size_t size) {
  auto* element = &tree.add("AXGroup");
  for (std::size_t level = 0; level < size; ++level) {
    auto& above = tree.add(level + 1 == size ? role::button : "AXGroup");
    above.set(attribute::children, std::vector{ConstantTree::handle(*element)});
    element = &above;
  }
  return clickOn(*element);
}

Interaction deepPage(ConstantTree& tree, std::size_t size) {
  auto& text = tree.add(role::textArea);
  auto& top = addGroupsAbove(tree, text, static_cast<int>(size));
  ConstantTree::setParent(top, tree.add(role::webArea, {{attribute::url, NSURL{"https://www.example.org/"}}}));
  return [element = ConstantTree::handle(text)] { benchmark::DoNotOptimize(parentWebAreaURL(element)); };
}

Interaction deepMenu(ConstantTree& tree, std::size_t size) {
  auto* item = &tree.add(role::menuItem, {{attribute::title, "Clear Menu"}});
  const auto clicked = clickOn(*item);
  for (std::size_t level = 1; level < size; ++level) {
    auto& above = tree.add(role::menuItem, {{attribute::title, "Open Recent"}});
    ConstantTree::setParent(*item, above);
    item = &above;
  }
  return clicked;
}

std::vector<AXUIElement> rows(ConstantTree& tree, std::size_t size, const ConstantElement::Attributes& attributes) {
  std::vector<AXUIElement> elements;
  while (size-- > 0) elements.push_back(ConstantTree::handle(tree.add(role::row, attributes)));
  return elements;
}

Interaction joinedNames(ConstantTree& tree, std::size_t size) {
  return [elements = rows(tree, size, {{attribute::title, "Lunch on Thursday"}})] {
    benchmark::DoNotOptimize(joinedLazilyCollectedRowOrColumnNames(elements));
  };
}

Interaction joinedNamesOfNamelessRows(ConstantTree& tree, std::size_t size) {
  return
      [elements = rows(tree, size, {})] { benchmark::DoNotOptimize(joinedLazilyCollectedRowOrColumnNames(elements)); };
}

Interaction selection(ConstantTree& tree, std::size_t size) {
  auto& table = tree.add(role::table, {{attribute::title, "Mail"}});
  table.set(attribute::selectedCells, rows(tree, size, {{attribute::title, "Lunch on Thursday"}}));
  const auto element = ConstantTree::handle(table);
  auto data = std::make_shared<FocusedElementData>(element);
  return [element, data] {
    data->setLastSelectedElements({});
    benchmark::DoNotOptimize(changedSelectedCells(element, data.get()));
  };
}

void whole(benchmark::State& state, Preparation prepare) {
  ConstantTree tree;
  const auto interact = prepare(tree, static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) interact();
}

void readOnly(benchmark::State& state, Preparation prepare) {
  ConstantTree tree;
  const auto interact = prepare(tree, static_cast<std::size_t>(state.range(0)));
  std::vector<Read> reads;
  ConstantElement::noteReads(&reads);
  interact();
  ConstantElement::noteReads(nullptr);
  for (auto _ : state) repeat(reads);
}

void add(const std::string& name, Preparation prepare, std::int64_t maximum) {
  const auto addOne = [&](const std::string& part, auto benchmark) {
    benchmark::RegisterBenchmark(("growth/" + part + "/" + name).c_str(),
                                 [=](auto& state) { benchmark(state, prepare); })
        ->RangeMultiplier(10)
        ->Range(10, maximum);
  };
  addOne("whole", whole);
  addOne("reads", readOnly);
}

}  // namespace

void registerGrowth() {
  add("characters of a name", buttonWithLongName, 10'000'000);
  add("characters of a name beyond ASCII", buttonWithLongNameBeyondASCII, 10'000'000);
  add("characters of a changed text", longText, 10'000'000);
  add("levels above a button", deepTree, 10'000);
  add("levels below a nameless button", deepSearch, 10'000);
  add("levels of a page", deepPage, 10'000);
  add("levels of a menu", deepMenu, 10'000);
  add("rows joined", joinedNames, 1'000'000);
  add("nameless rows joined", joinedNamesOfNamelessRows, 1'000'000);
  add("cells selected", selection, 1'000'000);
}

}  // namespace norra::benchmarks
