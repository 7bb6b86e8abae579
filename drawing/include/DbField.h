// Fields: texts that are computed from a code. A drawing stores the value that was computed last.
#pragma once

#include "DbObject.h"

#include <unordered_set>
#include <vector>

namespace drawing {
class FieldEvaluation;
}
class OdDbField;
using OdDbFieldPtr = OdSmartPtr<OdDbField>;

// A field. It belongs to the object whose text it computes, or to another field.
class MVDRAWING_API OdDbField : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbField);
  OdDbField() = default;

  // Name of the evaluator ("_text" for a text that contains fields), and the code.
  const OdString& evaluatorId() const { return evaluator_; }
  void setEvaluatorId(const OdString& id);
  OdString getFieldCode() const;
  void setFieldCode(const OdString& code);
  // Nested fields, in the order in which the code numbers them; owned by this one.
  const std::vector<OdDbObjectId>& children() const { return children_; }
  int childCount() const { return static_cast<int>(children_.size()); }
  // Opens a nested field: null if it does not open. Throws OdError_InvalidIndex unless 0 <= index < childCount().
  OdDbFieldPtr getChild(int index, OdDb::OpenMode mode = OdDb::kForRead) const;
  // Makes a free field resident and lists it last; returns its id. Throws OdError(eNotInDatabase) if this field is
  // free.
  OdDbObjectId appendChild(OdDbField* child);
  // Objects that the code refers to, without duplicates.
  const std::vector<OdDbObjectId>& objectIds() const { return objects_; }
  void addObjectId(OdDbObjectId id);

  // Occasions at which fields are evaluated; the options of a field are those that apply to it.
  enum EvalContext : int { kOpen = 1, kSave = 2, kPlot = 4, kTransmit = 8, kRegen = 16, kDemand = 32 };
  int evaluationOptions() const; // EvalContext bits
  OdString getValue() const;     // displayed text: the value that was computed last

  // Evaluates the field and those nested in it: header variables, dates and file name, simple properties of objects,
  // arithmetic. All other fields keep their value. `context`: EvalContext bits. Returns eOk, or the reason why its own
  // value is unchanged: eNotApplicable, not at this occasion; eNotImplementedYet, code or format is not supported;
  // eKeyNotFound, no such variable, property or object; eInvalidInput, the expression cannot be computed; eNoDatabase
  // for a null database. `found` and `evaluated` receive the number of fields, this one included. The field must be
  // open for write.
  OdResult evaluate(int context, OdDbDatabase* database, int* found = nullptr, int* evaluated = nullptr);

  // Fields of an object by property, in its extension dictionary. hasFields also counts erased fields.
  static bool hasFields(const OdDbObject& object);
  // The entry of that property, which need not be a field; null if there is none or it is erased.
  static OdDbObjectId getField(const OdDbObject& object, const OdString& property = OdString(L"TEXT"));
  // Makes a free field resident as the field of a property, and erases the previous one; returns its id. The object
  // must be open for write; throws OdError(eNotInDatabase) for a free object.
  static OdDbObjectId setField(OdDbObject& object, OdDbField* field, const OdString& property = OdString(L"TEXT"));
  // Erases the field of a property with those nested in it; eKeyNotFound if there is none. The object must be open for
  // write.
  static OdResult removeField(OdDbObject& object, const OdString& property = OdString(L"TEXT"));

  // -- SDK internals. --
  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void ownedObjects(std::vector<OdDbObjectId>& ids) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  friend class drawing::FieldEvaluation;
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  void setValue(const OdString& text, const double* number);
  bool readCodePiece(const drawing::RawGroup& group, drawing::LoadContext& context);

  OdString evaluator_;
  std::vector<OdString> code_; // in the pieces of the file
  std::vector<OdDbObjectId> children_;
  std::vector<OdDbObjectId> objects_;
  drawing::GroupList rest_; // options, format, values
};

// The list of all fields of a drawing.
class MVDRAWING_API OdDbFieldList : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbFieldList);
  OdDbFieldList() = default;
  // Fields in order of addition without duplicates, erased ones included.
  const std::vector<OdDbObjectId>& fieldIds() const { return ids_; }
  void add(OdDbObjectId field);
  // The list of a drawing; null if it has none.
  static OdDbObjectId listOf(const OdDbDatabase& database);

  void visitReferences(drawing::ReferenceVisitor& visitor) override;
  void visitReferences(drawing::ConstReferenceVisitor& visitor) const override;
  void afterClone(const OdDbObject& source, OdDbIdMapping& mapping) override;

private:
  static bool readGroup(OdDbObject& object, const drawing::RawGroup& group, drawing::LoadContext& context);
  static void writeGroups(const OdDbObject& object, drawing::GroupSink& sink);
  std::vector<OdDbObjectId> ids_;
  std::unordered_set<OdDbObjectId> known_; // the same as a set; empty until it is needed
};
using OdDbFieldListPtr = OdSmartPtr<OdDbFieldList>;
