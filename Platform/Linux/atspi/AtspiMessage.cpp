#include "Platform/Linux/atspi/AtspiMessage.h"

#include <algorithm>
#include <string_view>

namespace norra::linux_desktop {
namespace {

// Enters a container of a message, and leaves it again.
class Inside {
 public:
  Inside(sd_bus_message* message, char type, const char* contents)
      : message_(message), isEntered_(sd_bus_message_enter_container(message, type, contents) > 0) {}
  ~Inside() {
    if (isEntered_) sd_bus_message_exit_container(message_);
  }
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;
  explicit operator bool() const { return isEntered_; }

 private:
  sd_bus_message* message_;
  bool isEntered_;
};

struct NextType {
  char type = 0;
  std::string_view contents;
};

NextType nextType(sd_bus_message* message) {
  char type = 0;
  const char* contents = nullptr;
  if (sd_bus_message_peek_type(message, &type, &contents) <= 0) return {};
  return {type, contents ? contents : ""};
}

// Reads with `read` here or inside the variant that stands here.
template <typename Value>
std::optional<Value> readPlainOrVariant(sd_bus_message* message,
                                        std::optional<Value> (*read)(sd_bus_message*, NextType)) {
  if (!message) return std::nullopt;
  const auto next = nextType(message);
  if (next.type != SD_BUS_TYPE_VARIANT) return read(message, next);
  const std::string contents(next.contents);
  const Inside variant(message, SD_BUS_TYPE_VARIANT, contents.c_str());
  if (!variant) return std::nullopt;
  return read(message, nextType(message));
}

std::string cut(std::string_view text) {
  if (text.size() <= longestText) return std::string(text);
  auto length = longestText;
  while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
  return std::string(text.substr(0, length));
}

template <typename Wire>
std::optional<Wire> readBasic(sd_bus_message* message, char type) {
  Wire value{};
  if (sd_bus_message_read_basic(message, type, &value) <= 0) return std::nullopt;
  return value;
}

template <typename Wire, typename Value>
std::optional<Value> readAs(sd_bus_message* message, char type) {
  const auto value = readBasic<Wire>(message, type);
  if (!value) return std::nullopt;
  return static_cast<Value>(*value);
}

std::optional<std::string> readPlainText(sd_bus_message* message, NextType next) {
  if (next.type != SD_BUS_TYPE_STRING && next.type != SD_BUS_TYPE_OBJECT_PATH) return std::nullopt;
  const auto text = readBasic<const char*>(message, next.type);
  if (!text) return std::nullopt;
  return cut(*text);
}

std::optional<std::int64_t> readPlainInteger(sd_bus_message* message, NextType next) {
  switch (next.type) {
    case SD_BUS_TYPE_BYTE: return readAs<std::uint8_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_BOOLEAN: return readAs<int, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_INT16: return readAs<std::int16_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_UINT16: return readAs<std::uint16_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_INT32: return readAs<std::int32_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_UINT32: return readAs<std::uint32_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_INT64: return readAs<std::int64_t, std::int64_t>(message, next.type);
    case SD_BUS_TYPE_UINT64: return readAs<std::uint64_t, std::int64_t>(message, next.type);
    default: return std::nullopt;
  }
}

std::optional<double> readPlainNumber(sd_bus_message* message, NextType next) {
  if (next.type == SD_BUS_TYPE_DOUBLE) return readBasic<double>(message, next.type);
  const auto integer = readPlainInteger(message, next);
  if (!integer) return std::nullopt;
  return static_cast<double>(*integer);
}

std::optional<AtspiReference> readPlainReference(sd_bus_message* message, NextType next) {
  if (next.type != SD_BUS_TYPE_STRUCT || next.contents != "so") return std::nullopt;
  const Inside structure(message, SD_BUS_TYPE_STRUCT, "so");
  const char* busName = nullptr;
  const char* path = nullptr;
  if (!structure || sd_bus_message_read(message, "so", &busName, &path) <= 0) return std::nullopt;
  return AtspiReference{cut(busName), cut(path)};
}

// Reads at most `limit` items of an array of `contents`.
template <typename Item, typename Read>
std::optional<std::vector<Item>> readList(sd_bus_message* message, NextType next, const char* contents, Read read,
                                          std::size_t limit = longestList) {
  if (next.type != SD_BUS_TYPE_ARRAY || next.contents != contents) return std::nullopt;
  const Inside array(message, SD_BUS_TYPE_ARRAY, contents);
  if (!array) return std::nullopt;
  std::vector<Item> items;
  while (items.size() < limit) {
    std::optional<Item> item = read(message);
    if (!item) break;
    items.push_back(std::move(*item));
  }
  return items;
}

std::optional<std::vector<AtspiReference>> readPlainReferences(sd_bus_message* message, NextType next) {
  return readList<AtspiReference>(message, next, "(so)", &readReference);
}

std::optional<std::vector<std::string>> readPlainTexts(sd_bus_message* message, NextType next) {
  return readList<std::string>(message, next, "s", &readText);
}

std::optional<std::vector<std::int32_t>> readPlainIntegers(sd_bus_message* message, NextType next) {
  return readList<std::int32_t>(message, next, "i",
                                [](auto* here) { return readBasic<std::int32_t>(here, SD_BUS_TYPE_INT32); });
}

std::optional<AtspiRelation> readRelation(sd_bus_message* message) {
  const Inside structure(message, SD_BUS_TYPE_STRUCT, "ua(so)");
  if (!structure) return std::nullopt;
  const auto type = readBasic<std::uint32_t>(message, SD_BUS_TYPE_UINT32);
  auto targets = readReferences(message);
  if (!type || !targets) return std::nullopt;
  return AtspiRelation{static_cast<AtspiRelationType>(*type), std::move(*targets)};
}

using TextPair = std::pair<std::string, std::string>;

std::optional<TextPair> readEntry(sd_bus_message* message) {
  const Inside entry(message, SD_BUS_TYPE_DICT_ENTRY, "ss");
  if (!entry) return std::nullopt;
  auto key = readText(message);
  auto value = readText(message);
  if (!key || !value) return std::nullopt;
  return TextPair{std::move(*key), std::move(*value)};
}

std::optional<AtspiRectangle> readPlainRectangle(sd_bus_message* message, NextType next) {
  if (next.type != SD_BUS_TYPE_STRUCT || next.contents != "iiii") return std::nullopt;
  AtspiRectangle result;
  if (sd_bus_message_read(message, "(iiii)", &result.x, &result.y, &result.width, &result.height) <= 0) {
    return std::nullopt;
  }
  return result;
}

std::optional<std::pair<std::int32_t, std::int32_t>> readPlainPair(sd_bus_message* message, NextType next) {
  if (next.type != SD_BUS_TYPE_STRUCT || next.contents != "ii") return std::nullopt;
  std::pair<std::int32_t, std::int32_t> result;
  if (sd_bus_message_read(message, "(ii)", &result.first, &result.second) <= 0) return std::nullopt;
  return result;
}

}  // namespace

AtspiReference firstTarget(const std::vector<AtspiRelation>& relations, AtspiRelationType type) {
  const auto found = std::ranges::find_if(
      relations, [&](const auto& relation) { return relation.type == type && !relation.targets.empty(); });
  return found != relations.end() ? found->targets.front() : AtspiReference{};
}

bool contains(const AtspiRectangle& place, CGPoint point) {
  return point.x >= place.x && point.y >= place.y && point.x < double{1} * place.x + place.width &&
         point.y < double{1} * place.y + place.height;
}

CGPoint centerOf(const AtspiRectangle& place) {
  return {double{1} * place.x + place.width / 2, double{1} * place.y + place.height / 2};
}

std::optional<std::string> readText(sd_bus_message* message) { return readPlainOrVariant(message, &readPlainText); }

std::optional<std::int64_t> readInteger(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainInteger);
}

std::optional<double> readNumber(sd_bus_message* message) { return readPlainOrVariant(message, &readPlainNumber); }

std::optional<AtspiReference> readReference(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainReference);
}

std::optional<std::vector<AtspiReference>> readReferences(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainReferences);
}

std::optional<std::uint64_t> readStates(sd_bus_message* message) {
  if (!message || nextType(message).contents != "u") return std::nullopt;
  const Inside array(message, SD_BUS_TYPE_ARRAY, "u");
  if (!array) return std::nullopt;
  std::uint64_t states = 0;
  for (int shift = 0; shift < 64; shift += 32) {
    const auto word = readBasic<std::uint32_t>(message, SD_BUS_TYPE_UINT32);
    if (!word) break;
    states |= static_cast<std::uint64_t>(*word) << shift;
  }
  return states;
}

std::optional<std::vector<std::string>> readTexts(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainTexts);
}

std::optional<std::vector<std::int32_t>> readIntegers(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainIntegers);
}

std::optional<AtspiAttributes> readAttributes(sd_bus_message* message) {
  if (!message) return std::nullopt;
  const auto entries = readList<TextPair>(message, nextType(message), "{ss}", &readEntry, maxEntries);
  if (!entries) return std::nullopt;
  return AtspiAttributes(entries->begin(), entries->end());
}

std::optional<std::vector<AtspiRelation>> readRelations(sd_bus_message* message) {
  if (!message) return std::nullopt;
  return readList<AtspiRelation>(message, nextType(message), "(ua(so))", &readRelation, maxEntries);
}

std::optional<AtspiRectangle> readRectangle(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainRectangle);
}

std::optional<std::pair<std::int32_t, std::int32_t>> readPair(sd_bus_message* message) {
  return readPlainOrVariant(message, &readPlainPair);
}

}  // namespace norra::linux_desktop
