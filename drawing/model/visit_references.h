// The references of a class besides those of its base and its fields.
#pragma once

#include "drawing/detail/groups.h"

#include <functional>

namespace drawing {

class ReferenceVisitor;
class ConstReferenceVisitor;

// Every id of a range, or the member of its elements that `id` names.
template <class Range, class Visitor, class Projection = std::identity>
void visitIds(Range& range, OdDb::ReferenceType type, Visitor& visitor, Projection id = {}) {
  for (auto& element : range)
    visitor.visit(std::invoke(id, element), type);
}

// Every reference of a list of groups.
void visitGroups(GroupList& groups, ReferenceVisitor& visitor);
void visitGroups(const GroupList& groups, ConstReferenceVisitor& visitor);

} // namespace drawing

// Defines both visitReferences of a class: those of the base, then statements that pass the class's own to `visitor`.
// The statements are compiled for the object as it is and as const, so they leave its types open.
#define MVDRAWING_VISIT_REFERENCES(Class, Base, ...)                                                                   \
  void Class::visitReferences(drawing::ReferenceVisitor& visitor) {                                                    \
    Base::visitReferences(visitor);                                                                                    \
    __VA_ARGS__                                                                                                        \
  }                                                                                                                    \
  void Class::visitReferences(drawing::ConstReferenceVisitor& visitor) const {                                         \
    Base::visitReferences(visitor);                                                                                    \
    __VA_ARGS__                                                                                                        \
  }
