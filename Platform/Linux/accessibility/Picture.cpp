#include "Platform/Linux/accessibility/Picture.h"

#include <algorithm>

namespace norra::linux_desktop {

PicturedAnswers& Picture::answersOf(const AXUIElement& element) {
  const auto found = std::ranges::find(answers_, element, &PicturedAnswers::element);
  return found != answers_.end() ? *found : answers_.emplace_back(element);
}

void Picture::keepFacts(AtspiFactsByElement facts) {
  facts_ = std::move(facts);
  for (auto& [element, known] : facts_) known.asked = known.asked - changingFacts;
}

}  // namespace norra::linux_desktop
