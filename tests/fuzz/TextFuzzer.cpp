// Any text as a name, and its lines as names to be joined. The first byte says how long it may be.
#include <utf8proc.h>

#include <memory>
#include <string>
#include <vector>

#include "NorraBase/Text.h"
#include "NorraDataCollector/interpretation/ElementNaming.h"
#include "NorraDataCollector/interpretation/NameLists.h"
#include "tests/fuzz/FuzzInput.h"

namespace norra::fuzz {
namespace {

void checkLengths(std::string_view text, std::size_t count) {
  const auto all = characterCount(text);
  const auto first = firstCharacters(text, count);
  require(text.starts_with(first), "the first characters are a beginning");
  require(characterCount(first) == std::min(count, all), "the first characters are as many as asked for");
  require(hasMoreCharactersThan(text, count) == (all > count), "more characters are more characters");
  require(all <= text.size(), "a character has a byte");
}

void checkTrimming(std::string_view text, std::size_t maxLength) {
  const auto trimmed = trim(std::string(text), maxLength);
  require(trimmed.has_value(), "a name stays a name");
  require(characterCount(*trimmed) <= maxLength, "a name is cut to its length");
  require(*trimmed == text || trimmed->ends_with("..."), "a cut is marked");
}

std::string normalised(const std::string& text, utf8proc_uint8_t* (*form)(const utf8proc_uint8_t*)) {
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> result(
      form(reinterpret_cast<const utf8proc_uint8_t*>(text.c_str())), &std::free);
  require(result != nullptr, "a text has its forms");
  return reinterpret_cast<const char*>(result.get());
}

void checkEquivalence(std::string_view text, std::size_t cut) {
  require(areCanonicallyEquivalent(text, text), "a text is itself");
  const std::string left(text.substr(0, cut));
  const std::string right(text.substr(std::min(cut, text.size())));
  if (!isValidUTF8(left) || !isValidUTF8(right) || text.find('\0') != text.npos) return;
  const bool areEqual = normalised(left, utf8proc_NFD) == normalised(right, utf8proc_NFD);
  require(areCanonicallyEquivalent(left, right) == areEqual, "equivalent texts have one decomposition");
  require(areCanonicallyEquivalent(right, left) == areEqual, "equivalence has no direction");
  // The library that composes takes this for the trailing consonant that it comes before.
  if (text.find("\u11A7") != text.npos) return;
  require(areCanonicallyEquivalent(left + right, normalised(left + right, utf8proc_NFC)), "a form is equivalent");
}

std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> found;
  while (!text.empty()) {
    const auto line = text.substr(0, text.find('\n'));
    found.push_back(line);
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return found;
}

/// A line "-" is an element without a name.
void checkList(std::string_view text) {
  const auto names = lines(text);
  std::size_t asked = 0;
  const auto list = joinedLazilyCollectedNames(
      [&](std::size_t index) -> std::optional<std::string> {
        require(index == asked++, "names are asked for one after the other");
        if (names.at(index) == "-") return std::nullopt;
        return std::string(names[index]);
      },
      names.size());
  require(characterCount(list) <= maxLogStringCount, "a list keeps to its budget");
  require(list.starts_with('[') && list.ends_with(']'), "a list has its brackets");
}

}  // namespace
}  // namespace norra::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norra;
  if (size == 0) return 0;
  const auto text = fuzz::textOf(data + 1, size - 1);
  fuzz::checkLengths(text, data[0]);
  fuzz::checkTrimming(text, std::max<std::size_t>(data[0], 3));
  fuzz::checkEquivalence(text, data[0]);
  fuzz::checkList(text);
  return 0;
}
