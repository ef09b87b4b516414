#include "Platform/Linux/accessibility/FocusPicture.h"

#include <utility>

#include "Platform/Linux/accessibility/PicturedElement.h"

namespace norra::linux_desktop {
namespace {

// What an application needs to carry out what the user did.
constexpr std::uint64_t pauseAfterInputMicroseconds = 100'000;

// Others are called by what stays, or by a value that they tell of.
bool isCalledByWhatItDoes(AtspiRole role) { return is(role, RoleKind::control) || role == AtspiRole::comboBox; }

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
      change_(events.loop(), [this] { takeAnew(); }) {}

std::unique_ptr<Registration> FocusPicture::use() { return std::make_unique<Use>(*this); }

void FocusPicture::endUse() {
  if (--uses_ == 0) follow({});
}

void FocusPicture::follow(const AtspiReference& focused) {
  focused_ = focused;
  isCalledByWhatItDoes_ = false;
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
  if (!rehearse_(element)) return;
  picture->finish();
  isCalledByWhatItDoes_ = isCalledByWhatItDoes(static_cast<AtspiRole>(session_.reader().known(focused).role));
  picture_ = std::move(picture);
  element_ = std::move(element);
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
  if (isCalledByWhatItDoes_) change_.requestAfter(pauseAfterInputMicroseconds);
}

std::optional<AXUIElement> FocusPicture::of(const AtspiReference& focused) {
  noteInput();
  return focused == focused_ ? element_ : std::nullopt;
}

}  // namespace norra::linux_desktop
