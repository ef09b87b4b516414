#include <gmock/gmock.h>

#include <fstream>
#include <ostream>

#include "Platform/Linux/applications/DesktopFiles.h"
#include "tests/Platform/Linux/PrivateBus.h"

namespace norra::linux_desktop {
namespace {

namespace fs = std::filesystem;

class DesktopFilesTest : public testing::Test {
 protected:
  fs::path first() const { return root / "first"; }
  fs::path second() const { return root / "second"; }

  static void write(const fs::path& path, const std::string& lines) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << "[Desktop Entry]\nType=Application\nName=" << path.stem().string() << "\n" << lines << "\n";
  }

  std::string find(const ApplicationNames& names) {
    const auto found = files.find(names);
    return found ? found->identifier : "none";
  }
  std::string findClass(const std::string& className) { return find({"", className, "", "", "", ""}); }

  const TemporaryFolder temporary;
  const fs::path root = temporary.path();
  DesktopFiles files{{first(), second()}, "de_DE.UTF-8"};
};

/// By what names an application is known, and which file is found.
struct Search {
  std::string what;
  ApplicationNames names;
  std::string found;

  friend std::ostream& operator<<(std::ostream& out, const Search& search) { return out << search.what; }
};

class DesktopFileSearch : public DesktopFilesTest, public testing::WithParamInterface<Search> {
 protected:
  void SetUp() override {
    write(first() / "browser.desktop", "StartupWMClass=Strange-class\nExec=/usr/bin/browser-stable %U");
    write(first() / "org.example.Notes.desktop", "Exec=notes");
    write(first() / "org.kde.calculator.desktop", "Exec=kcalc");
    write(first() / "editor.desktop", "Exec=python3 -O /usr/share/editor/editor.py %F");
    write(first() / "viewer.desktop", "Exec=env LANG=C viewer-bin --open %f");
    write(first() / "office-write.desktop", "Exec=office --write");
    write(first() / "office-count.desktop", "Exec=office --count");
    write(first() / "tool.desktop", "Exec=/usr/bin/tool-bin\nTerminal=true");
    write(first() / "shell.desktop", "Exec=sh -c 'run something'");
    write(first() / "sandboxed.desktop", "Exec=/usr/bin/flatpak run org.example.Sandboxed");
    write(first() / "shown.desktop", "StartupWMClass=Twice");
    write(first() / "not-shown.desktop", "StartupWMClass=Twice\nNoDisplay=true");
    write(first() / "kde" / "nested.desktop", "Exec=nested-bin");
    write(first() / "deleted.desktop", "Hidden=true\nStartupWMClass=Deleted");
    write(second() / "deleted.desktop", "StartupWMClass=Deleted");
    std::ofstream(first() / "link.desktop") << "[Desktop Entry]\nType=Link\nName=Link\nURL=https://example.org\n";
    std::ofstream(first() / "broken.desktop") << "no desktop file at all";
  }
};

TEST_P(DesktopFileSearch, FindsTheFileThatFitsBest) { EXPECT_EQ(find(GetParam().names), GetParam().found); }

INSTANTIATE_TEST_SUITE_P(
    Searches, DesktopFileSearch,
    testing::Values(
        Search{"the window's class", {"", "Strange-class", "", "", "", ""}, "browser"},
        Search{"the window's instance", {"Strange-class", "Other", "", "", "", ""}, "browser"},
        Search{"a class that is a file's name", {"", "org.example.Notes", "", "", "", ""}, "org.example.Notes"},
        Search{"a class in capitals", {"", "Browser", "", "", "", ""}, "browser"},
        Search{"the last part of a file's name", {"calculator", "Calculator", "", "", "", ""}, "org.kde.calculator"},
        Search{"GTK's name", {"x", "X", "org.example.Notes", "", "", ""}, "org.example.Notes"},
        Search{"GTK's name of no file", {"browser", "X", "org.example.Gone", "", "", ""}, "browser"},
        Search{"KDE's name", {"x", "X", "", "org.kde.calculator.desktop", "", ""}, "org.kde.calculator"},
        Search{"KDE's name without an extension", {"x", "X", "", "org.kde.calculator", "", ""}, "org.kde.calculator"},
        Search{"the sandbox's name", {"x", "X", "", "", "org.example.Notes", ""}, "org.example.Notes"},
        Search{"the program", {"", "", "", "", "", "browser-stable"}, "browser"},
        Search{"the script of an interpreter", {"", "", "", "", "", "editor.py"}, "editor"},
        Search{"the program behind env", {"", "", "", "", "", "viewer-bin"}, "viewer"},
        Search{"the class before the program", {"", "Browser", "", "", "", "notes"}, "browser"},
        Search{"a program of several files", {"", "", "", "", "", "office"}, "none"},
        Search{"a program for the terminal", {"", "", "", "", "", "tool-bin"}, "none"},
        Search{"a shell", {"", "", "", "", "", "sh"}, "none"},
        Search{"the launcher of sandboxes", {"", "", "", "", "", "flatpak"}, "none"},
        Search{"of two files the one that menus show", {"", "Twice", "", "", "", ""}, "shown"},
        Search{"a file in a folder", {"", "", "", "", "", "nested-bin"}, "kde-nested"},
        Search{"a file that an earlier folder hides", {"", "Deleted", "", "", "", ""}, "none"},
        Search{"a link", {"", "link", "", "", "", ""}, "none"},
        Search{"a class of no file", {"", "Unheard-of", "", "", "", ""}, "none"}, Search{"no names", {}, "none"}));

TEST_F(DesktopFilesTest, TellTheNameInTheLanguageOfTheUser) {
  write(first() / "mail.desktop", "Name[de]=Post\nName[fr]=Courrier");
  EXPECT_EQ(files.find({"", "mail", "", "", "", ""})->name, "Post");
}

TEST_F(DesktopFilesTest, ReadAFileOfAnEarlierFolderOnly) {
  write(second() / "mail.desktop", "StartupWMClass=Later");
  write(first() / "mail.desktop", "StartupWMClass=Earlier");
  EXPECT_EQ(findClass("Earlier"), "mail");
  EXPECT_EQ(findClass("Later"), "none");
}

TEST_F(DesktopFilesTest, NoticeFilesThatComeChangeAndGo) {
  EXPECT_EQ(findClass("Mail-class"), "none");
  write(first() / "mail.desktop", "StartupWMClass=Mail-class");
  EXPECT_EQ(findClass("Mail-class"), "mail");
  write(first() / "mail.desktop", "StartupWMClass=Other-class");
  EXPECT_EQ(findClass("Mail-class"), "none");
  EXPECT_EQ(findClass("Other-class"), "mail");
  fs::remove(first() / "mail.desktop");
  EXPECT_EQ(findClass("Other-class"), "none");
}

TEST_F(DesktopFilesTest, NoticeFoldersThatComeLater) {
  DesktopFiles absent({root / "later" / "applications"}, "C");
  EXPECT_EQ(absent.find({"", "mail", "", "", "", ""}), std::nullopt);
  write(root / "later" / "applications" / "mail.desktop", "");
  EXPECT_TRUE(absent.find({"", "mail", "", "", "", ""}).has_value());
  write(root / "later" / "applications" / "kde" / "news.desktop", "");
  EXPECT_TRUE(absent.find({"", "kde-news", "", "", "", ""}).has_value());
}

TEST_F(DesktopFilesTest, PassOverAFileWhoseNameIsNoText) {
  write(first() / "caf\xE9.desktop", "StartupWMClass=Cafe");
  EXPECT_EQ(findClass("Cafe"), "none");
}

TEST_F(DesktopFilesTest, StayTheSameWhileNothingChanges) {
  write(first() / "mail.desktop", "");
  const auto generation = files.generation();
  EXPECT_EQ(files.generation(), generation);
  write(first() / "news.desktop", "");
  EXPECT_GT(files.generation(), generation);
}

}  // namespace
}  // namespace norra::linux_desktop
