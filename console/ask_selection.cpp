// The selection prompt.
#include "console/ask.h"
#include "console/selection.h"

#include "morvane/drawing_tools.h"

#include <unordered_set>

namespace console {
namespace {

// One prompt after the other; what they pick is added, or taken away after Remove.
class Picking {
public:
  explicit Picking(Session& session) : session_(session), objects_(objectsOf(qzutads::currentSpaceId())) {}

  OdDbObjectIdArray run() {
    while (const auto keyword =
               askKeyword(session_, Text::kKeywordsSelect, removes_ ? Text::kPromptRemove : Text::kPromptSelect)) {
      answer(*keyword);
      session_.say(Text::kSelected, {count(picks_.size())});
    }
    return picks_.ids();
  }

private:
  void answer(const OdString& keyword) {
    if (keyword == L"Remove" || keyword == L"Add")
      removes_ = keyword == L"Remove";
    else if (keyword == L"Previous")
      pickPrevious();
    else if (keyword == L"Last")
      pickLast();
    else if (keyword == L"All")
      pickBy({Selector::Kind::All, {}});
    else if (keyword == L"Layer")
      pickNamed(Selector::Kind::Layer, Text::kPromptSelectLayer);
    else if (keyword == L"Type")
      pickNamed(Selector::Kind::Type, Text::kPromptSelectType);
    else
      pickNamed(Selector::Kind::Handle, Text::kPromptSelectHandle);
  }
  void pick(const OdDbObjectIdArray& ids) {
    for (const OdDbObjectId id : ids)
      removes_ ? picks_.remove(id) : picks_.add(id);
  }
  void pickNamed(Selector::Kind kind, Text prompt) {
    if (const auto value = askText(session_, prompt))
      pickBy({kind, *value});
  }
  // A wrong name is told, and the prompt asks again.
  void pickBy(const Selector& selector) {
    try {
      pick(pickedBy(session_.database(), objects_, selector));
    } catch (const Failure& failure) {
      session_.say(failure.message.text, failure.message.arguments);
    }
  }
  void pickLast() {
    if (objects_.isEmpty())
      return session_.say(Text::kSpaceEmpty);
    OdDbObjectIdArray last;
    last.append(objects_.last());
    pick(last);
  }
  void pickPrevious() {
    const std::unordered_set<OdDbObjectId> here(objects_.begin(), objects_.end());
    OdDbObjectIdArray ids;
    for (const OdDbObjectId id : session_.drawing().previous) {
      if (here.count(id) != 0)
        ids.append(id);
    }
    if (ids.isEmpty())
      session_.say(Text::kNothingPrevious);
    pick(ids);
  }

  Session& session_;
  const OdDbObjectIdArray objects_;
  Picks picks_;
  bool removes_ = false;
};

// What was selected before the command and can be worked on where it is.
OdDbObjectIdArray takePickFirst(Session& session) {
  OdDbObjectIdArray ids;
  mvsi::RxSelectSet set;
  if (set.impliedSelect() == 0)
    set.asIdArray(ids);
  session.host().selections().setFirst(nullptr, nullptr);
  return ids;
}

} // namespace

OdDbObjectIdArray askSelectionAnew(Session& session) {
  const OdDbObjectIdArray ids = Picking(session).run();
  if (!ids.isEmpty())
    session.drawing().previous = ids;
  return ids;
}

void tellSelectedBefore(Session& session, const OdDbObjectIdArray& ids) {
  session.say(Text::kSelectedBefore, {count(static_cast<std::size_t>(ids.length()))});
  session.drawing().previous = ids;
}

OdDbObjectIdArray askSelection(Session& session) {
  OdDbObjectIdArray ids = takePickFirst(session);
  if (!ids.isEmpty())
    tellSelectedBefore(session, ids);
  else
    ids = askSelectionAnew(session);
  if (ids.isEmpty())
    refuse(Text::kNothingSelected);
  return ids;
}

} // namespace console
