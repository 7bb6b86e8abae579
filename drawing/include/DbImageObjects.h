// Objects that images and underlays depend on: definitions with their files, and display settings.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint2d.h"

// An image file.
class MVDRAWING_API OdDbRasterImageDef : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRasterImageDef);
  OdDbRasterImageDef() = default;
  // Path as the drawing stores it: absolute, relative, or only a name.
  const OdString& sourceFileName() const { return file_; }
  void setSourceFileName(const OdString& value);
  // Size in pixels, default size of a pixel in drawing units, and whether the image is loaded, as files state them.
  OdGePoint2d size() const { return size_; }
  OdGePoint2d pixelSize() const { return pixelSize_; }
  bool isLoaded() const { return loaded_; }

private:
  std::int32_t version_ = 0;
  OdString file_;
  OdGePoint2d size_, pixelSize_;
  bool loaded_ = true;
  std::int16_t units_ = 0;
};
using OdDbRasterImageDefPtr = OdSmartPtr<OdDbRasterImageDef>;

// Reactor between an image entity, which owns it, and its definition.
class MVDRAWING_API OdDbRasterImageDefReactor : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRasterImageDefReactor);
  OdDbRasterImageDefReactor() = default;
  OdDbObjectId imageId() const { return image_; } // the image entity

private:
  std::int32_t version_ = 2;
  OdDbObjectId image_;
};

// Display settings of the images of a drawing.
class MVDRAWING_API OdDbRasterVariables : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbRasterVariables);
  OdDbRasterVariables() = default;
  // Whether frames are displayed; quality (0 draft, 1 high); unit of images that have a resolution.
  bool imageFrame() const { return frame_ != 0; }
  void setImageFrame(bool isShown);
  std::int16_t imageQuality() const { return quality_; }
  std::int16_t userScale() const { return units_; }

private:
  std::int32_t version_ = 0;
  std::int16_t frame_ = 1, quality_ = 1, units_ = 0;
};

// Display settings of the wipeouts of a drawing.
class MVDRAWING_API OdDbWipeoutVariables : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbWipeoutVariables);
  OdDbWipeoutVariables() = default;
  // Whether frames are displayed.
  bool showFrame() const { return frame_ != 0; }
  void setShowFrame(bool isShown);

private:
  std::int16_t frame_ = 0;
};

// Common base of underlay definitions: a file of pages, and one of its pages.
class MVDRAWING_API OdDbUnderlayDefinition : public OdDbObject {
public:
  MVDRAWING_DECLARE_CLASS(OdDbUnderlayDefinition);
  // Path as the drawing stores it, and name of the page.
  const OdString& sourceFileName() const { return file_; }
  void setSourceFileName(const OdString& value);
  const OdString& itemName() const { return item_; }

protected:
  OdDbUnderlayDefinition() = default;
  static const drawing::Description& definitionDescription(); // description of all kinds

private:
  OdString file_, item_;
};
using OdDbUnderlayDefinitionPtr = OdSmartPtr<OdDbUnderlayDefinition>;

// A PDF file.
class MVDRAWING_API OdDbPdfDefinition : public OdDbUnderlayDefinition {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPdfDefinition);
  OdDbPdfDefinition() = default;
};

// A DWF file.
class MVDRAWING_API OdDbDwfDefinition : public OdDbUnderlayDefinition {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDwfDefinition);
  OdDbDwfDefinition() = default;
};

// A DGN file.
class MVDRAWING_API OdDbDgnDefinition : public OdDbUnderlayDefinition {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbDgnDefinition);
  OdDbDgnDefinition() = default;
};

// An object without properties that occupies a name in a dictionary.
class MVDRAWING_API OdDbPlaceHolder : public OdDbObject {
public:
  MVDRAWING_DECLARE_OBJECT(OdDbPlaceHolder);
  OdDbPlaceHolder() = default;
};
