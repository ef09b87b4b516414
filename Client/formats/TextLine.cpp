#include "Client/formats/TextLine.h"

#include "NorraBase/Text.h"
#include "NorraBase/TimeText.h"
#include "NorraDataCollector/model/ActionDecoding.h"
#include "NorraDataCollector/model/ActionWords.h"

namespace norra {
namespace {

struct Style {
  std::string_view begin;
  std::string_view end;
};
constexpr Style plain{"", ""};
constexpr Style dim{"\033[2m", "\033[0m"};
constexpr Style bold{"\033[1m", "\033[0m"};
constexpr Style red{"\033[31m", "\033[0m"};

std::string styled(std::string_view text, Style style) {
  return std::string(style.begin).append(text).append(style.end);
}

/// Each C0 or C1 control character becomes a space. The text is UTF-8.
std::string withoutControls(std::string text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const bool isC1 = byte == 0xC2 && at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xA0;
    if (isC1) text.erase(at, 1);
    if (isC1 || byte < 0x20 || byte == 0x7F) text[at] = ' ';
  }
  return text;
}

/// Cut or filled up to the width of the column of applications.
std::string inColumn(std::string_view name) {
  constexpr std::size_t width = 16;
  const auto shown = firstCharacters(name, width);
  return std::string(shown).append(width - characterCount(shown), ' ');
}

/// Such as: Changed text field "Subject" · Quarterly figures
std::string sentence(const ActionWords& words) {
  std::string text = words.deed;
  if (words.object) text += " \"" + *words.object + "\"";
  if (words.outcome) text += " · " + *words.outcome;
  return text;
}

/// Remembers the application that the reports between two switches belong to.
class TextFormatter {
 public:
  explicit TextFormatter(const FormatOptions& options) : usesColor_(options.usesColor) {}

  std::string operator()(const Report& report) {
    const auto decoded = decodeAction(report.event);
    std::string line = styled(localTimeOfDay(report.date), style(dim)) + "  ";
    if (const auto* error = std::get_if<DecodingError>(&decoded)) {
      return line + styled("unreadable report: " + withoutControls(error->message), style(red));
    }
    const auto& action = std::get<Action>(decoded);
    const auto words = withoutControls(sentence(wordsFor(action)));
    if (const auto* change = std::get_if<ChangeApplicationData>(&action)) {
      application_ = withoutControls(change->fileDescription);
      return line + styled(words, style(bold));
    }
    if (std::holds_alternative<CollectorData>(action)) application_.clear();  // which is in front next is not said
    return line + (application_.empty() ? "" : inColumn(application_) + "  ") + words;
  }

 private:
  Style style(Style wanted) const { return usesColor_ ? wanted : plain; }

  bool usesColor_;
  std::string application_;
};

}  // namespace

ReportFormatter newTextFormatter(const FormatOptions& options) { return TextFormatter(options); }

}  // namespace norra
