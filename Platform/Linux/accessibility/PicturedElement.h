// An element as a picture shows it, and with it all elements that it leads to.
#pragma once

#include <chrono>

#include "Platform/Linux/accessibility/Picture.h"
#include "Platform/Linux/reading/AtspiSession.h"

namespace norra::linux_desktop {

/// While the picture is taken, its answers are the element's own, and the picture keeps them. Afterwards they are the
/// picture's, without a call: names, roles, parents and whatever else tells which element it is. What tells what a
/// click did (ticked, chosen, focused, a value) is asked of the element anew, if the picture is one for that; where it
/// has gone or does not answer, a value is not known, and what was chosen by going is selected. What was not answered
/// for the picture is asked anew.
class PicturedElement final : public AXUIElementPrimitives {
 public:
  /// `session` must outlive this.
  PicturedElement(AtspiSession& session, std::shared_ptr<Picture> picture, AXUIElement element)
      : session_(session), picture_(std::move(picture)), element_(std::move(element)) {}

  AXResult<AXAttributeValue> copyAttributeValue(std::string_view attribute) const override;
  AXResult<std::vector<std::string>> copyAttributeNames() const override { return own().copyAttributeNames(); }
  AXResult<std::vector<std::string>> copyActionNames() const override;
  AXResult<std::optional<AXUIElement>> copyElementAtPosition(float x, float y) const override {
    return own().copyElementAtPosition(x, y);
  }
  AXResult<ProcessIdentifier> getPid() const override;
  AXUIElement createApplication(ProcessIdentifier process) const override { return own().createApplication(process); }
  std::optional<std::string> roleDescription(std::string_view role,
                                             std::optional<std::string_view> subrole) const override {
    return own().roleDescription(role, subrole);
  }
  bool isEqual(const AXUIElementPrimitives& other) const override;

 private:
  const AXUIElementPrimitives& own() const { return element_.primitives(); }
  PicturedAnswers& answers() const;
  AXResult<AXAttributeValue> take(std::string_view attribute) const;
  AXResult<AXAttributeValue> recall(std::string_view attribute) const;
  AXResult<AXAttributeValue> askAnew(std::string_view attribute) const;
  AXResult<AXAttributeValue> awaitOther(std::string_view attribute, const AXResult<AXAttributeValue>& before) const;
  bool mayBeLate(std::string_view attribute, const AXAttributeValue& before) const;
  bool isAskedAnew(std::string_view attribute) const;
  bool hasAnswer(std::string_view attribute, std::initializer_list<std::string_view> texts) const;
  bool hasRole(std::initializer_list<std::string_view> roles) const;
  AXResult<AXAttributeValue> inPicture(AXResult<AXAttributeValue> answer) const;
  AXUIElement inPicture(const AXUIElement& element) const;

  AtspiSession& session_;
  const std::shared_ptr<Picture> picture_;
  const AXUIElement element_;
  mutable PicturedAnswers* answers_ = nullptr;  // in the picture, once they were looked for
};

}  // namespace norra::linux_desktop
