// norra-report: makes a page to look at from a recorded session.
#include <CLI/CLI.hpp>

#include "Report/ReportPage.h"
#include "Report/SessionProgram.h"

int main(int argc, char** argv) {
  namespace report = norra::report;
  report::SessionArguments arguments;
  std::string title = "Recorded session";
  CLI::App app(
      "Makes one HTML page from a session that norra-collect recorded. The page needs no network. Lines that cannot be "
      "read are named on standard error and passed over; the exit status is then 1.",
      "norra-report");
  report::addSessionOptions(app, arguments, "page");
  app.add_option("--title", title, "The page's title")->option_text("TEXT");
  const auto write = [&](std::ostream& out, const report::SessionContent& content) {
    report::writeReportPage(out, {title, content.source, content.unreadableLines}, content.reports);
  };
  return report::runSessionProgram(app, argc, argv, arguments, write);
}
