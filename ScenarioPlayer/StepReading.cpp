#include "ScenarioPlayer/StepReading.h"

#include <array>
#include <cmath>

#include "ScenarioPlayer/DesktopReading.h"
#include "ScenarioPlayer/KeyReading.h"

namespace norra::scenario {
namespace {

using simulated::PointerButton;
using simulated::ServiceOperation;

Step readConnect(const JsonCursor& cursor, const References& /*references*/) {
  if (cursor.value().is_string()) return Connect{cursor.text()};
  const JsonMembers connect(cursor, {"client", "conforms"});
  return Connect{connect.required("client").text(), connect.optional("conforms", &JsonCursor::boolean).value_or(true)};
}

template <ServiceOperation operation>
Step readCall(const JsonCursor& cursor, const References& /*references*/) {
  return CallService{cursor.text(), operation};
}

template <typename OfClient>
Step readClient(const JsonCursor& cursor, const References& /*references*/) {
  return OfClient{cursor.text()};
}

PointerButton readButton(const JsonCursor& cursor) {
  static constexpr std::array names{"left", "right", "other"};
  const auto found = std::ranges::find(names, cursor.text());
  if (found == names.end()) cursor.fault("expected left, right or other");
  return static_cast<PointerButton>(found - names.begin());
}

Step readClick(const JsonCursor& cursor, const References& /*references*/) {
  const JsonMembers click(cursor, {"at", "button"});
  const auto at = click.required("at").numbers(2);
  return Click{{at[0], at[1]}, click.optional("button", readButton).value_or(PointerButton::left)};
}

Step readPressKey(const JsonCursor& cursor, const References& /*references*/) { return PressKey{readKey(cursor)}; }

Step readTapDisabled(const JsonCursor& cursor, const References& /*references*/) {
  const auto reason = cursor.text();
  if (reason == "timeout") return DisableTaps{CGEventType::tapDisabledByTimeout};
  if (reason == "userInput") return DisableTaps{CGEventType::tapDisabledByUserInput};
  cursor.fault("expected timeout or userInput");
}

Step readActivate(const JsonCursor& cursor, const References& references) {
  return Activate{references.applicationOrNone(cursor)};
}

Step readFrontmost(const JsonCursor& cursor, const References& references) {
  return SetFrontmost{references.applicationOrNone(cursor)};
}

Step readTerminate(const JsonCursor& cursor, const References& references) {
  return Terminate{references.application(cursor)};
}

Step readSet(const JsonCursor& cursor, const References& references) {
  const JsonMembers set(cursor, {"element", "attributes", "actions"});
  const auto attributesOf = [&](const auto& value) { return readAttributes(value, references); };
  return SetElement{references.element(set.required("element")).identifier,
                    set.optional("attributes", attributesOf).value_or(simulated::Attributes{}),
                    set.optional("actions", &JsonCursor::texts)};
}

Step readDestroy(const JsonCursor& cursor, const References& references) {
  return Destroy{references.element(cursor).identifier};
}

Step readSetScreen(const JsonCursor& cursor, const References& references) {
  return SetScreen{readScreen(cursor, references)};
}

Step readNotify(const JsonCursor& cursor, const References& references) {
  const JsonMembers notify(cursor, {"element", "notification", "force"});
  return Notify{references.element(notify.required("element")).identifier, notify.required("notification").text(),
                notify.optional("force", &JsonCursor::boolean).value_or(false)};
}

constexpr std::chrono::seconds longestScenario{9'000'000'000};  // what the clock can count

Step readAdvance(const JsonCursor& cursor, const References& /*references*/) {
  constexpr long double nanosecondsPerSecond = 1e9L;
  const auto seconds = cursor.number();
  if (seconds < 0) cursor.fault("the clock does not go back");
  if (seconds > static_cast<double>(longestScenario.count())) cursor.fault("out of range");
  return Advance{std::chrono::nanoseconds(std::llroundl(seconds * nanosecondsPerSecond))};
}

struct StepForm {
  std::string_view key;
  Step (*read)(const JsonCursor&, const References&);
};

constexpr std::array stepForms{StepForm{"connect", readConnect},
                               StepForm{"start", readCall<ServiceOperation::start>},
                               StepForm{"stop", readCall<ServiceOperation::stop>},
                               StepForm{"pause", readCall<ServiceOperation::pause>},
                               StepForm{"resume", readCall<ServiceOperation::resume>},
                               StepForm{"disconnect", readClient<Disconnect>},
                               StepForm{"interrupt", readClient<Interrupt>},
                               StepForm{"click", readClick},
                               StepForm{"key", readPressKey},
                               StepForm{"tapDisabled", readTapDisabled},
                               StepForm{"activate", readActivate},
                               StepForm{"frontmost", readFrontmost},
                               StepForm{"terminate", readTerminate},
                               StepForm{"set", readSet},
                               StepForm{"destroy", readDestroy},
                               StepForm{"screen", readSetScreen},
                               StepForm{"notify", readNotify},
                               StepForm{"advance", readAdvance}};

Step readStep(const JsonCursor& cursor, const References& references) {
  const JsonMembers step(cursor);
  const auto keys = step.keys();
  if (keys.size() != 1) cursor.fault("expected exactly one key");
  const auto found = std::ranges::find(stepForms, keys[0], &StepForm::key);
  if (found == stepForms.end()) step[keys[0]].fault("unknown step");
  return found->read(step[keys[0]], references);
}

}  // namespace

std::vector<Step> readSteps(const JsonCursor& cursor, const References& references) {
  std::vector<Step> steps;
  std::chrono::nanoseconds left = longestScenario;
  for (const auto& item : cursor.items()) {
    steps.push_back(readStep(item, references));
    if (const auto* advance = std::get_if<Advance>(&steps.back())) left -= advance->by;
    if (left.count() < 0) item.child("advance").fault("the scenario is too long");
  }
  return steps;
}

}  // namespace norra::scenario
