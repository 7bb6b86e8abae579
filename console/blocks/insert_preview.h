// What an insertion would do, before anything changes.
#pragma once

#include "console/attributes/attribute_answers.h"
#include "console/messages/json.h"
#include "console/session/session.h"

#include <string>

namespace console {

// Tells which definitions the drawing has already and whether their contents are the same, which layers, line types and
// styles stay as the drawing has them, the factor of units, and the questions. The answer is the same for machines.
Json previewFile(Session& session, const std::string& path, const OdString& name, const AttributeAnswers& answers);
Json previewBlock(Session& session, const OdString& name, const AttributeAnswers& answers);

} // namespace console
