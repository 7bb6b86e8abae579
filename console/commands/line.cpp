#include "console/commands/commands.h"
#include "console/drawings/entity_summary.h"
#include "console/messages/catalog/objects.h"
#include "console/prompts/prompt.h"

#include "DbCurves.h"

namespace console::commands {
namespace {

void addLine(CommandContext& context, const OdGePoint3d& from, const OdGePoint3d& to) {
  const OdDbLinePtr entity = OdDbLine::createObject();
  entity->setDatabaseDefaults(&context.database);
  entity->setStartPoint(from);
  entity->setEndPoint(to);
  addToDrawing(context, *entity);
}

} // namespace

void line(CommandContext& context) {
  const OdGePoint3d first = promptRequiredPoint(context.session, msg::kPromptFromPoint);
  OdGePoint3d from = first;
  for (int segments = 0;; ++segments) {
    const bool closable = segments >= 2;
    const PointOrKeyword next = closable
                                    ? promptPointOr(context.session, msg::kKeywordsClose, msg::kPromptToPointOrClose)
                                    : PointOrKeyword{promptPoint(context.session, msg::kPromptToPoint), {}};
    if (!next.point) {
      if (!next.keyword.isEmpty())
        addLine(context, from, first);
      return;
    }
    addLine(context, from, *next.point);
    from = *next.point;
  }
}

} // namespace console::commands
