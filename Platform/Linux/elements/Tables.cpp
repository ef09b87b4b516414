#include "Platform/Linux/elements/Tables.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/elements/RoleMapping.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr std::int64_t maxColumns = 256;
constexpr std::int64_t maxCellsOfARow = 64;
constexpr std::int64_t maxSelected = 64;
constexpr std::int64_t fewestColumnsOfSpreadsheet = 256;

struct CellPlace {
  std::int32_t row = 0;
  std::int32_t column = 0;
};

bool liesRightBelowTable(const ElementView& cell) {
  if (cell.role() != AtspiRole::tableCell) return false;
  const auto table = cell.parent();
  return is(table.role(), RoleKind::tableLike) && table.has(AtspiInterface::table);
}

std::optional<CellPlace> placeByIndex(const ElementView& cell) {
  const auto& facts = cell.need(Asks{Ask::parent, Ask::indexInParent});
  if (facts.indexInParent < 0) return std::nullopt;
  const auto index = static_cast<std::int32_t>(facts.indexInParent);
  const std::array<AtspiCall, 2> calls{AtspiCall{facts.parent, atspi::table, "GetRowAtIndex", {index}},
                                       AtspiCall{facts.parent, atspi::table, "GetColumnAtIndex", {index}}};
  const auto replies = cell.reader().exchange(calls);
  const auto row = readInteger(replies[0].message.get());
  const auto column = readInteger(replies[1].message.get());
  if (!row || !column || *row < 0 || *column < 0) return std::nullopt;
  return CellPlace{static_cast<std::int32_t>(*row), static_cast<std::int32_t>(*column)};
}

std::optional<CellPlace> ownPlace(const ElementView& cell) {
  if (!cell.has(AtspiInterface::tableCell)) return std::nullopt;
  const auto [row, column] = cell.need(Ask::cellPosition).cellPosition;
  if (row < 0 || column < 0) return std::nullopt;
  return CellPlace{row, column};
}

// Some cells cannot say their place, and the first one of GTK 3 takes its own for none.
std::optional<CellPlace> placeOf(const ElementView& cell) {
  const auto place = ownPlace(cell);
  return !place && liesRightBelowTable(cell) ? placeByIndex(cell) : place;
}

AttributeResult elementsNamed(const std::vector<AtspiReference>& references) {
  std::vector<ElementKey> elements;
  for (const auto& one : references) elements.push_back({one});
  return valueOf(std::move(elements));
}

std::vector<AtspiReference> referencesIn(const std::vector<AtspiReply>& replies) {
  std::vector<AtspiReference> references;
  for (const auto& reply : replies) {
    auto reference = readReference(reply.message.get());
    if (reference && !reference->isNull()) references.push_back(std::move(*reference));
  }
  return references;
}

std::vector<AtspiReference> callsForIndices(const ElementView& view, const char* interface, const char* member,
                                            std::int64_t count) {
  std::vector<AtspiCall> calls;
  for (std::int32_t i = 0; i < count; ++i) calls.push_back({view.reference(), interface, member, {i}});
  return referencesIn(view.reader().exchange(calls));
}

std::vector<AtspiReference> selectedElements(const ElementView& container) {
  const auto count = container.need(Ask::selectedChildCount).selectedChildCount;
  return callsForIndices(container, atspi::selection, "GetSelectedChild",
                         std::clamp<std::int64_t>(count, 0, maxSelected));
}

std::vector<AtspiReference> selectedOfRole(const ElementView& container, std::string_view role) {
  auto elements = selectedElements(container);
  std::vector<AtspiQuestion> questions;
  for (const auto& one : elements) questions.push_back({one, Ask::role});
  container.reader().read(questions);
  std::erase_if(elements, [&](const auto& one) { return mappedRole(container.other(one)).role != role; });
  return elements;
}

bool isView(const ElementView& container) {
  return !container.toolkit().viewsTellSelections && container.has(AtspiInterface::table) &&
         !container.has(AtspiInterface::selection);
}

// Some views do not say which of their items are selected, or say it of others.
std::vector<AtspiReference> selectedItemsOfView(const ElementView& container) {
  const auto noted = container.application().selectedItems.notedIn(container.reference());
  std::vector<AtspiQuestion> questions;
  for (const auto& item : noted) questions.push_back({item, Asks{Ask::states, Ask::indexInParent}});
  auto& reader = container.reader();
  reader.read(questions);
  std::vector<AtspiReference> selected;
  std::ranges::copy_if(noted, std::back_inserter(selected),
                       [&](const auto& item) { return hasState(reader.known(item).states, AtspiState::selected); });
  std::ranges::sort(selected, {}, [&](const auto& item) { return reader.known(item).indexInParent; });
  return selected;
}

std::vector<std::int32_t> rowsOf(const ElementView& container, const std::vector<AtspiReference>& items) {
  std::vector<std::int32_t> rows;
  for (const auto& item : items) {
    const auto place = placeOf(container.other(item));
    if (place && std::ranges::find(rows, place->row) == rows.end()) rows.push_back(place->row);
  }
  return rows;
}

AttributeResult partsOf(const ElementView& view, AtspiPart::Kind kind, const std::vector<std::int32_t>& indices) {
  std::vector<ElementKey> parts;
  for (const auto index : indices) parts.push_back({view.reference(), {kind, index}});
  return valueOf(std::move(parts));
}

// Such lists are tables of rows that are children.
AttributeResult childrenAtSelectedRows(const ElementView& list) {
  std::vector<AtspiCall> calls;
  for (const auto row : list.need(Ask::selectedRows).selectedRows) {
    if (calls.size() >= maxSelected) break;
    calls.push_back(childCall(list.reference(), row));
  }
  return elementsNamed(referencesIn(list.reader().exchange(calls)));
}

AttributeResult cellsOfRow(const ElementView& view, std::int32_t row) {
  const auto count = std::clamp<std::int64_t>(view.need(Ask::columnCount).columnCount, 0, maxCellsOfARow);
  std::vector<AtspiCall> calls;
  for (std::int32_t column = 0; column < count; ++column) {
    calls.push_back({view.reference(), atspi::table, "GetAccessibleAt", {row, column}});
  }
  const auto cells = referencesIn(view.reader().exchange(calls));
  for (const auto& cell : cells) view.reader().expect(cell, view.generalAsks());
  return elementsNamed(cells);
}

// Its rows and columns have no headers of their own, and their names are its cells' addresses.
bool isSpreadsheet(const ElementView& table) {
  if (table.need(Ask::columnCount).columnCount < fewestColumnsOfSpreadsheet) return false;
  return table.parent().role() == AtspiRole::documentSpreadsheet;
}

// A to Z, AA and so on.
std::string lettersOf(std::int32_t column) {
  constexpr std::int32_t letters = 26;
  std::string text(1, static_cast<char>('A' + column % letters));
  return column < letters ? text : lettersOf(column / letters - 1) + text;
}

AttributeResult headerOfColumn(const ElementView& view, std::int32_t column) {
  if (isSpreadsheet(view)) return elementNamed(view.reference(), {AtspiPart::Kind::column, column});
  const auto reply = view.reader().call({view.reference(), atspi::table, "GetColumnHeader", {column}});
  const auto header = readReference(reply.message.get());
  if (!header || header->isNull()) return noValue();
  return elementNamed(*header);
}

AttributeResult isRowSelected(const ElementView& view, std::int32_t row) {
  const auto reply = view.reader().call({view.reference(), atspi::table, "IsRowSelected", {row}});
  return truth(readInteger(reply.message.get()).value_or(0) != 0);
}

AttributeResult attributeOfSpreadsheetRow(std::int32_t row, std::string_view attribute) {
  if (attribute == "AXTitle") return valueOf(std::to_string(row + 1));
  if (attribute == "AXChildren") return noValue();
  return truth(false);
}

AttributeResult rowAttribute(const ElementView& view, std::int32_t row, std::string_view attribute) {
  if (attribute == "AXRole") return valueOf(std::string("AXRow"));
  if (attribute == "AXSubrole") {
    return valueOf(std::string(view.role() == AtspiRole::table ? "AXTableRow" : "AXOutlineRow"));
  }
  const bool mayTellOfCells = attribute == "AXTitle" || attribute == "AXChildren" || attribute == "AXSelected";
  if (mayTellOfCells && isSpreadsheet(view)) return attributeOfSpreadsheetRow(row, attribute);
  if (attribute == "AXChildren") return cellsOfRow(view, row);
  if (attribute == "AXSelected") return isRowSelected(view, row);
  if (attribute == "AXRowIndexRange") return valueOf(CFRange{row, 1});
  return unsupported();
}

AttributeResult columnAttribute(const ElementView& view, std::int32_t column, std::string_view attribute) {
  if (attribute == "AXRole") return valueOf(std::string("AXColumn"));
  if (attribute == "AXHeader") return headerOfColumn(view, column);
  if (attribute == "AXTitle" && isSpreadsheet(view)) return valueOf(lettersOf(column));
  if (attribute == "AXColumnIndexRange") return valueOf(CFRange{column, 1});
  return unsupported();
}

}  // namespace

std::optional<ElementKey> madeUpRowOf(const ElementView& view) {
  if (!liesRightBelowTable(view)) return std::nullopt;
  const auto place = placeOf(view);
  if (!place) return std::nullopt;
  return ElementKey{view.need(Ask::parent).parent, {AtspiPart::Kind::row, place->row}};
}

AttributeResult columnsOf(const ElementView& view) {
  if (!view.has(AtspiInterface::table)) return unsupported();
  const auto count = std::clamp<std::int64_t>(view.need(Ask::columnCount).columnCount, 0, maxColumns);
  std::vector<std::int32_t> indices;
  for (std::int32_t i = 0; i < count; ++i) indices.push_back(i);
  return partsOf(view, AtspiPart::Kind::column, indices);
}

AttributeResult columnIndexRangeOf(const ElementView& cell) {
  const auto place = placeOf(cell);
  return place ? valueOf(CFRange{place->column, 1}) : noValue();
}

AttributeResult rowIndexRangeOf(const ElementView& cell) {
  const auto place = placeOf(cell);
  return place ? valueOf(CFRange{place->row, 1}) : noValue();
}

AttributeResult rowHeadersOf(const ElementView& cell) {
  if (!cell.has(AtspiInterface::tableCell)) return unsupported();
  const auto reply = cell.reader().call({cell.reference(), atspi::tableCell, "GetRowHeaderCells", {}});
  return elementsNamed(readReferences(reply.message.get()).value_or(std::vector<AtspiReference>{}));
}

AttributeResult selectedRowsOf(const ElementView& view) {
  if (!is(view.role(), RoleKind::tableLike)) return unsupported();
  if (!view.toolkit().tellsSelectedRowsOfTrees && view.role() != AtspiRole::table && view.has(AtspiInterface::table)) {
    return partsOf(view, AtspiPart::Kind::row, rowsOf(view, selectedItemsOfView(view)));
  }
  if (!view.toolkit().showsWebPages && view.has(AtspiInterface::table)) {
    return partsOf(view, AtspiPart::Kind::row, view.need(Ask::selectedRows).selectedRows);
  }
  if (!view.has(AtspiInterface::selection)) return unsupported();
  return elementsNamed(selectedOfRole(view, "AXRow"));
}

AttributeResult selectedCellsOf(const ElementView& view) {
  if (!is(view.role(), RoleKind::tableLike)) return unsupported();
  if (isView(view)) return elementsNamed(selectedItemsOfView(view));
  if (!view.has(AtspiInterface::selection)) return unsupported();
  return elementsNamed(selectedOfRole(view, "AXCell"));
}

AttributeResult selectedChildrenOf(const ElementView& view) {
  if (view.has(AtspiInterface::selection)) return elementsNamed(selectedElements(view));
  if (!view.toolkit().viewsTellSelections && view.has(AtspiInterface::table)) return childrenAtSelectedRows(view);
  return unsupported();
}

AttributeResult partAttribute(const ElementView& view, AtspiPart part, std::string_view attribute) {
  if (attribute == "AXParent") return elementNamed(view.reference());
  if (part.kind == AtspiPart::Kind::row) return rowAttribute(view, part.index, attribute);
  return columnAttribute(view, part.index, attribute);
}

}  // namespace norra::linux_desktop
