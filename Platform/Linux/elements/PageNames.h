// What elements of web pages are called. A browser makes names of what stands in an element and of what the page points
// at; what is written into the fields there is content and no part of a name.
#pragma once

#include <string>

namespace norra::linux_desktop {

struct AtspiReference;
class ElementView;

/// The name without what stands in fields: of the element, of one that lies in it, or of one that names it. Empty:
/// none.
std::string nameInPage(const ElementView& view);
/// Whether the description is, or holds, what stands in a field.
bool isDescribedByField(const ElementView& view);
/// Whether the element is a part of what is written into an editor, or an editor that the page gave no such role.
bool isWritten(const ElementView& view);
/// The field of a page that an element is a part of, as the year is of a date; null: none.
AtspiReference fieldOfParts(const ElementView& part);
/// Whether an element that names another one is a field, which has a content rather than a text.
bool isFieldOfPage(const ElementView& view);

}  // namespace norra::linux_desktop
