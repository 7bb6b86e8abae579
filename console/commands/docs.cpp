#include "console/commands/commands.h"
#include "console/commands/unsaved.h"
#include "console/drawings/drawing_io.h"
#include "console/messages/catalog/documents.h"
#include "console/messages/catalog/drawings.h"
#include "console/messages/catalog/xrefs.h"
#include "console/prompts/prompt.h"

#include "morvane/drawing_tools.h"

#include <charconv>

namespace console::commands {
namespace {

OdString nameOf(const mvsi::MvsiApDocument& document) {
  return document.fileName().isEmpty() ? render(msg::kUnsavedName) : document.fileName();
}

void listDocuments(Session& session) {
  std::size_t number = 0;
  for (const mvsi::MvsiApDocumentPtr& document : session.host().documents().all()) {
    OdString marks;
    if (document == session.drawing().document)
      marks += render(msg::kDocCurrent);
    if (document->isModified())
      marks += render(msg::kDocModified);
    session.result(msg::kDocLine, {count(++number), nameOf(*document), marks});
  }
}

void switchTo(Session& session, const mvsi::MvsiApDocument& document) {
  if (&document != session.drawing().document.get())
    session.switchTo(document);
  session.print(msg::kDocIsCurrent, {nameOf(document)});
}

// A drawing that is open already is not read again.
void open(Session& session) {
  const auto path = promptText(session, msg::kPromptFileName);
  if (!path)
    refuse(msg::kNoFileName);
  const std::string file = path->toUtf8Lossless();
  if (const mvsi::MvsiApDocument* present = qzutads::findDwgDoc(session.host().paths().toDrawing(file)))
    return switchTo(session, *present);
  session.pushCurrent();
  try {
    openDrawing(session, file);
  } catch (...) {
    session.closeCurrent();
    throw;
  }
}

void promptSwitch(Session& session) {
  const std::string entered = promptText(session, msg::kPromptDocNumber).value_or(OdString()).toUtf8();
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(entered.data(), entered.data() + entered.size(), number);
  const auto& all = session.host().documents().all();
  if (error != std::errc() || end != entered.data() + entered.size() || number == 0 || number > all.size())
    refuse(msg::kNoSuchDoc, {OdString::fromUtf8(entered)});
  switchTo(session, *all[number - 1]);
}

void close(Session& session) {
  if (session.backgroundDrawings().empty())
    refuse(msg::kOnlyDoc);
  promptToDiscardChanges(session);
  session.closeCurrent();
  session.print(msg::kDocIsCurrent, {nameOf(*session.drawing().document)});
}

} // namespace

void docs(CommandContext& context) {
  const OdString option = promptKeyword(context.session, msg::kKeywordsDocs, msg::kPromptDocs).value_or(L"?");
  if (option == L"Open")
    open(context.session);
  else if (option == L"Switch")
    promptSwitch(context.session);
  else if (option == L"Close")
    close(context.session);
  else
    listDocuments(context.session);
}

} // namespace console::commands
