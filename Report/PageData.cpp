#include "Report/PageData.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <unordered_map>
#include <utility>

#include "NorraDataCollector/model/ActionFields.h"
#include "NorraDataCollector/model/ActionWords.h"

namespace norra::report {
namespace {

using json = nlohmann::ordered_json;

constexpr int absent = -1;

/// Each text once; a row refers to it by its place.
class TextTable {
 public:
  std::int64_t indexOf(const std::string& text) {
    const auto [known, isNew] = indices_.try_emplace(text, texts_.size());
    if (isNew) texts_.push_back(text);
    return static_cast<std::int64_t>(known->second);
  }

  std::int64_t indexOf(const std::optional<std::string>& text) { return text ? indexOf(*text) : absent; }

  json take() { return std::move(texts_); }

 private:
  json texts_ = json::array();
  std::unordered_map<std::string, std::size_t> indices_;
};

std::string textOf(const std::string& text) { return text; }
std::string textOf(std::int32_t number) { return std::to_string(number); }
std::string textOf(const URL& url) { return url.absoluteString; }
std::string textOf(ToggleState state) { return std::to_string(static_cast<int>(state)); }
std::string textOf(CollectorOperation operation) { return std::string(rawValue(operation)); }
std::string textOf(MouseButton button) { return std::string(rawValue(button)); }

template <typename Value>
std::optional<std::string> textOf(const std::optional<Value>& value) {
  return value ? std::optional(textOf(*value)) : std::nullopt;
}

/// One row for each report: the microseconds since the one before, kind, application, the three pieces of its words,
/// and its members in the order of its kind's fields.
class RowWriter {
 public:
  void write(const RecordedReport& report, std::optional<std::size_t> application, Duration sincePrevious) {
    const auto words = wordsFor(report.action);
    rows_.push_back(sincePrevious.count());
    rows_.push_back(report.action.index());
    rows_.push_back(application ? static_cast<std::int64_t>(*application) : absent);
    rows_.push_back(texts_.indexOf(words.deed));
    rows_.push_back(texts_.indexOf(words.object));
    rows_.push_back(texts_.indexOf(words.outcome));
    std::visit([this](const auto& data) { writeMembers(data); }, report.action);
  }

  json takeRows() { return std::move(rows_); }
  json takeTexts() { return texts_.take(); }

 private:
  template <typename Data>
  void writeMembers(const Data& data) {
    forEachField<Data>([&](const auto& field) { rows_.push_back(texts_.indexOf(textOf(data.*field.member))); });
  }

  json rows_ = json::array();
  TextTable texts_;
};

template <typename Data>
json fieldNames() {
  json names = json::array();
  forEachField<Data>([&](const auto& field) { names.push_back(field.name); });
  return names;
}

template <std::size_t... index>
json kinds(const SessionSummary& summary, std::index_sequence<index...>) {
  const auto kind = [&](auto key, json fields) {
    const auto words = wordsFor(key);
    return json{{"name", rawValue(key)},
                {"label", words.label},
                {"group", nameOf(words.group)},
                {"fields", std::move(fields)},
                {"count", summary.countOfKind[static_cast<std::size_t>(key)]}};
  };
  return json::array(
      {kind(static_cast<CodingKeys>(index), fieldNames<std::variant_alternative_t<index, Action>>())...});
}

json applications(const SessionSummary& summary) {
  json list = json::array();
  for (const auto& application : summary.applications) {
    list.push_back({{"name", application.name},
                    {"identifier", application.identifier},
                    {"timeInFront", application.timeInFront.count()},
                    {"switches", application.switches},
                    {"actions", application.actions}});
  }
  return list;
}

Instant beginOf(const std::vector<RecordedReport>& reports) {
  return reports.empty() ? Instant{} : reports.front().date;
}

/// Flat: application, begin and end of each, in microseconds since the first report.
json spans(const SessionSummary& summary, Instant origin) {
  json list = json::array();
  for (const auto& span : summary.spans) {
    list.push_back(span.application);
    list.push_back((span.begin - origin).count());
    list.push_back((span.end - origin).count());
  }
  return list;
}

json pauses(const SessionSummary& summary, Instant origin) {
  json list = json::array();
  for (const auto& pause : summary.pauses) {
    list.push_back((pause.begin - origin).count());
    list.push_back((pause.end - origin).count());
  }
  return list;
}

void writeActions(json& page, const std::vector<RecordedReport>& reports, const SessionSummary& summary) {
  RowWriter rows;
  auto previous = beginOf(reports);
  for (std::size_t index = 0; index < reports.size(); ++index) {
    rows.write(reports[index], summary.applicationOfReport[index], reports[index].date - previous);
    previous = reports[index].date;
  }
  page["rows"] = rows.takeRows();
  page["texts"] = rows.takeTexts();
}

/// Outside a JSON string none of these characters occurs, so each may be written as its escape.
std::string safeInScript(const std::string& text) {
  std::string safe;
  safe.reserve(text.size() + text.size() / 64);
  for (std::size_t index = 0; index < text.size(); ++index) {
    const auto rest = std::string_view(text).substr(index);
    const bool isSeparator = rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9");
    if (isSeparator) safe += rest[2] == '\xA8' ? "\\u2028" : "\\u2029";
    if (text[index] == '<') safe += "\\u003c";
    if (!isSeparator && text[index] != '<') safe += text[index];
    if (isSeparator) index += 2;
  }
  return safe;
}

}  // namespace

std::string pageData(const PageHeading& heading, const std::vector<RecordedReport>& reports,
                     const SessionSummary& summary) {
  const auto origin = beginOf(reports);
  json page{{"title", heading.title},
            {"source", heading.source},
            {"unreadableLines", heading.unreadableLines},
            {"begin", origin.time_since_epoch().count()},
            {"collected", summary.collected.count()}};
  page["kinds"] = kinds(summary, std::make_index_sequence<std::variant_size_v<Action>>{});
  page["applications"] = applications(summary);
  page["spans"] = spans(summary, origin);
  page["pauses"] = pauses(summary, origin);
  writeActions(page, reports, summary);
  return safeInScript(page.dump(-1, ' ', false, json::error_handler_t::replace));
}

}  // namespace norra::report
