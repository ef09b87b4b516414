#include "NorraDataCollector/interpretation/NameLists.h"

#include <utility>

#include "NorraBase/Text.h"
#include "NorraDataCollector/interpretation/NameSearch.h"

namespace norra {
namespace {

constexpr std::string_view separator = ", ";
constexpr std::string_view continuation = ", ...";
constexpr std::size_t brackets = 2;
constexpr std::size_t quotes = 2;

/// Elements without a name use up none of the budget, but looking for one takes the application's time.
constexpr std::size_t maxNamelessElements = 1000;

void appendQuoted(std::string& list, std::string_view name) {
  if (list.size() > 1) list += separator;
  list.append("\"").append(name).append("\"");
}

std::size_t roomForFirstName(bool isOnlyName) {
  return maxLogStringCount - brackets - quotes - (isOnlyName ? 0 : continuation.size());
}

/// Whether the name fits and leaves room for the closing bracket, and for the continuation unless it is the last.
bool hasRoom(std::string_view list, std::string_view name, bool isLast) {
  const auto reserve = separator.size() + quotes + 1 + (isLast ? 0 : continuation.size());
  return characterCount(list) + characterCount(name) + reserve <= maxLogStringCount;
}

std::optional<std::string> nameFoundBelow(const AXUIElement& element, bool imagesCount) {
  auto found = searchName(element, SearchDirections::children, imagesCount);
  if (!found) return std::nullopt;
  return std::move(found->name);
}

}  // namespace

std::optional<std::string> collectName(const RowOrColumn& part) {
  if (auto name = collectName({.titleElementOrElement = part.rowOrColumn}, rowAndCellIgnoredAttributes)) return name;
  return nameFoundBelow(part.rowOrColumn, false);
}

std::optional<std::string> collectName(const ListItemElement& item) {
  if (auto name = collectName(item.listItemElement)) return name;
  return nameFoundBelow(item.listItemElement, true);
}

std::string joinedLazilyCollectedNames(const std::function<std::optional<std::string>(std::size_t)>& collect,
                                       std::size_t elementsCount) {
  if (elementsCount == 0) return "[]";
  std::string list = "[";
  if (const auto first = trim(collect(0), roomForFirstName(elementsCount == 1))) appendQuoted(list, *first);
  std::size_t namelessElements = 0;
  for (std::size_t index = 1; index < elementsCount && namelessElements < maxNamelessElements; ++index) {
    const auto name = collect(index);
    if (!name) {
      ++namelessElements;
      continue;
    }
    if (!hasRoom(list, *name, index + 1 == elementsCount)) return list.append(continuation).append("]");
    appendQuoted(list, *name);
  }
  return list += ']';
}

std::string joinedLazilyCollectedRowOrColumnNames(const std::vector<AXUIElement>& elements) {
  return joinedLazilyCollectedNames([&](auto index) { return collectName({.rowOrColumn = elements[index]}); },
                                    elements.size());
}

std::string joinedLazilyCollectedListItemElementNames(const std::vector<AXUIElement>& elements) {
  return joinedLazilyCollectedNames([&](auto index) { return collectName({.listItemElement = elements[index]}); },
                                    elements.size());
}

}  // namespace norra
