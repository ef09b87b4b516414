// Roles and states by their AT-SPI numbers. Only the numbers are stable; the names changed between versions.
#pragma once

#include <cstdint>

namespace norra::linux_desktop {

enum class AtspiRole : std::uint32_t {
  alert = 2,
  checkBox = 7,
  checkMenuItem = 8,
  columnHeader = 10,
  comboBox = 11,
  dateEditor = 12,
  dial = 15,
  dialog = 16,
  fileChooser = 19,
  filler = 20,
  fontChooser = 22,
  frame = 23,
  icon = 26,
  image = 27,
  label = 29,
  layeredPane = 30,
  list = 31,
  listItem = 32,
  menu = 33,
  menuBar = 34,
  menuItem = 35,
  pageTab = 37,
  pageTabList = 38,
  panel = 39,
  passwordText = 40,
  popupMenu = 41,
  progressBar = 42,
  pushButton = 43,
  radioButton = 44,
  radioMenuItem = 45,
  rootPane = 46,
  rowHeader = 47,
  scrollBar = 48,
  scrollPane = 49,
  separator = 50,
  slider = 51,
  spinButton = 52,
  splitPane = 53,
  table = 55,
  tableCell = 56,
  tableColumnHeader = 57,
  tableRowHeader = 58,
  tearoffMenuItem = 59,
  terminal = 60,
  text = 61,
  toggleButton = 62,
  toolBar = 63,
  tree = 65,
  treeTable = 66,
  viewport = 68,
  window = 69,
  paragraph = 73,
  application = 75,
  autocomplete = 76,
  editBar = 77,
  entry = 79,
  documentFrame = 82,
  heading = 83,
  section = 85,
  link = 88,
  tableRow = 90,
  treeItem = 91,
  documentSpreadsheet = 92,
  documentWeb = 95,
  listBox = 98,
  grouping = 99,
  imageMap = 100,
  levelBar = 103,
  staticText = 116,
  pushButtonMenu = 129,
  switchControl = 130,
};

/// The numbers of AT-SPI's roles are below this.
inline constexpr std::uint32_t roleLimit = 140;

/// States as bits of AtspiFacts::states.
enum class AtspiState : std::uint8_t {
  active = 1,
  checked = 4,
  collapsed = 5,
  defunct = 6,
  editable = 7,
  expandable = 9,
  expanded = 10,
  focusable = 11,
  focused = 12,
  multiLine = 17,
  pressed = 20,
  selectable = 22,
  selected = 23,
  showing = 25,
  transient = 28,
  visible = 30,
  managesDescendants = 31,
  indeterminate = 32,
  hasPopup = 42,
};

constexpr bool hasState(std::uint64_t states, AtspiState state) {
  return ((states >> static_cast<unsigned>(state)) & 1U) != 0;
}

}  // namespace norra::linux_desktop
