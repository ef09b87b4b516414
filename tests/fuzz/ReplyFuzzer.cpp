// Any message as the reply of an application: every reader takes it or leaves it, within its bounds. The input
// describes the message: how its type is made, then what stands in it.
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "tests/fuzz/FuzzInput.h"

namespace norra::linux_desktop {
namespace {

constexpr int deepestType = 4;

/// Gives the input byte by byte; zeros when it is used up.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  bool isUsedUp() const { return left_ == 0; }
  std::uint8_t next() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }
  std::uint64_t number() {
    std::uint64_t number = 0;
    for (auto bytes = next() % 9; bytes > 0; --bytes) number = number << 8U | next();
    return number;
  }
  std::string text() {
    static constexpr std::array<std::string_view, 6> pieces{"a", "\u2022", "\uFFFC", "/org/a11y", ":1.7", "\xC3\xBC"};
    std::string text;
    for (auto count = next() % 8; count > 0; --count) text += pieces[next() % pieces.size()];
    return next() == 255 ? std::string(longestText + 7, 'x') + text : text;
  }

 private:
  const std::uint8_t* data_;
  std::size_t left_;
};

std::string typeFrom(Input& input, int depth) {
  constexpr std::string_view simple = "soiuxtdbynq";
  const auto choice = input.next() % 16U;
  if (choice < simple.size() || depth == deepestType) return std::string(1, simple[choice % simple.size()]);
  if (choice == 11) return "v";
  if (choice <= 13) return "a" + typeFrom(input, depth + 1);
  if (choice == 14) return "a{s" + typeFrom(input, depth + 1) + "}";
  std::string members;
  for (auto count = 1 + input.next() % 4; count > 0; --count) members += typeFrom(input, depth + 1);
  return "(" + members + ")";
}

std::size_t lengthOfType(std::string_view types) {
  if (types.front() == 'a') return 1 + lengthOfType(types.substr(1));
  if (types.front() != '(' && types.front() != '{') return 1;
  std::size_t length = 1;
  while (types[length] != ')' && types[length] != '}') length += lengthOfType(types.substr(length));
  return length + 1;
}

void appendAll(sd_bus_message* message, std::string_view types, Input& input, int depth);

void appendContainer(sd_bus_message* message, char kind, const std::string& contents, Input& input, int depth) {
  if (sd_bus_message_open_container(message, kind, contents.c_str()) < 0) return;
  const auto count = kind == SD_BUS_TYPE_ARRAY ? input.next() % 8 * (input.next() == 255 ? 400 : 1) : 1;
  for (int i = 0; i < count; ++i) appendAll(message, contents, input, depth + 1);
  sd_bus_message_close_container(message);
}

void append(sd_bus_message* message, const std::string& type, Input& input, int depth) {
  switch (type.front()) {
    case 's': sd_bus_message_append_basic(message, 's', input.text().c_str()); return;
    case 'o': sd_bus_message_append_basic(message, 'o', input.next() % 2 == 0 ? "/" : AtspiReference::nullPath); return;
    case 'b': {
      const int truth = input.next() % 2;
      sd_bus_message_append_basic(message, 'b', &truth);
      return;
    }
    case 'v':
      return appendContainer(message, 'v', depth < deepestType ? typeFrom(input, depth + 1) : "s", input, depth);
    case 'a': return appendContainer(message, 'a', type.substr(1), input, depth);
    case '(': return appendContainer(message, 'r', type.substr(1, type.size() - 2), input, depth);
    case '{': return appendContainer(message, 'e', type.substr(1, type.size() - 2), input, depth);
    default: {
      const auto number = input.number();
      sd_bus_message_append_basic(message, type.front(), &number);
    }
  }
}

void appendAll(sd_bus_message* message, std::string_view types, Input& input, int depth) {
  while (!types.empty()) {
    const auto length = lengthOfType(types);
    append(message, std::string(types.substr(0, length)), input, depth);
    types.remove_prefix(length);
  }
}

/// Messages are made for a connection; this one leads nowhere.
BusPtr connectionToNobody() {
  std::array<int, 2> ends{};
  sd_bus* bus = nullptr;
  fuzz::require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0 && sd_bus_new(&bus) >= 0 &&
                    sd_bus_set_fd(bus, ends[0], ends[0]) >= 0 && sd_bus_start(bus) >= 0,
                "a connection can be made");
  return BusPtr(bus);
}

/// Null: what was to be made is longer than the protocol allows.
MessagePtr messageFrom(sd_bus* connection, Input& input) {
  sd_bus_message* handle = nullptr;
  sd_bus_message_new_method_call(connection, &handle, "a.b", "/a", "a.b", "C");
  MessagePtr message(handle);
  while (!input.isUsedUp()) appendAll(handle, typeFrom(input, 0), input, 0);
  return sd_bus_message_seal(handle, 1, 0) >= 0 ? std::move(message) : nullptr;
}

template <typename Reader>
auto read(sd_bus_message* message, Reader reader) {
  sd_bus_message_rewind(message, 1);
  return reader(message);
}

void checkTexts(sd_bus_message* message) {
  const auto fits = [](const std::string& text) { return text.size() <= longestText; };
  fuzz::require(fits(read(message, readText).value_or("")), "a text keeps to its bound");
  const auto texts = read(message, readTexts).value_or(std::vector<std::string>{});
  fuzz::require(texts.size() <= longestList && std::ranges::all_of(texts, fits), "a list of texts keeps to its bounds");
  fuzz::require(read(message, readAttributes).value_or(AtspiAttributes{}).size() <= maxEntries, "so do attributes");
}

void checkLists(sd_bus_message* message) {
  const auto references = read(message, readReferences).value_or(std::vector<AtspiReference>{});
  fuzz::require(references.size() <= longestList, "a list of references keeps to its bound");
  const auto integers = read(message, readIntegers).value_or(std::vector<std::int32_t>{});
  fuzz::require(integers.size() <= longestList, "a list of integers keeps to its bound");
  const auto relations = read(message, readRelations).value_or(std::vector<AtspiRelation>{});
  fuzz::require(relations.size() <= maxEntries, "relations keep to their bound");
}

void check(sd_bus_message* message) {
  checkTexts(message);
  checkLists(message);
  const auto integer = read(message, readInteger);
  fuzz::require(!integer || read(message, readNumber), "an integer is a number");
  read(message, readReference);
  read(message, readStates);
  read(message, readRectangle);
  read(message, readPair);
}

}  // namespace
}  // namespace norra::linux_desktop

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norra::linux_desktop;
  static const auto connection = connectionToNobody();
  Input input(data, std::min<std::size_t>(size, 4096));
  if (const auto message = messageFrom(connection.get(), input)) check(message.get());
  return 0;
}
