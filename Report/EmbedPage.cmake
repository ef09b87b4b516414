# cmake -DPAGE=DIRECTORY -DOUTPUT=FILE.cpp -P EmbedPage.cmake: the page with its style and its scripts, as a C++ text.
include(${PAGE}/Files.cmake)
file(READ ${PAGE}/report.html page)
file(READ ${PAGE}/report.css style)
set(script "")
foreach(file IN LISTS page_scripts)
  file(READ ${PAGE}/${file} part)
  string(APPEND script "${part}")
endforeach()
string(REPLACE "{{style}}" "${style}" page "${page}")
string(REPLACE "{{script}}" "${script}" page "${page}")
file(WRITE ${OUTPUT} "#include \"Report/ReportPage.h\"\n
namespace norra::report {\nconst std::string_view pageTemplate = R\"~page~(${page})~page~\";\n}  // namespace norra::report\n")
