// What a desktop file says of the application that it starts.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace norra::linux_desktop {

struct DesktopFile {
  /// The file's name below its folder of applications, without ".desktop"; a "-" for every "/".
  std::string identifier;
  /// In the language of the user.
  std::string name;
  /// Of the windows that it opens; empty where the file does not say.
  std::string windowClass;
  /// As programOf gives it; empty too for a tool that runs in a terminal.
  std::string program;
  /// Whether menus show it.
  bool isDisplayed = true;
  /// Whether it stands for nothing and only hides the files of the same name in later folders.
  bool isHidden = false;
};

/// Nothing: it cannot be read, or starts no application. `locale` empty: the language of the environment.
std::optional<DesktopFile> readDesktopFile(const std::filesystem::path& path, std::string identifier,
                                           const std::string& locale = {});

/// The file name of the program that a command line runs, or of the script for an interpreter of scripts; empty where
/// there is none.
std::string programOf(const std::vector<std::string>& arguments);

/// Whether a program of this file name runs scripts.
bool isInterpreter(std::string_view program);

}  // namespace norra::linux_desktop
