// Texts as a person sees them: lengths count extended grapheme clusters, equality is canonical equivalence.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace norra {

/// Number of user-perceived characters. A byte that is not UTF-8 counts as one.
std::size_t characterCount(std::string_view text);

/// The first `count` characters, or the whole text if it has no more. Reads no further than it needs to.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Whether the text has more than `count` characters. Reads no further than it needs to.
inline bool hasMoreCharactersThan(std::string_view text, std::size_t count) {
  return firstCharacters(text, count).size() < text.size();
}

/// Whether two texts are canonically equivalent, such as a precomposed and a decomposed letter.
bool areCanonicallyEquivalent(std::string_view left, std::string_view right);

/// Whether two texts differ in the case of ASCII letters only.
bool equalsIgnoringCase(std::string_view left, std::string_view right);

bool isValidUTF8(std::string_view text);

}  // namespace norra
