// The selection prompt.
#include "console/messages/catalog/selection.h"
#include "console/prompts/prompt.h"
#include "console/prompts/selection.h"

#include "drawing/pick.h"
#include "morvane/drawing_tools.h"

#include <algorithm>
#include <unordered_set>

namespace console {
namespace {

// One prompt after the other; what they pick is added, or taken away after Remove.
class Picking {
public:
  explicit Picking(Session& session)
      : session_(session), space_(qzutads::currentSpaceId()), objects_(pickableObjects(space_)),
        here_(objects_.begin(), objects_.end()) {}

  OdDbObjectIdArray run() {
    for (;;) {
      const PointOrKeyword entered =
          promptPointOr(session_, msg::kKeywordsSelect, removes_ ? msg::kPromptRemove : msg::kPromptSelect);
      if (entered.point)
        pickFrom(*entered.point);
      else if (!entered.keyword.isEmpty())
        answer(entered.keyword);
      else
        return picks_.ids();
      session_.print(msg::kSelected, {count(picks_.size())});
    }
  }

private:
  void answer(const OdString& keyword) {
    if (keyword == L"Remove" || keyword == L"Add")
      removes_ = keyword == L"Remove";
    else if (keyword == L"Previous")
      pickPrevious();
    else if (keyword == L"Last")
      pickLast();
    else if (keyword == L"Window" || keyword == L"Crossing")
      pickCorners(keyword == L"Window");
    else if (keyword == L"Fence")
      pickFence();
    else if (keyword == L"All")
      pickBy({Selector::Kind::kAll, {}});
    else if (keyword == L"Layer")
      pickNamed(Selector::Kind::kLayer, msg::kPromptSelectLayer);
    else if (keyword == L"Type")
      pickNamed(Selector::Kind::kType, msg::kPromptSelectType);
    else
      pickNamed(Selector::Kind::kHandle, msg::kPromptSelectHandle);
  }
  // Seen along the z axis of the UCS.
  drawing::ViewPicker picker() {
    OdGeMatrix3d ucs;
    mvsi::mvsidbUcsMatrix(ucs, &session_.database());
    return drawing::ViewPicker(space_, ucs.inverse());
  }
  // A typed point is the first corner: what is inside when the other one lies to the right, else what is touched.
  void pickFrom(const OdGePoint3d& corner) {
    const OdGePoint3d other = promptRequiredPoint(session_, msg::kPromptOtherCorner);
    pickBetween(corner, other, other.x >= corner.x);
  }
  void pickCorners(bool whole) {
    const OdGePoint3d corner = promptRequiredPoint(session_, msg::kPromptCorner);
    pickBetween(corner, promptRequiredPoint(session_, msg::kPromptOtherCorner), whole);
  }
  void pickBetween(const OdGePoint3d& corner, const OdGePoint3d& other, bool whole) {
    const OdGePoint2d from(corner.x, corner.y), to(other.x, other.y);
    pick(whole ? picker().inside(from, to) : picker().touching(from, to));
  }
  void pickFence() {
    std::vector<OdGePoint2d> path;
    while (const auto point = promptPoint(session_, path.empty() ? msg::kPromptFence : msg::kPromptFenceNext))
      path.push_back({point->x, point->y});
    pick(picker().along(path));
  }
  void pick(const OdDbObjectIdArray& ids) {
    for (const OdDbObjectId id : ids) {
      if (here_.count(id) != 0)
        removes_ ? picks_.remove(id) : picks_.add(id);
    }
  }
  void pickNamed(Selector::Kind kind, MessageText prompt) {
    if (const auto value = promptText(session_, prompt))
      pickBy({kind, *value});
  }
  // A wrong name is reported, and the prompt is repeated.
  void pickBy(const Selector& selector) {
    try {
      pick(pickedBy(session_.database(), objects_, selector));
    } catch (const Failure& failure) {
      session_.print(failure.message.format, failure.message.arguments);
    }
  }
  void pickLast() {
    if (objects_.isEmpty())
      return session_.print(msg::kSpaceEmpty);
    OdDbObjectIdArray last;
    last.append(objects_.last());
    pick(last);
  }
  void pickPrevious() {
    const OdDbObjectIdArray& ids = session_.drawing().previous;
    if (std::none_of(ids.begin(), ids.end(), [this](OdDbObjectId id) { return here_.count(id) != 0; }))
      session_.print(msg::kNothingPrevious);
    pick(ids);
  }

  Session& session_;
  const OdDbObjectId space_;
  const OdDbObjectIdArray objects_;
  const std::unordered_set<OdDbObjectId> here_;
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

OdDbObjectIdArray promptNewSelection(Session& session) {
  const OdDbObjectIdArray ids = Picking(session).run();
  if (!ids.isEmpty())
    session.drawing().previous = ids;
  return ids;
}

void reportPreselection(Session& session, const OdDbObjectIdArray& ids) {
  session.print(msg::kSelectedBefore, {count(static_cast<std::size_t>(ids.length()))});
  session.drawing().previous = ids;
}

OdDbObjectIdArray promptSelection(Session& session) {
  OdDbObjectIdArray ids = takePickFirst(session);
  if (!ids.isEmpty())
    reportPreselection(session, ids);
  else
    ids = promptNewSelection(session);
  if (ids.isEmpty())
    refuse(msg::kNothingSelected);
  return ids;
}

} // namespace console
