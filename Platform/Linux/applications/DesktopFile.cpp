#include "Platform/Linux/applications/DesktopFile.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

namespace norra::linux_desktop {
namespace {

using namespace std::string_view_literals;

constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
// A name with digits and dots behind it, as in python3.11, is the same program.
constexpr std::array interpreters{"bash"sv, "dash"sv,   "electron"sv, "gjs"sv, "java"sv,  "mono"sv, "node"sv, "perl"sv,
                                  "php"sv,  "python"sv, "ruby"sv,     "sh"sv,  "tclsh"sv, "wine"sv, "wish"sv};

using KeyFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_unref)>;
using Text = std::unique_ptr<char, decltype(&g_free)>;

std::string owned(char* text) {
  const Text owner(text, g_free);
  return text == nullptr ? std::string() : text;
}

std::string read(const KeyFile& file, const char* key) {
  return owned(g_key_file_get_string(file.get(), group, key, nullptr));
}

bool isSet(const KeyFile& file, const char* key) {
  return g_key_file_get_boolean(file.get(), group, key, nullptr) != 0;
}

std::vector<std::string> argumentsIn(const std::string& commandLine) {
  gchar** parsed = nullptr;
  if (g_shell_parse_argv(commandLine.c_str(), nullptr, &parsed, nullptr) == 0) return {};
  const std::unique_ptr<gchar*, decltype(&g_strfreev)> owner(parsed, g_strfreev);
  std::vector<std::string> arguments;
  for (auto** argument = parsed; *argument != nullptr; ++argument) arguments.emplace_back(*argument);
  return arguments;
}

std::string fileName(const std::string& path) { return std::filesystem::path(path).filename(); }

bool isOption(const std::string& argument) { return argument.starts_with('-'); }
bool isAssignment(const std::string& argument) { return argument.find('=') != std::string::npos; }

std::string scriptOf(const std::vector<std::string>& arguments) {
  const bool isGivenAsText = !arguments.empty() && (arguments.front() == "-c" || arguments.front() == "-e");
  const auto script = std::ranges::find_if_not(arguments, isOption);
  return script == arguments.end() || isGivenAsText ? std::string() : fileName(*script);
}

}  // namespace

bool isInterpreter(std::string_view program) {
  const auto name = program.substr(0, program.find_last_not_of("0123456789.") + 1);
  return std::ranges::find(interpreters, name) != interpreters.end();
}

std::string programOf(const std::vector<std::string>& arguments) {
  auto argument = arguments.begin();
  if (argument != arguments.end() && fileName(*argument) == "env") {
    argument = std::find_if_not(argument + 1, arguments.end(),
                                [](const auto& text) { return isOption(text) || isAssignment(text); });
  }
  if (argument == arguments.end()) return {};
  const auto program = fileName(*argument);
  if (program == "flatpak") return {};
  return isInterpreter(program) ? scriptOf({argument + 1, arguments.end()}) : program;
}

std::optional<DesktopFile> readDesktopFile(const std::filesystem::path& path, std::string identifier,
                                           const std::string& locale) {
  const KeyFile file(g_key_file_new(), g_key_file_unref);
  if (g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) == 0) {
    return std::nullopt;
  }
  const bool isHidden = isSet(file, G_KEY_FILE_DESKTOP_KEY_HIDDEN);
  if (!isHidden && read(file, G_KEY_FILE_DESKTOP_KEY_TYPE) != G_KEY_FILE_DESKTOP_TYPE_APPLICATION) return std::nullopt;
  const bool isForTerminal = isSet(file, G_KEY_FILE_DESKTOP_KEY_TERMINAL);
  return DesktopFile{
      .identifier = std::move(identifier),
      .name = owned(g_key_file_get_locale_string(file.get(), group, G_KEY_FILE_DESKTOP_KEY_NAME,
                                                 locale.empty() ? nullptr : locale.c_str(), nullptr)),
      .windowClass = read(file, G_KEY_FILE_DESKTOP_KEY_STARTUP_WM_CLASS),
      .program = isForTerminal ? std::string() : programOf(argumentsIn(read(file, G_KEY_FILE_DESKTOP_KEY_EXEC))),
      .isDisplayed = !isSet(file, G_KEY_FILE_DESKTOP_KEY_NO_DISPLAY),
      .isHidden = isHidden,
  };
}

}  // namespace norra::linux_desktop
