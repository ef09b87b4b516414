#include "NorraDataCollector/interpretation/NameSearch.h"

#include <utility>

#include "NorraDataCollector/elements/AccessibilityConstants.h"
#include "NorraDataCollector/elements/ElementAccess.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/RolePredicates.h"

namespace norra {
namespace {

using Result = std::optional<NameSearchResult>;

constexpr int maxVisitCount = 12;
constexpr int maxClimbLevel = 2;

/// Where the search stands when it comes to an element.
struct Visit {
  SearchDirections directions = SearchDirections::children;
  std::optional<AXUIElement> elementToSkip;
  /// How many elements were visited on the way here; by value, so each path has its own.
  int visitCount = 0;
  int climbLevel = 0;
};

class NameSearch {
 public:
  explicit NameSearch(bool imagesCount) : imagesCount_(imagesCount) {}

  Result search(const AXUIElement& element, Visit visit) const;

 private:
  Result searchElement(const AXUIElement& element, const std::string& role) const;
  Result searchChildren(const AXUIElement& element, const std::optional<std::string>& role, Visit& visit) const;
  Result searchParent(const AXUIElement& element, const std::string& role, const Visit& visit) const;

  bool imagesCount_;
};

Result named(const std::optional<AXUIElement>& element, const std::string& role,
             const AttributeNames& ignoredAttributes = {}) {
  auto name = collectName(element, ignoredAttributes);
  if (!name) return std::nullopt;
  return NameSearchResult{*element, *std::move(name), role};
}

Result namedByTitleElement(const AXUIElement& element, const std::string& role,
                           const AttributeNames& ignoredAttributes = {}) {
  return named(ax::titleElement(element), role, ignoredAttributes);
}

Result namedByTitleElementOrItself(const AXUIElement& element, const std::string& role,
                                   const AttributeNames& ignoredAttributes = {}) {
  if (auto result = namedByTitleElement(element, role, ignoredAttributes)) return result;
  return named(element, role, ignoredAttributes);
}

bool isControl(const AXUIElement& element, const std::string& role) {
  return isInteractive(role) || (role == role::unknown && hasInteractiveAction(ax::actions(element)));
}

bool isControlResult(const NameSearchResult& result, const std::optional<std::string>& roleOfParent) {
  return isInteractive(result.role) ||
         (roleOfParent == role::unknown && hasInteractiveAction(ax::actions(result.element)));
}

Result NameSearch::search(const AXUIElement& element, Visit visit) const {
  auto titled = namedByTitleElement(element, std::string(role::unknown));
  const auto role = ax::role(element);
  if (titled) {
    if (role) titled->role = *role;
    return titled;
  }
  if (auto result = role ? searchElement(element, *role) : std::nullopt) return result;
  if (auto result = searchChildren(element, role, visit)) return result;
  if (visit.directions == SearchDirections::both && role) return searchParent(element, *role, visit);
  return std::nullopt;
}

Result NameSearch::searchElement(const AXUIElement& element, const std::string& role) const {
  if (isControl(element, role)) {
    if (auto result = namedByTitleElementOrItself(element, role)) return result;
  }
  if (isText(role) || (imagesCount_ && role == role::image)) {
    if (auto result = named(element, role)) return result;
  }
  if (role == role::cell || role == role::row) {
    return namedByTitleElementOrItself(element, role, rowAndCellIgnoredAttributes);
  }
  return std::nullopt;
}

/// A text wins over a control, and the second control over the first, which alone may be a mere adornment.
Result NameSearch::searchChildren(const AXUIElement& element, const std::optional<std::string>& role,
                                  Visit& visit) const {
  const auto children = ax::children(element);
  Result control;
  for (const auto& child : children) {
    if (visit.visitCount >= maxVisitCount) break;
    if (visit.elementToSkip == child) continue;
    ++visit.visitCount;
    auto result = search(child, {SearchDirections::children, element, visit.visitCount, visit.climbLevel});
    if (!result) continue;
    if (!isControlResult(*result, role) || children.size() == 1 || control) return result;
    control = std::move(result);
  }
  return control;
}

Result NameSearch::searchParent(const AXUIElement& element, const std::string& role, const Visit& visit) const {
  const auto parent = ax::parent(element);
  if (!parent || visit.elementToSkip == parent || visit.climbLevel > maxClimbLevel) return std::nullopt;
  if (!canContinueSearch(role, false)) return std::nullopt;
  return search(*parent, {SearchDirections::both, element, visit.visitCount, visit.climbLevel + 1});
}

}  // namespace

std::optional<NameSearchResult> searchName(const AXUIElement& element, SearchDirections directions, bool imagesCount) {
  return NameSearch(imagesCount).search(element, {.directions = directions, .elementToSkip = {}});
}

}  // namespace norra
