#include "console/commands/commands.h"
#include "console/commands/unsaved.h"
#include "console/drawings/drawing_io.h"
#include "console/prompts/prompt.h"

#include "morvane/drawing_tools.h"

#include <charconv>

namespace console::commands {
namespace {

OdString nameOf(const mvsi::MvsiApDocument& document) {
  return document.fileName().isEmpty() ? render(MessageId::kUnsavedName) : document.fileName();
}

void listDocuments(Session& session) {
  std::size_t number = 0;
  for (const mvsi::MvsiApDocumentPtr& document : session.host().documents().all()) {
    OdString marks;
    if (document == session.drawing().document)
      marks += render(MessageId::kDocCurrent);
    if (document->isModified())
      marks += render(MessageId::kDocModified);
    session.result(MessageId::kDocLine, {count(++number), nameOf(*document), marks});
  }
}

void switchTo(Session& session, const mvsi::MvsiApDocument& document) {
  if (&document != session.drawing().document.get())
    session.switchTo(document);
  session.print(MessageId::kDocIsCurrent, {nameOf(document)});
}

// A drawing that is open already is not read again.
void open(Session& session) {
  const auto path = promptText(session, MessageId::kPromptFileName);
  if (!path)
    refuse(MessageId::kNoFileName);
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
  const std::string entered = promptText(session, MessageId::kPromptDocNumber).value_or(OdString()).toUtf8();
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(entered.data(), entered.data() + entered.size(), number);
  const auto& all = session.host().documents().all();
  if (error != std::errc() || end != entered.data() + entered.size() || number == 0 || number > all.size())
    refuse(MessageId::kNoSuchDoc, {OdString::fromUtf8(entered)});
  switchTo(session, *all[number - 1]);
}

void close(Session& session) {
  if (session.backgroundDrawings().empty())
    refuse(MessageId::kOnlyDoc);
  promptToDiscardChanges(session);
  session.closeCurrent();
  session.print(MessageId::kDocIsCurrent, {nameOf(*session.drawing().document)});
}

} // namespace

void docs(CommandContext& context) {
  const OdString option =
      promptKeyword(context.session, MessageId::kKeywordsDocs, MessageId::kPromptDocs).value_or(L"?");
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
