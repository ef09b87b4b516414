#include <gmock/gmock.h>

#include "ScenarioPlayer/ScenarioFile.h"

namespace norra::scenario {
namespace {

using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""ns;
using testing::ElementsAre;

struct FaultyFile {
  const char* text;
  const char* pointer;
};

void expectRefused(const std::string& text, const std::string& pointer) {
  const auto read = readScenario(text);
  ASSERT_TRUE(std::holds_alternative<ScenarioFault>(read)) << text;
  EXPECT_EQ(std::get<ScenarioFault>(read).pointer, pointer) << text;
}

class FaultyFiles : public testing::TestWithParam<FaultyFile> {};

TEST_P(FaultyFiles, AreRefusedWithThePlaceOfTheFault) { expectRefused(GetParam().text, GetParam().pointer); }

INSTANTIATE_TEST_SUITE_P(
    Texts, FaultyFiles,
    testing::Values(FaultyFile{"", ""}, FaultyFile{"{", ""}, FaultyFile{"{} {}", ""}, FaultyFile{"[]", ""},
                    FaultyFile{"null", ""}, FaultyFile{"{\"steps\":[],}", ""}, FaultyFile{"{\"a\":\"\xFF\"}", ""},
                    FaultyFile{R"({"a":1e999})", ""}, FaultyFile{R"({"steps":[],"steps":[]})", "/steps"},
                    FaultyFile{R"({"elements":{"a/b~":{"attributes":{"x":1,"x":2}}}})",
                               "/elements/a~1b~0/attributes/x"},
                    FaultyFile{R"({"steps":[{"advance":1},{"click":{"at":[1,2],"at":[1,2]}}]})", "/steps/1/click/at"}));

INSTANTIATE_TEST_SUITE_P(
    Desktops, FaultyFiles,
    testing::Values(
        FaultyFile{R"({"application":[]})", "/application"}, FaultyFile{R"({"applications":{}})", "/applications"},
        FaultyFile{R"({"applications":[7]})", "/applications/0"},
        FaultyFile{R"({"applications":[{}]})", "/applications/0/pid"},
        FaultyFile{R"({"applications":[{"pid":0}]})", "/applications/0/pid"},
        FaultyFile{R"({"applications":[{"pid":1.0}]})", "/applications/0/pid"},
        FaultyFile{R"({"applications":[{"pid":"1"}]})", "/applications/0/pid"},
        FaultyFile{R"({"applications":[{"pid":2147483648}]})", "/applications/0/pid"},
        FaultyFile{R"({"applications":[{"pid":1},{"pid":2},{"pid":1}]})", "/applications/2/pid"},
        FaultyFile{R"({"applications":[{"pid":1,"name":"x"}]})", "/applications/0/name"},
        FaultyFile{R"({"applications":[{"pid":1,"localizedName":null}]})", "/applications/0/localizedName"},
        FaultyFile{R"({"applications":[{"pid":1,"element":"x"}]})", "/applications/0/element"},
        FaultyFile{R"({"applications":[{"pid":1,"observer":true}]})", "/applications/0/observer"},
        FaultyFile{R"({"elements":[]})", "/elements"}, FaultyFile{R"({"elements":{"a":null}})", "/elements/a"},
        FaultyFile{R"({"elements":{"a":{"role":"x"}}})", "/elements/a/role"},
        FaultyFile{R"({"elements":{"a":{"pid":null}}})", "/elements/a/pid"},
        FaultyFile{R"({"elements":{"a":{"actions":["x",1]}}})", "/elements/a/actions/1"},
        FaultyFile{R"({"elements":{"a":{"actionsError":0.5}}})", "/elements/a/actionsError"},
        FaultyFile{R"({"elements":{"a":{"notificationErrors":{"N":"x"}}}})", "/elements/a/notificationErrors/N"},
        FaultyFile{R"({"frontmost":1})", "/frontmost"}, FaultyFile{R"({"frontmost":"1"})", "/frontmost"},
        FaultyFile{R"({"screen":[{"frame":[0,0,1,1]}]})", "/screen/0/element"},
        FaultyFile{R"({"screen":[{"element":"systemWide"}]})", "/screen/0/frame"},
        FaultyFile{R"({"screen":[{"frame":[0,0,1],"element":"systemWide"}]})", "/screen/0/frame"},
        FaultyFile{R"({"screen":[{"frame":[0,0,1,"1"],"element":"systemWide"}]})", "/screen/0/frame/3"},
        FaultyFile{R"({"screen":[{"frame":[0,0,1,1],"element":"x"}]})", "/screen/0/element"},
        FaultyFile{R"({"nothingAtPosition":-3000000000})", "/nothingAtPosition"},
        FaultyFile{R"({"eventTap":0})", "/eventTap"},
        FaultyFile{R"({"roleDescriptions":{"AXButton/AXClose":1}})", "/roleDescriptions/AXButton~1AXClose"}));

std::string withAttribute(const std::string& value) {
  return R"({"elements":{"a":{"attributes":{"v":)" + value + "}}}}";
}

class FaultyAttributes : public testing::TestWithParam<FaultyFile> {};

TEST_P(FaultyAttributes, AreRefusedWithThePlaceOfTheFault) {
  expectRefused(withAttribute(GetParam().text), std::string("/elements/a/attributes/v") + GetParam().pointer);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FaultyAttributes,
    testing::Values(FaultyFile{"[]", ""}, FaultyFile{"{}", ""}, FaultyFile{R"({"text":"x"})", "/text"},
                    FaultyFile{R"({"url":"u","other":"o"})", ""}, FaultyFile{R"({"element":"b"})", "/element"},
                    FaultyFile{R"({"elements":"a"})", "/elements"},
                    FaultyFile{R"({"elements":["a","b"]})", "/elements/1"}, FaultyFile{R"({"url":1})", "/url"},
                    FaultyFile{R"({"range":[1]})", "/range"}, FaultyFile{R"({"range":[1,2.5]})", "/range/1"},
                    FaultyFile{R"({"range":[1,9223372036854775808]})", "/range/1"},
                    FaultyFile{R"({"point":[1,2,3]})", "/point"}, FaultyFile{R"({"other":null})", "/other"},
                    FaultyFile{R"({"error":"x"})", "/error"}, FaultyFile{R"({"nothing":false})", "/nothing"}));

class FaultySteps : public testing::TestWithParam<FaultyFile> {};

TEST_P(FaultySteps, AreRefusedWithThePlaceOfTheFault) {
  expectRefused(std::string(R"({"applications":[{"pid":1}],"steps":[{"advance":1},)") + GetParam().text + "]}",
                std::string("/steps/1") + GetParam().pointer);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, FaultySteps,
    testing::Values(
        FaultyFile{"7", ""}, FaultyFile{"{}", ""}, FaultyFile{R"({"start":"a","stop":"a"})", ""},
        FaultyFile{R"({"begin":"a"})", "/begin"}, FaultyFile{R"({"connect":1})", "/connect"},
        FaultyFile{R"({"connect":{"conforms":true}})", "/connect/client"},
        FaultyFile{R"({"connect":{"client":"a","conforms":1}})", "/connect/conforms"},
        FaultyFile{R"({"start":null})", "/start"}, FaultyFile{R"({"disconnect":["a"]})", "/disconnect"},
        FaultyFile{R"({"click":{}})", "/click/at"}, FaultyFile{R"({"click":{"at":[1]}})", "/click/at"},
        FaultyFile{R"({"click":{"at":[1,null]}})", "/click/at/1"},
        FaultyFile{R"({"click":{"at":[1,1],"button":"middle"}})", "/click/button"},
        FaultyFile{R"({"click":{"at":[1,1],"x":1}})", "/click/x"},
        FaultyFile{R"({"key":{"special":"upperArrow"}})", "/key/special"},
        FaultyFile{R"({"key":{"special":"f36"}})", "/key/special"},
        FaultyFile{R"({"key":{"special":"f0"}})", "/key/special"},
        FaultyFile{R"({"key":{"special":"f1x"}})", "/key/special"},
        FaultyFile{R"({"key":{"special":-1}})", "/key/special"},
        FaultyFile{R"({"key":{"special":1114112}})", "/key/special"},
        FaultyFile{R"({"key":{"special":13.5}})", "/key/special"},
        FaultyFile{R"({"key":{"modifiers":["shift","hyper"]}})", "/key/modifiers/1"},
        FaultyFile{R"({"key":{"modifiers":-1}})", "/key/modifiers"},
        FaultyFile{R"({"key":{"modifiers":"shift"}})", "/key/modifiers"},
        FaultyFile{R"({"key":{"repeat":1}})", "/key/repeat"}, FaultyFile{R"({"tapDisabled":"tired"})", "/tapDisabled"},
        FaultyFile{R"({"activate":2})", "/activate"}, FaultyFile{R"({"frontmost":2})", "/frontmost"},
        FaultyFile{R"({"terminate":2})", "/terminate"}, FaultyFile{R"({"terminate":null})", "/terminate"},
        FaultyFile{R"({"set":{}})", "/set/element"}, FaultyFile{R"({"set":{"element":"x"}})", "/set/element"},
        FaultyFile{R"({"set":{"element":"systemWide","attributes":{"v":[]}}})", "/set/attributes/v"},
        FaultyFile{R"({"set":{"element":"systemWide","actions":"AXPress"}})", "/set/actions"},
        FaultyFile{R"({"destroy":"x"})", "/destroy"}, FaultyFile{R"({"screen":[{}]})", "/screen/0/frame"},
        FaultyFile{R"({"notify":{"element":"systemWide"}})", "/notify/notification"},
        FaultyFile{R"({"notify":{"element":"systemWide","notification":"N","force":"y"}})", "/notify/force"},
        FaultyFile{R"({"advance":-0.001})", "/advance"}, FaultyFile{R"({"advance":"1"})", "/advance"},
        FaultyFile{R"({"advance":1e12})", "/advance"}, FaultyFile{R"({"advance":9000000000})", "/advance"}));

ScenarioFile readValid(const std::string& text) {
  auto read = readScenario(text);
  const auto* fault = std::get_if<ScenarioFault>(&read);
  if (fault != nullptr) ADD_FAILURE() << fault->pointer << ": " << fault->message;
  return fault != nullptr ? ScenarioFile{} : std::get<ScenarioFile>(std::move(read));
}

TEST(ScenarioFile, EveryKeyIsOptional) {
  const auto scenario = readValid("{}");
  EXPECT_TRUE(scenario.desktop.canObserveInput);
  EXPECT_TRUE(scenario.steps.empty());
}

TEST(ScenarioFile, WholeNumbersAreWholeHoweverTheyAreWritten) {
  const auto content = [](const std::string& value) {
    return std::get<NSNumber>(readValid(withAttribute(value)).desktop.elements.at("a").attributes.at("v"));
  };
  EXPECT_EQ(content("50.0"), NSNumber{std::int64_t{50}});
  EXPECT_EQ(content("5e1"), NSNumber{std::int64_t{50}});
  EXPECT_EQ(content("-9223372036854775808"), NSNumber{std::numeric_limits<std::int64_t>::min()});
  EXPECT_EQ(content("9223372036854775808"), NSNumber{0x1p63});
  EXPECT_EQ(content("0.5"), NSNumber{0.5});
  EXPECT_EQ(content("true"), NSNumber{true});
}

TEST(ScenarioFile, DecimalSecondsAddUpExactly) {
  const auto scenario = readValid(R"({"steps":[{"advance":0.1},{"advance":0.7},{"advance":0.2},{"advance":1e-9}]})");
  std::chrono::nanoseconds total{0};
  for (const auto& step : scenario.steps) total += std::get<Advance>(step).by;
  EXPECT_EQ(total, 1000ms + 1ns);
}

TEST(ScenarioFile, KeysAreReadByNameOrNumber) {
  const auto key = [](const std::string& fields) {
    return std::get<PressKey>(readValid(R"({"steps":[{"key":{)" + fields + "}}]}").steps.at(0)).key.value();
  };
  EXPECT_EQ(key(R"("special":"insertLine")").specialKey, NSEvent::SpecialKey::insertLine);
  EXPECT_EQ(key(R"("special":"f35")").specialKey, NSEvent::SpecialKey::f35);
  EXPECT_EQ(key(R"("special":63232)").specialKey, NSEvent::SpecialKey::upArrow);
  EXPECT_EQ(key(R"("modifiers":["shift","function"])").modifierFlags, 0x820000U);
  EXPECT_EQ(key(R"("modifiers":18446744073709551615)").modifierFlags, std::numeric_limits<std::uint64_t>::max());
}

}  // namespace
}  // namespace norra::scenario
