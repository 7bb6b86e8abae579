// Fields: texts that are computed from a code. A drawing keeps the value that was computed last.
#pragma once

#include "DbObject.h"

#include <unordered_set>
#include <vector>

namespace drawing {
class FieldEvaluation;
}
class OdDbField;
using OdDbFieldPtr = OdSmartPtr<OdDbField>;

class MVDRAWING_API OdDbField : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbField);
  OdDbField() = default;

  const OdString& evaluatorId() const { return evaluator_; } // "_text" for a text with fields in it
  void setEvaluatorId(const OdString& id);
  OdString getFieldCode() const;
  void setFieldCode(const OdString& code);
  // Fields inside this one, in the order in which its code numbers them; owned by it.
  const std::vector<OdDbObjectId>& children() const { return children_; }
  int childCount() const { return static_cast<int>(children_.size()); }
  // Null when it does not open; OdError_InvalidIndex outside 0 .. childCount() - 1.
  OdDbFieldPtr getChild(int index, OdDb::OpenMode mode = OdDb::kForRead) const;
  OdDbObjectId appendChild(OdDbField* child); // throws OdError(eNotInDatabase) when this field is not resident
  // Objects that the code refers to.
  const std::vector<OdDbObjectId>& objectIds() const { return objects_; }
  void addObjectId(OdDbObjectId id);

  // Occasions at which fields are computed; a field's options are those that it takes part in.
  enum EvalContext : int { kOpen = 1, kSave = 2, kPlot = 4, kTransmit = 8, kRegen = 16, kDemand = 32 };
  int evaluationOptions() const;
  OdString getValue() const; // what the field shows: the value that was computed last
  // Computes the field and those inside it anew. Done without another program: header variables, dates and file name,
  // simple properties of objects, arithmetic. Every other field keeps its value.
  // eOk: the field shows what its code says now. Else its own value is the old one: eNotApplicable, not at this
  // occasion; eNotImplementedYet, code or format is for another program; eKeyNotFound, no such variable, property or
  // object; eInvalidInput, nothing that can be computed; eNoDatabase, null. `found` and `evaluated` count the fields,
  // this one included. The field must be open for write.
  OdResult evaluate(int context, OdDbDatabase* database, int* found = nullptr, int* evaluated = nullptr);

  // The fields of an object live in its extension dictionary. hasFields is true while it names any, erased ones too.
  static bool hasFields(const OdDbObject& object);
  // Null when the object has none of that name that lives; whatever stands there, a field or not.
  static OdDbObjectId getField(const OdDbObject& object, const OdString& property = OdString(L"TEXT"));
  // Puts a free field there; an older one of that name is erased. The object must be open for write.
  static OdDbObjectId setField(OdDbObject& object, OdDbField* field, const OdString& property = OdString(L"TEXT"));
  // eKeyNotFound when there is none. The field is erased with its children.
  static OdResult removeField(OdDbObject& object, const OdString& property = OdString(L"TEXT"));

  // -- For the SDK's own machinery. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  friend class drawing::FieldEvaluation;
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  void setValue(const OdString& text, const double* number);
  bool takeHead(const drawing::Pair& pair, drawing::LoadContext& context);

  OdString evaluator_;
  std::vector<OdString> code_; // in the pieces of the file
  std::vector<OdDbObjectId> children_;
  std::vector<OdDbObjectId> objects_;
  drawing::GroupList rest_; // options, format, values
};

// All fields of a drawing.
class MVDRAWING_API OdDbFieldList : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbFieldList);
  OdDbFieldList() = default;
  const std::vector<OdDbObjectId>& fieldIds() const { return ids_; } // erased ones included
  void add(OdDbObjectId field);                                      // once only
  // The list of a drawing; null when it has none.
  static OdDbObjectId listOf(const OdDbDatabase& database);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::Pair& pair, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  std::vector<OdDbObjectId> ids_;
  std::unordered_set<OdDbObjectId> known_; // the same, to add by; empty until it is needed
};
using OdDbFieldListPtr = OdSmartPtr<OdDbFieldList>;
