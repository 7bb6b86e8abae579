// Parts of an object that belong to the object itself, not to its state.
#pragma once

namespace drawing {

// A T that is neither copied nor undone with the object that holds it: that of a copy is a new one, and assigning to
// the object, as undo does, leaves it unchanged.
template <class T>
class NotCopied : public T {
public:
  NotCopied() = default;
  NotCopied(const NotCopied&) : T() {}
  NotCopied& operator=(const NotCopied&) { return *this; }
};

} // namespace drawing
