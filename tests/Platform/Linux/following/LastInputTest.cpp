#include "Platform/Linux/following/LastInput.h"
#include "tests/Platform/Linux/TestElements.h"

namespace norra::linux_desktop {
namespace {

using std::chrono::hours;
using std::chrono::steady_clock;

constexpr CGPoint inField{150, 110};
constexpr CGPoint beside{10, 10};

class LastInputBesideAField : public FakeApplicationTest {
 protected:
  LastInputBesideAField() : FakeApplicationTest("Qt", "5.15.8") {
    application_.set("field", {.role = AtspiRole::text, .extents = {100, 100, 100, 20}});
    application_.set("list", {.role = AtspiRole::list, .extents = {100, 100, 100, 20}});
  }

  bool wasElsewhere(const std::string& key, steady_clock::duration followedBefore) {
    elements_.epoch.begin();
    return input_.wasElsewhere(view(key), steady_clock::now() - followedBefore);
  }

  LastInput input_;
};

TEST_F(LastInputBesideAField, WasElsewhereAfterAPressThatGaveItTheFocusOrLiesOutside) {
  EXPECT_FALSE(wasElsewhere("field", hours(1)));
  input_.notePress(inField, false);
  EXPECT_FALSE(wasElsewhere("field", hours(1)));
  EXPECT_TRUE(wasElsewhere("field", -hours(1)));
  input_.notePress(beside, false);
  EXPECT_TRUE(wasElsewhere("field", hours(1)));
  EXPECT_FALSE(wasElsewhere("list", hours(1)));
}

TEST_F(LastInputBesideAField, IsWhatIsTypedAndWhatIsPressedInAMenu) {
  input_.notePress(beside, true);
  EXPECT_FALSE(wasElsewhere("field", hours(1)));
  input_.notePress(beside, false);
  input_.noteKey();
  EXPECT_FALSE(wasElsewhere("field", hours(1)));
}

TEST_F(LastInputBesideAField, WasOutsideAListAfterAPressBesideItOrOnTheHeaderOfAColumn) {
  const auto view = [this](const std::string& key) {
    elements_.epoch.begin();
    return ElementView(elements_.session.reader(), application_.reference(key));
  };
  application_.set("header", {.role = AtspiRole::columnHeader});
  input_.notePress(inField, false);
  EXPECT_FALSE(input_.wasOutside(view("list")));
  input_.notePressed(view("header"), {});
  EXPECT_TRUE(input_.wasOutside(view("list")));
  input_.notePress(beside, false);
  EXPECT_TRUE(input_.wasOutside(view("list")));
  input_.noteKey();
  EXPECT_FALSE(input_.wasOutside(view("list")));
}

TEST_F(LastInputBesideAField, KnowsWhatWasPressedAlsoWhenTheButtonIsReleasedOnSomethingElse) {
  elements_.epoch.begin();
  const auto press = [&](bool isInPopUp) {
    input_.notePress(inField, isInPopUp);
    for (const auto* key : {"field", "list"}) {
      input_.notePressed({elements_.session.reader(), application_.reference(key)}, {});
    }
    return input_.pressed();
  };
  const auto pressed = press(false);
  ASSERT_TRUE(pressed);
  EXPECT_EQ(pressed->element, application_.reference("field"));
  EXPECT_FALSE(press(true)) << "drawn to an item of a menu, it chooses that";
}

TEST_F(LastInputBesideAField, WasAChoiceUntilSomethingElseIsDone) {
  const auto box = application_.reference("box");
  const auto choose = [&] {
    elements_.epoch.begin();
    input_.notePress(beside, true);
    input_.notePressed({elements_.session.reader(), application_.reference("list")}, box);
  };
  choose();
  EXPECT_TRUE(input_.wasChoiceIn(box));
  EXPECT_FALSE(input_.wasChoiceIn(application_.reference("field")));
  input_.noteKey();
  EXPECT_FALSE(input_.wasChoiceIn(box));
  choose();
  input_.notePress(inField, false);
  EXPECT_FALSE(input_.wasChoiceIn(box));
}

}  // namespace
}  // namespace norra::linux_desktop
