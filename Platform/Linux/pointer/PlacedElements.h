// Elements and where they are, for toolkits whose own hit test misses some.
#pragma once

#include <optional>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {

struct PlacedElement {
  AtspiReference reference;
  AtspiRole role = AtspiRole::filler;
  std::uint64_t states = 0;
  /// Nothing where the element does not say, or is not on the screen.
  std::optional<AtspiRectangle> place;

  bool isAt(CGPoint point) const;
};

/// The first children of an element, with where they are: one wave beyond those that find them.
std::vector<PlacedElement> placedChildren(const ElementView& view, Coordinates coordinates);
/// The same of an element that has few for sure.
std::vector<PlacedElement> fewPlacedChildren(const ElementView& view, Coordinates coordinates);

/// The child at a point where the children lie one below the other, or in rows of so many at the most, found in a
/// number of waves that grows with the logarithm of their number; null: none.
AtspiReference childAtHeight(const ElementView& list, CGPoint point, std::size_t maxInARow = 1);

/// The deepest element at a point, `view` itself if none of its children is there. Later children lie above earlier
/// ones. A child that does not say where it is, is looked into.
AtspiReference deepestByPlace(const ElementView& view, CGPoint point, Coordinates coordinates);

/// Goes on from an answer of a toolkit's own hit test, on the screen, where it is one that may hold more: the header of
/// a table, or as deepestByPlace does. Costs nothing where the answer is a control, or has no children.
AtspiReference deeperByPlace(const ElementView& answer, CGPoint point);

/// The header of a column at a point; null: none, or this is no table.
AtspiReference headerAt(const ElementView& table, CGPoint point);

/// Asks the toolkit once for the element at a point, in these coordinates; what is asked of the element itself travels
/// along. Null: it says none.
AtspiReference askedElementAt(const ElementView& view, CGPoint point, Coordinates coordinates, Asks asks = Ask::role);

}  // namespace norra::linux_desktop
