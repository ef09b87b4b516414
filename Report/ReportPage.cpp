#include "Report/ReportPage.h"

namespace norra::report {
namespace {

std::string escapedForHTML(std::string_view text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      default: escaped += character;
    }
  }
  return escaped;
}

/// Writes what stands before the marker and gives what stands behind it.
std::string_view writeUpTo(std::ostream& out, std::string_view page, std::string_view marker) {
  const auto place = page.find(marker);
  out << page.substr(0, place);
  return page.substr(place + marker.size());
}

}  // namespace

void writeReportPage(std::ostream& out, const PageHeading& heading, const std::vector<RecordedReport>& reports) {
  auto rest = writeUpTo(out, pageTemplate, titleMarker);
  out << escapedForHTML(heading.title);
  rest = writeUpTo(out, rest, dataMarker);
  out << pageData(heading, reports, summarize(reports)) << rest;
}

}  // namespace norra::report
