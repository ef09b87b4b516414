#include "Platform/Linux/accessibility/FocusPicture.h"

#include <utility>

#include "Platform/Linux/accessibility/PicturedElement.h"

namespace norra::linux_desktop {
namespace {

// What an application needs to carry out what the user did.
constexpr std::uint64_t pauseAfterInputMicroseconds = 100'000;

// Of what they are called by themselves, controls tell. Others are called by what stays, or by a value that they tell
// of.
bool mayBeCalledOtherwiseUntold(const AtspiFacts& facts) {
  const auto role = static_cast<AtspiRole>(facts.role);
  const bool isAllItShows = facts.answered(Ask::childCount) && facts.childCount == 0 && !facts.name.empty();
  return role == AtspiRole::comboBox || (is(role, RoleKind::control) && !isAllItShows);
}

}  // namespace

class FocusPicture::Use final : public Registration {
 public:
  explicit Use(FocusPicture& picture) : picture_(picture) { ++picture_.uses_; }
  ~Use() override { picture_.endUse(); }

 private:
  FocusPicture& picture_;
};

FocusPicture::FocusPicture(AtspiSession& session, const ElementHandles& handles, AtspiEvents& events,
                           KeyRehearsal rehearse)
    : session_(session),
      handles_(handles),
      events_(events),
      rehearse_(std::move(rehearse)),
      change_(events.loop(), [this] { takeIfRenamed(); }) {}

std::unique_ptr<Registration> FocusPicture::use() { return std::make_unique<Use>(*this); }

void FocusPicture::endUse() {
  if (--uses_ == 0) follow({});
}

void FocusPicture::follow(const AtspiReference& focused) {
  focused_ = focused;
  mayBeCalledOtherwiseUntold_ = false;
  picture_.reset();
  element_.reset();
  if (focused.isNull()) return names_.reset();
  AtspiEventKind renamed{"object:property-change:accessible-name", "PropertyChange", "accessible-name", focused};
  names_ = events_.subscribe(std::move(renamed), [this](const AtspiEvent&) { change_.request(); });
}

void FocusPicture::take(const AtspiReference& focused) {
  if (!rehearse_ || uses_ == 0) return;
  if (focused != focused_) follow(focused);
  if (focused.isNull()) return;
  auto picture = std::make_shared<Picture>(Picture::Changing::kept);
  AXUIElement element(std::make_shared<PicturedElement>(session_, picture, handles_.element(focused)));
  session_.reader().expect(focused, Ask::childCount);
  if (!rehearse_(element)) return;
  picture->finish();
  const auto& facts = session_.reader().known(focused);
  mayBeCalledOtherwiseUntold_ = mayBeCalledOtherwiseUntold(facts);
  name_ = is(static_cast<AtspiRole>(facts.role), RoleKind::control) ? facts.name : std::string();
  picture_ = std::move(picture);
  element_ = std::move(element);
}

// What has no name of its own is called by what it holds.
void FocusPicture::takeIfRenamed() {
  const bool isNamed = picture_ && !name_.empty();
  if (!isNamed || session_.reader().read(focused_, Ask::name).name != name_) take(focused_);
}

void FocusPicture::noteValue(const AtspiReference& element) {
  if (element != focused_ || !picture_) return;
  const auto focused = handles_.element(element);
  auto& attributes = picture_->answersOf(focused).attributes;
  const auto known = attributes.find("AXValue");
  if (known == attributes.end()) return;
  auto value = focused.primitives().copyAttributeValue("AXValue");
  if (value.error == axError::success) known->second = std::move(value);
}

void FocusPicture::noteInput() {
  if (mayBeCalledOtherwiseUntold_) change_.requestAfter(pauseAfterInputMicroseconds);
}

std::optional<AXUIElement> FocusPicture::of(const AtspiReference& focused) {
  noteInput();
  return focused == focused_ ? element_ : std::nullopt;
}

}  // namespace norra::linux_desktop
