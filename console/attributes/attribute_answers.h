// Values for the attributes of a new reference: given beforehand, taken from the definitions, or asked for.
#pragma once

#include "console/session/session.h"

#include "DbBlockReference.h"

#include <utility>
#include <vector>

namespace console {

struct AttributeAnswers {
  std::vector<std::pair<OdString, OdString>> given; // tag, TAG#2 for the second of that tag; and the value
  bool takesDefaults = false;                       // whatever is not given is not asked for
};

// Makes the attributes, gives them the values, and asks for the others. Throws for a tag that the block has not, for a
// cancelled question, and for one that may not be asked.
void fillAttributes(Session& session, const OdDbBlockReferencePtr& reference, const AttributeAnswers& answers);

// What would be asked of a reference to the block, or to what the space of a file would be: prompts, or tags where
// there are none.
std::vector<OdString> questionsOf(OdDbObjectId block, const AttributeAnswers& answers);

} // namespace console
