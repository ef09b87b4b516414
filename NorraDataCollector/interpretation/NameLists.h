// The names of several elements as one bounded text, such as ["Inbox", "Sent", ...]. Any thread.
//
// Somebody who selects everything selects thousands of rows, and each name may take the application a while. So names
// are asked for one by one and only while there is room for another; what does not fit ends the text with three dots.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "Platform/Accessibility.h"

namespace norra {

struct RowOrColumn {
  AXUIElement rowOrColumn;
};
struct ListItemElement {
  AXUIElement listItemElement;
};

/// The name of a row, a column or a cell: its title element's or its own, else that of something below it.
std::optional<std::string> collectName(const RowOrColumn& part);
/// The name of a list's item: its own, else that of something below it, images included.
std::optional<std::string> collectName(const ListItemElement& item);

/// Joins the names that `collect` gives for the indices from 0, asking only while there is room in the budget of
/// maxLogStringCount characters, and not without end for names that there are not. An index without a name is left out;
/// names are quoted and not escaped.
std::string joinedLazilyCollectedNames(const std::function<std::optional<std::string>(std::size_t)>& collect,
                                       std::size_t elementsCount);

std::string joinedLazilyCollectedRowOrColumnNames(const std::vector<AXUIElement>& elements);
std::string joinedLazilyCollectedListItemElementNames(const std::vector<AXUIElement>& elements);

}  // namespace norra
