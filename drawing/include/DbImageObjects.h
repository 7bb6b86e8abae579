// What stands behind pictures and underlays: the files they show, and how they are shown.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint2d.h"

// A picture file.
class MVDRAWING_API OdDbRasterImageDef : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbRasterImageDef);
  OdDbRasterImageDef() = default;
  const OdString& sourceFileName() const { return file_; } // as it was written down: full, relative, or the name alone
  void setSourceFileName(const OdString& value);
  OdGePoint2d size() const { return size_; }           // in pixels
  OdGePoint2d pixelSize() const { return pixelSize_; } // in drawing units when the picture has no scale of its own
  bool isLoaded() const { return loaded_; }

private:
  std::int32_t version_ = 0;
  OdString file_;
  OdGePoint2d size_, pixelSize_;
  bool loaded_ = true;
  std::int16_t units_ = 0;
};
using OdDbRasterImageDefPtr = OdSmartPtr<OdDbRasterImageDef>;

// Tells the file of one of its pictures; owned by the picture's entity.
class MVDRAWING_API OdDbRasterImageDefReactor : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbRasterImageDefReactor);
  OdDbRasterImageDefReactor() = default;
  OdDbObjectId imageId() const { return image_; }

private:
  std::int32_t version_ = 2;
  OdDbObjectId image_;
};

class MVDRAWING_API OdDbRasterVariables : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbRasterVariables);
  OdDbRasterVariables() = default;
  bool imageFrame() const { return frame_ != 0; }
  void setImageFrame(bool shown);
  std::int16_t imageQuality() const { return quality_; } // 0 draft, 1 high
  std::int16_t userScale() const { return units_; }      // the unit of a picture that has one

private:
  std::int32_t version_ = 0;
  std::int16_t frame_ = 1, quality_ = 1, units_ = 0;
};

class MVDRAWING_API OdDbWipeoutVariables : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbWipeoutVariables);
  OdDbWipeoutVariables() = default;
  bool showFrame() const { return frame_ != 0; }
  void setShowFrame(bool shown);

private:
  std::int16_t frame_ = 0;
};

// A file of pages, and the page of it that is shown.
class MVDRAWING_API OdDbUnderlayDefinition : public OdDbObject {
public:
  ODRX_DECLARE_MEMBERS(OdDbUnderlayDefinition);
  const OdString& sourceFileName() const { return file_; }
  void setSourceFileName(const OdString& value);
  const OdString& itemName() const { return item_; }

protected:
  OdDbUnderlayDefinition() = default;
  static const drawing::Description& definitionDescription();

private:
  OdString file_, item_;
};
using OdDbUnderlayDefinitionPtr = OdSmartPtr<OdDbUnderlayDefinition>;

class MVDRAWING_API OdDbPdfDefinition : public OdDbUnderlayDefinition {
public:
  ODDB_DECLARE_MEMBERS(OdDbPdfDefinition);
  OdDbPdfDefinition() = default;
};

class MVDRAWING_API OdDbDwfDefinition : public OdDbUnderlayDefinition {
public:
  ODDB_DECLARE_MEMBERS(OdDbDwfDefinition);
  OdDbDwfDefinition() = default;
};

class MVDRAWING_API OdDbDgnDefinition : public OdDbUnderlayDefinition {
public:
  ODDB_DECLARE_MEMBERS(OdDbDgnDefinition);
  OdDbDgnDefinition() = default;
};

// Holds a name in a dictionary, and nothing else.
class MVDRAWING_API OdDbPlaceHolder : public OdDbObject {
public:
  ODDB_DECLARE_MEMBERS(OdDbPlaceHolder);
  OdDbPlaceHolder() = default;
};
