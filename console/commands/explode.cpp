#include "console/messages/catalog/explode.h"
#include "console/commands/commands.h"
#include "console/messages/number_text.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "drawing/explode.h"

#include <algorithm>

namespace console::commands {
namespace {

using drawing::Exploded;
using drawing::ExplodeRefusal;

bool hasAttributes(OdDbObjectId id) {
  const auto reference = OdDbBlockReference::cast(id.safeOpenObject());
  return !reference.isNull() && reference->hasAttributes();
}

MessageText reasonFor(ExplodeRefusal refusal) {
  switch (refusal) {
  case ExplodeRefusal::kExternal:
    return msg::kExplodeExternal;
  case ExplodeRefusal::kNotAllowed:
    return msg::kExplodeNotAllowed;
  case ExplodeRefusal::kCannotPlace:
    return msg::kExplodeCannotPlace;
  case ExplodeRefusal::kTooMuch:
    return msg::kExplodeTooMuch;
  default:
    return msg::kExplodeNoReference;
  }
}

OdString unplaceableText(const Exploded& exploded) {
  std::vector<OdString> names;
  for (const Exploded::Unplaceable& one : exploded.unplaceable)
    names.push_back(OdString::fromUtf8(one.kind) + L" " + handleText(one.object));
  return nameList(names);
}

struct Sum {
  std::size_t references = 0, objects = 0, values = 0;
};

void explodeOne(Session& session, OdDbObjectId id, const drawing::ExplodeOptions& options, Sum& sum) {
  const Exploded exploded = drawing::explodeReference(id, options);
  if (exploded.refusal != ExplodeRefusal::kNone) {
    session.print(reasonFor(exploded.refusal), {handleText(id), unplaceableText(exploded)});
    return;
  }
  if (exploded.clipLost)
    session.print(msg::kExplodeClip, {handleText(id)});
  ++sum.references;
  sum.objects += static_cast<std::size_t>(exploded.made.length());
  sum.values += exploded.valuesLost;
}

} // namespace

// What cannot be exploded stays; when that is everything, the command is refused.
void explode(CommandContext& context) {
  Session& session = context.session;
  OdDbObjectIdArray ids = promptSelection(session);
  removeLocked(session, ids);
  drawing::ExplodeOptions options;
  if (std::any_of(ids.begin(), ids.end(), hasAttributes))
    options.attributesAsText = promptYesNo(session, msg::kPromptAttributesAsText);
  Sum sum;
  for (const OdDbObjectId id : ids)
    explodeOne(session, id, options, sum);
  if (sum.references == 0)
    refuse(msg::kNothingExploded);
  if (sum.references < static_cast<std::size_t>(ids.length()))
    session.raiseStatus(Status::kRefused);
  if (sum.values > 0)
    session.print(msg::kExplodeValues, {count(sum.values)});
  session.result(msg::kExploded, {count(sum.references), count(sum.objects)});
}

} // namespace console::commands
