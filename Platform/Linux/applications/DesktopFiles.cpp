#include "Platform/Linux/applications/DesktopFiles.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <utility>

namespace norra::linux_desktop {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, DesktopFile>;
using Match = const DesktopFile*;

constexpr std::string_view extension = ".desktop";

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), g_ascii_tolower);
  return text;
}

std::string withoutExtension(std::string text) {
  if (text.ends_with(extension)) text.resize(text.size() - extension.size());
  return text;
}

std::string lastPart(const std::string& identifier) { return identifier.substr(identifier.rfind('.') + 1); }

Match byIdentifier(const Files& files, const std::string& identifier) {
  const auto found = files.find(identifier);
  return found == files.end() || found->second.isHidden ? nullptr : &found->second;
}

// The only one that fits; among several the only one that menus show.
template <typename Predicate>
Match onlyOne(const Files& files, Predicate fits) {
  std::vector<Match> found;
  for (const auto& [identifier, file] : files) {
    if (!file.isHidden && fits(file)) found.push_back(&file);
  }
  if (found.size() > 1) std::erase_if(found, [](Match file) { return !file->isDisplayed; });
  return found.size() == 1 ? found.front() : nullptr;
}

Match byWindowClass(const Files& files, const std::string& name) {
  return onlyOne(files, [&](const DesktopFile& file) { return file.windowClass == name; });
}

Match byLowerCaseIdentifier(const Files& files, const std::string& name) {
  return byIdentifier(files, lowerCase(name));
}

Match byNoteOfIdentifier(const Files& files, const std::string& name) {
  return byIdentifier(files, withoutExtension(name));
}

Match byLastPart(const Files& files, const std::string& name) {
  return onlyOne(files, [sought = lowerCase(name)](const DesktopFile& file) {
    return lowerCase(lastPart(file.identifier)) == sought;
  });
}

Match byProgram(const Files& files, const std::string& name) {
  return onlyOne(files, [&](const DesktopFile& file) { return file.program == name; });
}

/// One way to find a file: which of the names, looked up how.
struct Way {
  std::string ApplicationNames::*name;
  Match (*find)(const Files& files, const std::string& name);
};

// What a window says of itself and a file confirms comes first; mere likeness comes last.
constexpr std::array ways{
    Way{&ApplicationNames::instanceName, byWindowClass},
    Way{&ApplicationNames::className, byWindowClass},
    Way{&ApplicationNames::instanceName, byIdentifier},
    Way{&ApplicationNames::className, byIdentifier},
    Way{&ApplicationNames::className, byLowerCaseIdentifier},
    Way{&ApplicationNames::gtkApplicationIdentifier, byIdentifier},
    Way{&ApplicationNames::kdeDesktopFile, byNoteOfIdentifier},
    Way{&ApplicationNames::sandboxIdentifier, byIdentifier},
    Way{&ApplicationNames::className, byLastPart},
    Way{&ApplicationNames::instanceName, byLastPart},
    Way{&ApplicationNames::program, byIdentifier},
    Way{&ApplicationNames::program, byProgram},
    Way{&ApplicationNames::program, byLastPart},
};

std::string identifierOf(const fs::path& folder, const fs::path& file) {
  auto identifier = withoutExtension(file.lexically_relative(folder));
  std::ranges::replace(identifier, '/', '-');
  return identifier;
}

}  // namespace

DesktopFiles::DesktopFiles(std::vector<fs::path> folders, std::string locale)
    : folders_(std::move(folders)), locale_(std::move(locale)) {}

std::vector<fs::path> DesktopFiles::foldersOfEnvironment() {
  std::vector<fs::path> folders{g_get_user_data_dir()};
  for (const auto* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
    folders.emplace_back(*folder);
  for (auto& folder : folders) folder /= "applications";
  return folders;
}

std::optional<DesktopFile> DesktopFiles::find(const ApplicationNames& names) {
  const std::lock_guard lock(mutex_);
  refresh();
  for (const auto& way : ways) {
    const auto& name = names.*way.name;
    if (const auto* found = name.empty() ? nullptr : way.find(files_, name)) return *found;
  }
  return std::nullopt;
}

std::uint64_t DesktopFiles::generation() {
  const std::lock_guard lock(mutex_);
  refresh();
  return generation_;
}

void DesktopFiles::refresh() {
  if (generation_ > 0 && !watch_.hasChanged()) return;
  ++generation_;
  files_.clear();
  for (const auto& folder : folders_) readFolder(folder);
}

void DesktopFiles::readFolder(const fs::path& folder) {
  watch_.add(folder);
  std::error_code error;
  const auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator entry(folder, options, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_directory(error)) watch_.add(entry->path());
    if (entry->path().extension() != extension) continue;
    const auto identifier = identifierOf(folder, entry->path());
    const bool isText = g_utf8_validate_len(identifier.data(), identifier.size(), nullptr) != 0;
    if (!isText || files_.contains(identifier)) continue;
    if (auto file = readDesktopFile(entry->path(), identifier, locale_)) files_.emplace(identifier, *std::move(file));
  }
}

}  // namespace norra::linux_desktop
