#include "Platform/Linux/elements/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "Platform/Linux/atspi/AtspiCalls.h"
#include "Platform/Linux/reading/ElementView.h"

namespace norra::linux_desktop {
namespace {

constexpr std::int64_t longestHiddenText = 4096;     // characters
constexpr std::int32_t longestMultiLineText = 4096;  // characters
constexpr std::string_view bullet = "\u2022";
constexpr std::array<std::string_view, 3> bullets{bullet, "\u25CF", "\u26AB"};

bool isSingleLine(const ElementView& view) { return !view.hasState(AtspiState::multiLine); }

// Of a hidden text that is given away, bullets are displayed.
bool displaysWhatItHolds(const ElementView& view) { return view.toolkit().givesHiddenTextAway && isSingleLine(view); }

// Other elements within a text stand in it as one character each.
std::string withoutEmbedded(std::string text) {
  constexpr std::string_view embedded = "\uFFFC";
  for (auto at = text.find(embedded); at != std::string::npos; at = text.find(embedded, at)) {
    text.erase(at, embedded.size());
  }
  return text;
}

// Nothing: it was not answered, or there is no text.
std::optional<std::string> textOf(const ElementView& view) {
  const auto ask = displaysWhatItHolds(view) ? Ask::displayedText : Ask::wholeText;
  if (isSingleLine(view)) {
    const auto& facts = view.needOnly(ask);
    if (!facts.answered(ask)) return std::nullopt;
    return ask == Ask::wholeText ? facts.wholeText : facts.displayedText;
  }
  const auto count = view.needOnly(Ask::characterCount).characterCount;
  const auto end = static_cast<std::int32_t>(std::clamp<std::int64_t>(count, 0, longestMultiLineText));
  const auto reply = view.reader().call({view.reference(), atspi::text, "GetText", {std::int32_t{0}, end}});
  return readText(reply.message.get());
}

// Of fields, since they have a text, it is not asked whether they have one.
bool mayHaveText(const ElementView& view) { return is(view.role(), RoleKind::field) || view.has(AtspiInterface::text); }

std::string bulletsFor(std::int64_t count) {
  std::string text;
  for (std::int64_t i = 0; i < std::min(count, longestHiddenText); ++i) text += bullet;
  return text;
}

bool noteHidden(const ElementView& view) {
  view.application().notePassword(view.reference().path);
  return true;
}

}  // namespace

bool isAllBullets(std::string_view text) {
  if (text.empty()) return false;
  while (!text.empty()) {
    const auto* match = std::ranges::find_if(bullets, [text](auto one) { return text.starts_with(one); });
    if (match == bullets.end()) return false;
    text.remove_prefix(match->size());
  }
  return true;
}

bool hidesText(const ElementView& view) {
  if (view.application().wasPassword(view.reference().path)) return true;
  if (view.roleError() != axError::success) return true;
  const auto role = view.role();
  if (role == AtspiRole::passwordText) return noteHidden(view);
  if (!is(role, RoleKind::field) || !displaysWhatItHolds(view)) return false;
  return isAllBullets(view.needOnly(Ask::displayedText).displayedText) && noteHidden(view);
}

AttributeResult textValue(const ElementView& view) {
  if (!mayHaveText(view)) return noValue();
  // It may hide its text by now.
  if (view.need(Ask::role).isFormer) return {axError::cannotComplete, {}};
  if (hidesText(view)) return valueOf(bulletsFor(view.needOnly(Ask::characterCount).characterCount));
  auto found = textOf(view);
  if (!found) return noValue();
  auto text = withoutEmbedded(*std::move(found));
  if (!is(view.role(), RoleKind::field) || !isAllBullets(text)) return valueOf(std::move(text));
  noteHidden(view);
  return valueOf(bulletsFor(view.needOnly(Ask::characterCount).characterCount));
}

}  // namespace norra::linux_desktop
