// How toolkits differ in what their accessibles say of them.
//
// The accessibility interface is one, and what it says is believed until a toolkit is known to mean something else.
// Each such habit is a field here, whose default is what the interface promises; a toolkit is one value of this record,
// in a file of its own under toolkits/, with the functions that only it needs. Nothing outside that folder asks which
// toolkit an application was made with: it asks for the habit. A habit that a newer version of the toolkit has lost is
// told by the version, where the record is chosen (see Toolkits.h).
//
// A new field needs a toolkit that differs, and its test in tests/Platform/Linux/toolkits.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Linux/reading/AtspiFacts.h"
#include "Platform/Linux/reading/Roles.h"

namespace norra::linux_desktop {

class ElementView;
struct PointedAt;

/// What decides what an element is beside its own facts.
struct RoleSurroundings {
  /// Of the element that this one lies in; nothing where it was not asked for.
  std::optional<AtspiRole> parentRole = std::nullopt;
  /// Whether radio buttons lie in this element.
  bool holdsRadioButtons = false;
  /// Whether something in it can be written in.
  bool holdsField = false;
  /// Whether it is clicked as a whole, and holds nothing but a few texts, images and simple controls.
  bool isCard = false;
  /// Whether it is, or ever was, a field whose text is hidden.
  bool hidesText = false;
};

struct Toolkit {
  /// Its accessibles are, or may be, those of web pages: their attributes tell much, and their containers may be
  /// clicked.
  bool showsWebPages = false;
  /// The words of a page are children of their own, as other elements are.
  bool listsMereTexts = false;
  /// A role is called the same on every element, so that its name can be remembered.
  bool hasOneNameForEachRole = false;
  /// Hides what a field holds from who looks at the screen, and tells it to who asks for the text, or for its events.
  bool givesHiddenTextAway = false;
  /// Tells of all its elements whether they are on the screen; else of some only whether they may be.
  bool tellsWhatIsShowing = true;
  /// Tells when the number of a slider changes.
  bool tellsNumbers = true;
  /// Its lists, tables and trees tell what is selected in them; else only their items do, each of itself.
  bool viewsTellSelections = true;
  /// Its trees tell which of their rows are selected; else they mean others.
  bool tellsSelectedRowsOfTrees = true;
  /// An element may be labelled by a part of itself, which is then no label.
  bool isLabelledByOwnParts = true;
  /// Gives a button that holds its own label the name twice.
  bool joinsNameAndLabel = false;
  /// Puts the page of a notebook below the label of its tab, which is not what it looks like.
  bool putsPagesBelowTabs = false;
  /// What an expander shows and hides lies below it, in a box that holds its title too, which is not what a click on it
  /// is on.
  bool keepsExpandersInBoxes = false;
  /// Calls a combo box by what is chosen or written in it, and tells of that as of its name.
  bool namesComboBoxesByTheirValue = false;
  /// Tells of every element that gets the focus; else some fields show it only by where they are written into.
  bool tellsFocusOfAllFields = true;
  /// What it tells to have the focus has it; else items also say so that become the current ones of lists, tables and
  /// trees without it.
  bool tellsFocusOnlyWhereItIs = true;
  /// Says where its elements are on the screen; else only where they are in their window.
  bool saysPlacesOnScreen = true;
  /// Says of what is on the screen that it is showing.
  bool saysWhatIsShown = true;
  /// Where children lie one above the other, the first is on top; else the last.
  bool firstChildIsTopmost = false;
  /// Says where the items of its menus are; else where they would be if the menu lay elsewhere.
  bool saysPlacesOfMenuItems = true;
  /// The field of a spin button is an element of its own, and gets the focus.
  bool putsFieldsIntoSpinButtons = false;
  /// Says of a combo box which label it has; else only the label does, which lies beside it.
  bool labelsComboBoxes = true;
  /// Under Wayland its places count from where its shadow begins; else from where the window itself does.
  bool countsFromShadow = false;
  /// Its popovers are windows of their own, while their accessibles lie below what opens them.
  bool popoversAreWindows = false;
  /// How far around a control a point still belongs to it, in pixels, where it says the place of its content only.
  std::int32_t marginOfControls = 0;
  /// How many of the names of an element's actions are asked for together with their number.
  int actionsReadAhead = 1;
  /// Says of what is written into a combo box, not of the box, that it can be edited.
  bool hidesFieldsInComboBoxes = false;
  /// Answers a hit test with what it guesses to lie there, at first, and finds out meanwhile.
  bool guessesAtFirst = false;
  /// What is asked for the address of a page, and whether it is worth asking before it is needed.
  Ask pageAddress = Ask::documentURI;
  bool answersPageAddressAtOnce = false;
  std::string_view placeholderAttribute = "placeholder-text";

  /// The role that an element should have whose own role says little, and what that is known by. Null: none says so
  /// little.
  AtspiRole (*trueRole)(const AtspiFacts& facts) = nullptr;
  AtspiRole vagueRole = AtspiRole::filler;
  Asks knownBy = {};
  /// What has to be asked to know what an element is, beside what is asked in every toolkit. Null: nothing more.
  Asks (*asksForRole)(AtspiRole role) = nullptr;
  /// What an element is, where the toolkit means something else than its role says; an empty role: nothing else. Null:
  /// never.
  RoleAndSubrole (*ownRole)(const AtspiFacts& facts, const RoleSurroundings& surroundings) = nullptr;
  /// A name without what the toolkit puts into it or says instead of one. Null: as it is given.
  std::string_view (*properName)(std::string_view name, AtspiRole role) = nullptr;
  /// A name without what the element has opened and the toolkit adds to it. Null: as it is given.
  std::string (*nameWithoutOpened)(const ElementView& view, std::string name) = nullptr;
  /// An identifier that the application gave; empty: the toolkit made it up. Null: as it is given.
  std::string_view (*properIdentifier)(const AtspiFacts& facts) = nullptr;
  /// Whether a control is also the box around what it shows or switches, which is not what a click on it is on. Asked
  /// of what may be one by its role. Null: none is.
  bool (*isAroundContent)(const AtspiFacts& facts) = nullptr;
  /// What is chosen in a drop-down, where neither its text nor its list tells; empty: nothing is known. Null: never
  /// known.
  std::string (*chosenIn)(const ElementView& dropDown) = nullptr;
  /// What an element is called that has no name of its own; empty: nothing. Null: never.
  std::string (*nameOfNameless)(const ElementView& view) = nullptr;
  /// Whether an element below another lies in a window of its own, wherever it says that it is. Null: none does.
  bool (*liesInOwnWindow)(const AtspiFacts& facts) = nullptr;
  /// What that is known by, beside the role.
  Asks liesInOwnWindowBy = {};
  /// The element at a point of the screen, below the top-level accessible of the window there; the top-level where
  /// there is none. Null: the toolkit is asked once.
  AtspiReference (*elementAt)(const ElementView& topLevel, const PointedAt& at) = nullptr;
};

/// What has to be asked, beside its role, to know what an element is.
Asks asksForRole(AtspiRole role, const Toolkit& toolkit);

/// For whatever is not known by name.
inline constexpr Toolkit unknownToolkit{};

/// By what an application says of itself, and by the path of one of its elements. The record lives as long as the
/// program.
using ToolkitLookup = const Toolkit& (*)(std::string_view name, std::string_view version, std::string_view path);

}  // namespace norra::linux_desktop
