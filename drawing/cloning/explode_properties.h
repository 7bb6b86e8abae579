// The properties that entities inherit from the reference that shows them, made their own.
#pragma once

#include "DbBlockReference.h"
#include "DbSymbolRecords.h"

namespace drawing {

class ByBlockProperties {
public:
  explicit ByBlockProperties(const OdDbBlockReference& reference);
  // The entity, and the attributes that it carries.
  void applyTo(OdDbObjectId entity) const;

private:
  void resolve(OdDbEntity& entity) const;
  bool isOnItsLayer(const OdDbEntity& entity) const;
  OdCmColor colorFor(const OdDbEntity& entity) const;
  OdDbObjectId linetypeFor(const OdDbEntity& entity) const;
  std::int16_t weightFor(const OdDbEntity& entity) const;

  OdDbObjectId layerZero_;
  OdDbObjectId byBlock_; // linetypes
  OdDbObjectId byLayer_;
  OdDbObjectId layerId_;
  OdCmColor color_;
  OdDbObjectId linetype_;
  std::int16_t weight_ = -1;
  OdDbLayerTableRecordPtr layer_; // null when the reference has none
};

} // namespace drawing
