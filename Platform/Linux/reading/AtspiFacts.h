// What can be asked of an element without saying more than which element, and what was answered.
//
// Each question is one call of the accessibility interface, with an answer of one shape. To make them values is what
// lets them be gathered, sent together and remembered: a set of them is a number, and what was answered is a record
// with a place for each. A question that needs an argument (the child at an index, the text of a range) is a call of
// its own and is never remembered.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "Platform/Linux/atspi/AtspiConnection.h"
#include "Platform/Linux/atspi/AtspiMessage.h"

namespace norra::linux_desktop {

/// One question.
enum class Ask : std::uint8_t {
  role,
  states,
  interfaces,
  name,
  description,
  parent,
  childCount,
  children,
  attributes,
  relations,
  indexInParent,
  localizedRoleName,
  accessibleId,
  helpText,
  actionCount,
  firstActionName,
  secondActionName,
  characterCount,
  currentValue,
  extents,
  windowExtents,
  documentURI,
  documentURL,
  linkURI,
  selectedChildCount,
  selectedRows,
  cellPosition,
  cellTable,
  columnCount,
  wholeText,
  displayedText,
  fieldsBelow,
};
inline constexpr std::size_t askCount = 32;

static_assert(askCount <= 32, "a set of them has 32 bits");

/// A set of questions.
class Asks {
 public:
  constexpr Asks() = default;
  constexpr Asks(Ask ask) : bits_(1U << static_cast<unsigned>(ask)) {}  // NOLINT(google-explicit-constructor)
  constexpr Asks(std::initializer_list<Ask> asks) {
    for (const auto ask : asks) *this |= ask;
  }

  static constexpr Asks fromBits(std::uint32_t bits) {
    Asks asks;
    asks.bits_ = bits;
    return asks;
  }
  constexpr std::uint32_t bits() const { return bits_; }

  constexpr bool has(Ask ask) const { return (bits_ & Asks(ask).bits_) != 0; }
  constexpr bool isEmpty() const { return bits_ == 0; }
  constexpr Asks& operator|=(Asks other) {
    bits_ |= other.bits_;
    return *this;
  }
  friend constexpr Asks operator|(Asks left, Asks right) { return left |= right; }
  /// What is in `left` alone.
  friend constexpr Asks operator-(Asks left, Asks right) {
    left.bits_ &= ~right.bits_;
    return left;
  }
  friend constexpr bool operator==(Asks, Asks) = default;

 private:
  std::uint32_t bits_ = 0;
};

/// The interfaces of an element that decide what else may be asked of it, as bits of AtspiFacts::interfaces.
enum class AtspiInterface : std::uint16_t {
  action = 1 << 0,
  collection = 1 << 1,
  component = 1 << 2,
  document = 1 << 3,
  editableText = 1 << 4,
  hyperlink = 1 << 5,
  selection = 1 << 6,
  table = 1 << 7,
  tableCell = 1 << 8,
  text = 1 << 9,
  value = 1 << 10,
};

/// What was answered so far. A fact that was not asked, or that failed, has its initial value.
struct AtspiFacts {
  Asks asked;
  std::array<AXError, askCount> errors{};  // of what was asked
  bool isFormer = false;                   // from before, since the element does not answer now

  std::uint32_t role = 0;
  std::uint64_t states = 0;
  std::uint16_t interfaces = 0;
  std::string name;
  std::string description;
  AtspiReference parent;
  std::int64_t childCount = 0;
  std::vector<AtspiReference> children;
  AtspiAttributes attributes;
  std::vector<AtspiRelation> relations;
  std::int64_t indexInParent = -1;
  std::string localizedRoleName;
  std::string accessibleId;
  std::string helpText;
  std::int64_t actionCount = 0;
  std::string firstActionName;
  std::string secondActionName;
  std::int64_t characterCount = 0;
  double currentValue = 0;
  AtspiRectangle extents;
  AtspiRectangle windowExtents;
  std::string documentURI;
  std::string documentURL;
  std::string linkURI;
  std::int64_t selectedChildCount = 0;
  std::vector<std::int32_t> selectedRows;
  std::pair<std::int32_t, std::int32_t> cellPosition{-1, -1};
  AtspiReference cellTable;
  std::int64_t columnCount = 0;
  std::string wholeText;
  /// The first paragraph as it stands on the screen.
  std::string displayedText;
  /// The first elements below that can be written in, at any depth. Few; whether there are more is not known.
  std::vector<AtspiReference> fieldsBelow;

  AXError error(Ask ask) const { return errors[static_cast<std::size_t>(ask)]; }
  bool answered(Ask ask) const { return asked.has(ask) && error(ask) == axError::success; }
  bool has(AtspiInterface interface) const { return (interfaces & static_cast<std::uint16_t>(interface)) != 0; }
};

/// The call that asks.
AtspiCall callFor(Ask ask, const AtspiReference& element);
/// Takes the answer in; one of another shape is a failure.
void store(Ask ask, const AtspiReply& reply, AtspiFacts& facts);

}  // namespace norra::linux_desktop
