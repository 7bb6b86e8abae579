// What an insertion would do, before anything changes.
#pragma once

#include "console/attributes/attribute_answers.h"
#include "console/messages/json.h"
#include "console/session/session.h"

#include <string>

namespace console {

// Reports which definitions the drawing already has and whether their contents are the same, which layers, linetypes
// and styles of the drawing are kept, the unit factor, and the prompts. Returns the same as JSON.
Json previewFile(Session& session, const std::string& path, const OdString& name, const AttributeAnswers& answers);
Json previewBlock(Session& session, const OdString& name, const AttributeAnswers& answers);

} // namespace console
