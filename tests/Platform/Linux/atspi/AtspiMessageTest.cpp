#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>

#include "Platform/Linux/atspi/AtspiMessage.h"
#include "Platform/Linux/runtime/SessionBus.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra::linux_desktop {
namespace {

using testing::SizeIs;

class Replies : public testing::Test {
 protected:
  Replies() {
    sd_bus* bus = nullptr;
    sd_bus_open_user(&bus);
    connection_.reset(bus);
  }

  // A message as it comes from the bus, with what `fill` puts in.
  MessagePtr message(const std::function<void(sd_bus_message*)>& fill) {
    sd_bus_message* handle = nullptr;
    sd_bus_message_new_method_call(connection_.get(), &handle, "a.b", "/a", "a.b", "C");
    MessagePtr message(handle);
    fill(handle);
    sd_bus_message_seal(handle, 1, 0);
    sd_bus_message_rewind(handle, 1);
    return message;
  }

  PrivateBus bus_;
  BusPtr connection_;
};

// What a message of each shape gives to each reader, "-" for nothing.
TEST_F(Replies, OfAnotherShapeGiveNothing) {
  struct Row {
    const char* shape;
    std::function<void(sd_bus_message*)> fill;
    const char* readable;  // t text, i integer, n number, r reference, R references, s states, T texts, a attributes,
                           // e relations, x rectangle, p pair, I integers
  };
  const Row rows[] = {
      {"nothing", [](auto*) {}, ""},
      {"s", [](auto* m) { sd_bus_message_append(m, "s", "x"); }, "t"},
      {"v(s)", [](auto* m) { sd_bus_message_append(m, "v", "s", "x"); }, "t"},
      {"i", [](auto* m) { sd_bus_message_append(m, "i", 1); }, "in"},
      {"v(i)", [](auto* m) { sd_bus_message_append(m, "v", "i", 1); }, "in"},
      {"b", [](auto* m) { sd_bus_message_append(m, "b", 1); }, "in"},
      {"d", [](auto* m) { sd_bus_message_append(m, "d", 1.5); }, "n"},
      {"(so)", [](auto* m) { sd_bus_message_append(m, "(so)", "a", "/b"); }, "r"},
      {"v(so)", [](auto* m) { sd_bus_message_append(m, "v", "(so)", "a", "/b"); }, "r"},
      {"(ss)", [](auto* m) { sd_bus_message_append(m, "(ss)", "a", "b"); }, ""},
      {"a(so)", [](auto* m) { sd_bus_message_append(m, "a(so)", 1, "a", "/b"); }, "R"},
      {"au", [](auto* m) { sd_bus_message_append(m, "au", 1, 1); }, "s"},
      {"as", [](auto* m) { sd_bus_message_append(m, "as", 1, "a"); }, "T"},
      {"ai", [](auto* m) { sd_bus_message_append(m, "ai", 1, 1); }, "I"},
      {"a{ss}", [](auto* m) { sd_bus_message_append(m, "a{ss}", 1, "a", "b"); }, "a"},
      {"a(ua(so))", [](auto* m) { sd_bus_message_append(m, "a(ua(so))", 1, 2, 1, "a", "/b"); }, "e"},
      {"(iiii)", [](auto* m) { sd_bus_message_append(m, "(iiii)", 1, 2, 3, 4); }, "x"},
      {"(ii)", [](auto* m) { sd_bus_message_append(m, "(ii)", 1, 2); }, "p"},
      {"v(v(s))", [](auto* m) { sd_bus_message_append(m, "v", "v", "s", "x"); }, ""},
  };
  const std::pair<char, std::function<bool(sd_bus_message*)>> readers[] = {
      {'t', [](auto* m) { return readText(m).has_value(); }},
      {'i', [](auto* m) { return readInteger(m).has_value(); }},
      {'n', [](auto* m) { return readNumber(m).has_value(); }},
      {'r', [](auto* m) { return readReference(m).has_value(); }},
      {'R', [](auto* m) { return readReferences(m).has_value(); }},
      {'s', [](auto* m) { return readStates(m).has_value(); }},
      {'T', [](auto* m) { return readTexts(m).has_value(); }},
      {'a', [](auto* m) { return readAttributes(m).has_value(); }},
      {'e', [](auto* m) { return readRelations(m).has_value(); }},
      {'x', [](auto* m) { return readRectangle(m).has_value(); }},
      {'p', [](auto* m) { return readPair(m).has_value(); }},
      {'I', [](auto* m) { return readIntegers(m).has_value(); }},
  };
  for (const auto& row : rows) {
    for (const auto& [letter, read] : readers) {
      const auto one = message(row.fill);
      const bool isReadable = std::string_view(row.readable).find(letter) != std::string_view::npos;
      EXPECT_EQ(read(one.get()), isReadable) << row.shape << " read as " << letter;
    }
  }
  for (const auto& [letter, read] : readers) EXPECT_FALSE(read(nullptr)) << letter;
}

TEST_F(Replies, KeepTheirContents) {
  const auto relations = message(
      [](auto* m) { sd_bus_message_append(m, "a(ua(so))", 2, 2, 1, ":1.5", "/a", 3, 2, ":1.5", "/b", ":1.6", "/c"); });
  EXPECT_THAT(*readRelations(relations.get()),
              testing::ElementsAre(AtspiRelation{AtspiRelationType::labelledBy, {{":1.5", "/a"}}},
                                   AtspiRelation{AtspiRelationType::controllerFor, {{":1.5", "/b"}, {":1.6", "/c"}}}));
  const auto states = message([](auto* m) { sd_bus_message_append(m, "au", 2, 1U << 25, 1U << 9); });
  EXPECT_EQ(readStates(states.get()), (std::uint64_t{1} << 25) | (std::uint64_t{1} << 41));
  const auto rectangle = message([](auto* m) { sd_bus_message_append(m, "(iiii)", -5, 6, 7, 8); });
  EXPECT_EQ(readRectangle(rectangle.get()), (AtspiRectangle{-5, 6, 7, 8}));
}

TEST_F(Replies, CutTextsOfMegabytesAtTheEndOfACharacter) {
  const std::string text = "x" + [] {
    std::string many;
    for (int i = 0; i < 500000; ++i) many += "\u00E9";
    return many;
  }();
  const auto cut = readText(message([&](auto* m) { sd_bus_message_append(m, "s", text.c_str()); }).get());
  EXPECT_EQ(*cut, text.substr(0, longestText - 1)) << "the last character would be half";
}

TEST_F(Replies, CutListsOfManyItems) {
  const auto many = message([](auto* m) {
    sd_bus_message_open_container(m, 'a', "(so)");
    for (int i = 0; i < 5000; ++i) sd_bus_message_append(m, "(so)", ":1.5", "/a");
    sd_bus_message_close_container(m);
  });
  EXPECT_THAT(*readReferences(many.get()), SizeIs(longestList));
}

}  // namespace
}  // namespace norra::linux_desktop
