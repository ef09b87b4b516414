#include "Export/XesLog.h"

#include <compare>
#include <map>
#include <optional>
#include <string>

#include "Export/XesElements.h"
#include "NorraBase/TimeText.h"
#include "NorraDataCollector/model/ActionFields.h"
#include "NorraDataCollector/model/ActionWords.h"

namespace norra::exporting {
namespace {

using report::RecordedReport;

constexpr std::string_view head = R"(<?xml version="1.0" encoding="UTF-8"?>
<log xes.version="1849.2016" xes.features="">
<extension name="Concept" prefix="concept" uri="http://www.xes-standard.org/concept.xesext"/>
<extension name="Lifecycle" prefix="lifecycle" uri="http://www.xes-standard.org/lifecycle.xesext"/>
<extension name="Time" prefix="time" uri="http://www.xes-standard.org/time.xesext"/>
<global scope="trace">
<string key="concept:name" value=""/>
<string key="application" value=""/>
</global>
<global scope="event">
<string key="concept:name" value=""/>
<string key="lifecycle:transition" value="complete"/>
<date key="time:timestamp" value="1970-01-01T00:00:00.000000Z"/>
<string key="action" value="Undefined"/>
</global>
<classifier name="Activity" keys="concept:name"/>
<classifier name="Kind" keys="action"/>
)";

/// What tells one case from another; what a notion does not look at stays empty.
struct CaseKey {
  std::size_t collection = 0;
  std::size_t visit = 0;
  std::int32_t processID = 0;
  std::string application = {};
  std::string name = {};
  auto operator<=>(const CaseKey&) const = default;
};

struct Case {
  CaseKey key;
  std::vector<const RecordedReport*> reports;
};

/// Puts each report into its case.
class CaseList {
 public:
  explicit CaseList(CaseNotion notion) : notion_(notion) {}

  void add(const RecordedReport& report) {
    if (std::holds_alternative<CollectorData>(report.action)) return beginCollection();
    if (const auto* change = std::get_if<ChangeApplicationData>(&report.action)) follow(*change);
    const auto key = keyOfCase();
    const auto [known, isNew] = places_.try_emplace(key, cases_.size());
    if (isNew) cases_.push_back({key, {}});
    cases_[known->second].reports.push_back(&report);
  }

  const std::vector<Case>& cases() const { return cases_; }

 private:
  void beginCollection() { now_ = {.collection = now_.collection + 1, .visit = now_.visit + 1}; }

  void follow(const ChangeApplicationData& change) {
    now_ = {now_.collection, now_.visit + 1, change.processID, change.applicationName, change.fileDescription};
  }

  CaseKey keyOfCase() const {
    if (notion_ == CaseNotion::collection) return {.collection = now_.collection};
    auto key = now_;
    if (notion_ == CaseNotion::application) key.visit = 0;
    return key;
  }

  const CaseNotion notion_;
  CaseKey now_;
  std::vector<Case> cases_;
  std::map<CaseKey, std::size_t> places_;
};

std::string activityOf(const Action& action) {
  const auto words = wordsFor(action);
  return words.object && !words.object->empty() ? words.deed + " \"" + *words.object + "\"" : words.deed;
}

void writeMember(std::ostream& out, std::string_view key, const std::string& text) { writeString(out, key, text); }
void writeMember(std::ostream& out, std::string_view key, std::int32_t number) { writeInteger(out, key, number); }
void writeMember(std::ostream& out, std::string_view key, const URL& url) { writeString(out, key, url.absoluteString); }
void writeMember(std::ostream& out, std::string_view key, ToggleState state) {
  writeInteger(out, key, static_cast<int>(state));
}
void writeMember(std::ostream& out, std::string_view key, CollectorOperation operation) {
  writeString(out, key, rawValue(operation));
}
void writeMember(std::ostream& out, std::string_view key, MouseButton button) {
  writeString(out, key, rawValue(button));
}

template <typename Value>
void writeMember(std::ostream& out, std::string_view key, const std::optional<Value>& value) {
  if (value) writeMember(out, key, *value);
}

void writeEvent(std::ostream& out, const RecordedReport& report) {
  out << "<event>\n";
  writeString(out, "concept:name", activityOf(report.action));
  writeString(out, "lifecycle:transition", "complete");
  writeDate(out, "time:timestamp", iso8601(report.date));
  writeString(out, "action", rawValue(static_cast<CodingKeys>(report.action.index())));
  std::visit(
      [&]<typename Data>(const Data& data) {
        forEachField<Data>([&](const auto& field) { writeMember(out, field.name, data.*field.member); });
      },
      report.action);
  out << "</event>\n";
}

/// Its number makes the name one case's alone.
std::string nameOf(const Case& one, std::size_t number) {
  return (one.key.name.empty() ? "Case" : one.key.name) + " " + std::to_string(number);
}

void writeTrace(std::ostream& out, const Case& one, std::size_t number) {
  out << "<trace>\n";
  writeString(out, "concept:name", nameOf(one, number));
  writeString(out, "application", one.key.application);
  for (const auto* report : one.reports) writeEvent(out, *report);
  out << "</trace>\n";
}

}  // namespace

void writeXesLog(std::ostream& out, const std::vector<RecordedReport>& reports, CaseNotion notion) {
  CaseList list(notion);
  for (const auto& report : reports) list.add(report);
  out << head;
  std::size_t number = 0;
  for (const auto& one : list.cases()) writeTrace(out, one, ++number);
  out << "</log>\n";
}

}  // namespace norra::exporting
