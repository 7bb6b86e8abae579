#include "DbObject.h"

#include "drawing/model/object_store.h"

#include <algorithm>

MVDRAWING_DEFINE_CLASS(OdResBuf, OdRxObject, "");

using drawing::GroupKind;
using drawing::GroupList;

OdResBuf::~OdResBuf() {
  // A long chain must not end in as many nested destructor calls.
  OdResBufPtr rest = std::move(next_);
  while (!rest.isNull() && rest->referenceCount() == 1) {
    OdResBufPtr following = std::move(rest->next_);
    rest = std::move(following);
  }
}

OdResBufPtr OdResBuf::make(int groupCode) {
  OdResBufPtr made(new OdResBuf);
  made->code_ = groupCode;
  return made;
}

OdResBufPtr OdResBuf::make(int groupCode, const OdString& text) {
  OdResBufPtr made = make(groupCode);
  made->text_ = text;
  return made;
}

OdResBufPtr OdResBuf::make(int groupCode, double real) {
  OdResBufPtr made = make(groupCode);
  made->point_.x = real;
  return made;
}

OdResBufPtr OdResBuf::make(int groupCode, const OdGePoint3d& point) {
  OdResBufPtr made = make(groupCode);
  made->point_ = point;
  return made;
}

OdResBufPtr OdResBuf::make(int groupCode, OdDbObjectId id) {
  OdResBufPtr made = make(groupCode);
  made->id_ = id;
  return made;
}

OdResBufPtr OdResBuf::makeInteger(int groupCode, std::int64_t value) {
  OdResBufPtr made = make(groupCode);
  made->integer_ = value;
  return made;
}

OdResBufPtr OdResBuf::setNext(OdResBufPtr next) {
  next_ = std::move(next);
  return next_;
}

OdResBufPtr OdResBuf::last() const {
  OdResBufPtr at(const_cast<OdResBuf*>(this));
  while (!at->next_.isNull())
    at = at->next_;
  return at;
}

namespace {

// Codes whose groups come in threes (x, y, z).
bool isPointCode(int code) {
  return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 || (code >= 1010 && code <= 1013);
}

std::size_t readPoint(const GroupList& groups, std::size_t i, OdGePoint3d& point) {
  const int code = groups[i].code;
  std::size_t taken = 0;
  while (taken < 3 && i + taken < groups.size() && groups[i + taken].code == code + 10 * static_cast<int>(taken) &&
         groups[i + taken].kind == GroupKind::kReal) {
    point[static_cast<int>(taken)] = groups[i + taken].real;
    ++taken;
  }
  return std::max<std::size_t>(taken, 1);
}

} // namespace

OdResBufPtr OdResBuf::fromGroups(const GroupList& groups, std::size_t first, std::size_t count) {
  OdResBufPtr head, tail;
  for (std::size_t i = first; i < first + count;) {
    const drawing::Group& group = groups[i];
    OdResBufPtr made = make(group.code);
    std::size_t step = 1;
    if (group.kind == GroupKind::kReal) {
      made->point_.x = group.real;
      if (isPointCode(group.code))
        step = readPoint(groups, i, made->point_);
    } else if (group.kind == GroupKind::kReference) {
      made->id_ = groups.idOf(group);
    } else if (group.kind == GroupKind::kBinary) {
      made->bytes_ = groups.textOf(group);
    } else if (group.kind == GroupKind::kText || group.kind == GroupKind::kUnparsed) {
      made->text_ = groups.stringOf(group);
    } else {
      made->integer_ = group.integer;
    }
    if (head.isNull())
      head = made;
    else
      tail->setNext(made);
    tail = made;
    i += step;
  }
  return head;
}

void OdResBuf::toGroups(const OdResBuf* chain, GroupList& groups) {
  for (const OdResBuf* at = chain; at != nullptr; at = at->next_.get()) {
    switch (drawing::groupKindOf(at->code_)) {
    case GroupKind::kText:
      groups.text(at->code_, at->text_);
      break;
    case GroupKind::kReal:
      if (isPointCode(at->code_))
        groups.point(at->code_, at->point_);
      else
        groups.real(at->code_, at->point_.x);
      break;
    case GroupKind::kReference:
      groups.reference(at->code_, at->id_);
      break;
    case GroupKind::kHandle:
      groups.handle(at->code_, OdDbHandle(static_cast<std::uint64_t>(at->integer_)));
      break;
    case GroupKind::kBinary:
      groups.binary(at->code_, at->bytes_);
      break;
    default:
      groups.integer(at->code_, at->integer_);
    }
  }
}

namespace {

// The run of one application's groups, from its 1001 on.
struct ApplicationRun {
  std::size_t first, count;
};

ApplicationRun applicationRun(const GroupList& groups, const OdString& application) {
  for (std::size_t i = groups.find(1001); i < groups.size(); i = groups.find(1001, i + 1)) {
    if (groups.stringOf(groups[i]).iCompare(application) == 0)
      return {i, groups.find(1001, i + 1) - i};
  }
  return {groups.size(), 0};
}

} // namespace

OdResBufPtr OdDbObject::xData(const OdString& application) const {
  const GroupList* groups = xDataGroups();
  if (groups == nullptr || groups->empty())
    return nullptr;
  const ApplicationRun run =
      application.isEmpty() ? ApplicationRun{0, groups->size()} : applicationRun(*groups, application);
  return OdResBuf::fromGroups(*groups, run.first, run.count);
}

void OdDbObject::setXData(const OdResBuf* chain) {
  GroupList fresh;
  OdResBuf::toGroups(chain, fresh);
  GroupList& groups = xDataGroupsForWrite();
  for (std::size_t i = fresh.find(1001); i < fresh.size();) {
    const std::size_t end = fresh.find(1001, i + 1);
    const ApplicationRun old = applicationRun(groups, fresh.stringOf(fresh[i]));
    groups.erase(old.first, old.count);
    if (end - i > 1) // a name alone takes the application's data away
      groups.append(fresh, i, end - i);
    i = end;
  }
}
