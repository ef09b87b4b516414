// The contents of AT-SPI messages as plain values. What an application sends is not to be trusted: a message of another
// shape gives nothing, and what is too large is cut.
#pragma once

#include <systemd/sd-bus.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Accessibility.h"
#include "Platform/Linux/atspi/AtspiReference.h"

namespace norra::linux_desktop {

/// The longest text that is kept, in bytes; a longer one is cut at the end of a character.
inline constexpr std::size_t longestText = 65536;
/// The most items that are kept of a list.
inline constexpr std::size_t longestList = 1024;
/// The most attributes, and the most relations, that are kept of one element.
inline constexpr std::size_t maxEntries = 64;

using AtspiAttributes = std::map<std::string, std::string, std::less<>>;

/// Those that are asked for, by AT-SPI's numbers; there are more.
enum class AtspiRelationType : std::uint32_t { labelFor = 1, labelledBy = 2, controllerFor = 3, describedBy = 18 };

struct AtspiRelation {
  AtspiRelationType type{};
  std::vector<AtspiReference> targets;
  bool operator==(const AtspiRelation&) const = default;
};

struct AtspiRectangle {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const AtspiRectangle&) const = default;
};

/// Null: there is no such relation, or it has no target.
AtspiReference firstTarget(const std::vector<AtspiRelation>& relations, AtspiRelationType type);

bool contains(const AtspiRectangle& place, CGPoint point);
/// Of whole pixels.
CGPoint centerOf(const AtspiRectangle& place);

/// One element of a message, read from where the message stands; a value inside a variant is as good as the value.
/// A null message gives nothing.
std::optional<std::string> readText(sd_bus_message* message);
/// Of any integer type; a Boolean is 0 or 1.
std::optional<std::int64_t> readInteger(sd_bus_message* message);
/// Of any number type.
std::optional<double> readNumber(sd_bus_message* message);
std::optional<AtspiReference> readReference(sd_bus_message* message);
std::optional<std::vector<AtspiReference>> readReferences(sd_bus_message* message);
/// The state set: bit n stands for the state n.
std::optional<std::uint64_t> readStates(sd_bus_message* message);
std::optional<std::vector<std::string>> readTexts(sd_bus_message* message);
std::optional<std::vector<std::int32_t>> readIntegers(sd_bus_message* message);
std::optional<AtspiAttributes> readAttributes(sd_bus_message* message);
std::optional<std::vector<AtspiRelation>> readRelations(sd_bus_message* message);
std::optional<AtspiRectangle> readRectangle(sd_bus_message* message);
/// Two integers in a structure.
std::optional<std::pair<std::int32_t, std::int32_t>> readPair(sd_bus_message* message);

}  // namespace norra::linux_desktop
