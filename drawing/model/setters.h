// Setters that do nothing but set.
#pragma once

#define MVDRAWING_SETTER(Class, setter, Type, member)                                                                  \
  void Class::setter(Type value) {                                                                                     \
    assertWriteEnabled();                                                                                              \
    member = value;                                                                                                    \
  }
// Of a place that is kept in the frame of its plane and given in world coordinates.
#define MVDRAWING_SETTER_OCS(Class, setter, member)                                                                    \
  void Class::setter(const OdGePoint3d& point) {                                                                       \
    assertWriteEnabled();                                                                                              \
    member = wcsToOcs(point, normal_);                                                                                 \
  }
