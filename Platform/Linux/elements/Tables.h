// Rows, columns and cells. Tables that have cells only get their rows and columns made up here: the core goes from a
// cell to its row and from the row to its name, whatever the application's own tree looks like.
#pragma once

#include <optional>

#include "Platform/Linux/elements/AttributeContent.h"

namespace norra::linux_desktop {

class ElementView;

/// The row that a cell lies in, where its table has cells only; nothing for whatever else.
std::optional<ElementKey> madeUpRowOf(const ElementView& view);

AttributeResult columnsOf(const ElementView& table);
AttributeResult columnIndexRangeOf(const ElementView& cell);
AttributeResult rowIndexRangeOf(const ElementView& cell);
AttributeResult rowHeadersOf(const ElementView& cell);
AttributeResult selectedRowsOf(const ElementView& table);
AttributeResult selectedCellsOf(const ElementView& table);
AttributeResult selectedChildrenOf(const ElementView& container);

/// An attribute of a made-up row or column; `table` is the view of its table.
AttributeResult partAttribute(const ElementView& table, AtspiPart part, std::string_view attribute);

}  // namespace norra::linux_desktop
