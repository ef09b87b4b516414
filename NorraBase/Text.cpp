#include "NorraBase/Text.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

namespace norra {
namespace {

constexpr std::size_t unlimited = static_cast<std::size_t>(-1);

struct CodePoint {
  utf8proc_int32_t value = 0;
  std::size_t size = 0;
  bool isValid = true;
};

CodePoint firstCodePoint(std::string_view text) {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  utf8proc_int32_t value = 0;
  const auto size = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &value);
  if (size <= 0) return {0xFFFD, 1, false};
  return {value, static_cast<std::size_t>(size), true};
}

/// Where the first character of a text ends that is not empty.
std::size_t endOfFirstCharacter(std::string_view text) {
  auto previous = firstCodePoint(text);
  auto end = previous.size;
  utf8proc_int32_t state = 0;
  while (end < text.size()) {
    const auto next = firstCodePoint(text.substr(end));
    if (utf8proc_grapheme_break_stateful(previous.value, next.value, &state)) break;
    end += next.size;
    previous = next;
  }
  return end;
}

struct Prefix {
  std::size_t size = 0;
  std::size_t characters = 0;
};

bool isASCII(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// An ASCII character that is followed by another is a character of its own, a carriage return excepted.
bool standsAlone(std::string_view text) {
  return text.size() > 1 && isASCII(text[0]) && isASCII(text[1]) && text[0] != '\r';
}

Prefix prefix(std::string_view text, std::size_t count) {
  Prefix result;
  while (result.size < text.size() && result.characters < count) {
    const auto rest = text.substr(result.size);
    result.size += standsAlone(rest) ? 1 : endOfFirstCharacter(rest);
    ++result.characters;
  }
  return result;
}

/// Whether the text decomposes the same whatever stands before it.
bool standsForItself(std::string_view text) {
  if (text.empty() || isASCII(text.front())) return true;
  const auto first = firstCodePoint(text);
  const auto* const property = utf8proc_get_property(first.value);
  constexpr auto noDecomposition = std::numeric_limits<utf8proc_uint16_t>::max();
  return first.isValid && property->combining_class == 0 && property->decomp_seqindex == noDecomposition;
}

void takeOffCommonBeginning(std::string_view& left, std::string_view& right) {
  auto size = static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin());
  while (size > 0 && !(standsForItself(left.substr(size)) && standsForItself(right.substr(size)))) --size;
  left.remove_prefix(size);
  right.remove_prefix(size);
}

void takeOffCommonEnd(std::string_view& left, std::string_view& right) {
  const auto end = std::mismatch(left.rbegin(), left.rend(), right.rbegin(), right.rend()).first;
  auto size = static_cast<std::size_t>(end - left.rbegin());
  while (!standsForItself(left.substr(left.size() - size))) --size;
  left.remove_suffix(size);
  right.remove_suffix(size);
}

struct Free {
  void operator()(utf8proc_uint8_t* text) const noexcept { std::free(text); }
};

/// The canonical decomposition; nothing for a text that is not UTF-8.
std::unique_ptr<utf8proc_uint8_t[], Free> decomposed(std::string_view text, std::size_t& size) {
  utf8proc_uint8_t* result = nullptr;
  const auto length =
      utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                   &result, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE));
  size = length < 0 ? 0 : static_cast<std::size_t>(length);
  return std::unique_ptr<utf8proc_uint8_t[], Free>(length < 0 ? nullptr : result);
}

}  // namespace

std::size_t characterCount(std::string_view text) { return prefix(text, unlimited).characters; }

std::string_view firstCharacters(std::string_view text, std::size_t count) {
  return text.substr(0, prefix(text, count).size);
}

bool areCanonicallyEquivalent(std::string_view left, std::string_view right) {
  if (left == right) return true;
  takeOffCommonBeginning(left, right);
  takeOffCommonEnd(left, right);
  if (std::ranges::all_of(left, isASCII) && std::ranges::all_of(right, isASCII)) return false;
  std::size_t leftSize = 0;
  std::size_t rightSize = 0;
  const auto leftText = decomposed(left, leftSize);
  const auto rightText = decomposed(right, rightSize);
  return leftText && rightText &&
         std::equal(leftText.get(), leftText.get() + leftSize, rightText.get(), rightText.get() + rightSize);
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::ranges::equal(left, right, {}, lower, lower);
}

bool isValidUTF8(std::string_view text) {
  while (!text.empty()) {
    const auto next = isASCII(text.front()) ? CodePoint{.size = 1} : firstCodePoint(text);
    if (!next.isValid) return false;
    text.remove_prefix(next.size);
  }
  return true;
}

}  // namespace norra
