// The tables were taken from drawings that were saved in every version by the programs that brought the versions.
#include "drawing/io/version_rules.h"

#include <algorithm>
#include <iterator>

namespace drawing::dxf {

namespace {

using namespace OdDb;

constexpr GroupRule kGroups[] = {
    {"*", "AcDbEntity", 420, 429, kRelease2004, "the true color"},
    {"*", "AcDbEntity", 430, 439, kRelease2004, "the color name"},
    {"*", "AcDbEntity", 440, 449, kRelease2004, "the transparency", kOpaque, kByBlock},
    {"*", "AcDbEntity", 347, 347, kRelease2007, "the material"},
    {"*", "AcDbEntity", 348, 348, kRelease2007, "the visual style"},
    {"*", "AcDbEntity", 284, 284, kRelease2007, "the shadow mode", 0},
    {"ATTDEF", "AcDbAttributeDefinition", 280, 280, kRelease2007, "the locked position"},
    {"ATTRIB", "AcDbAttribute", 280, 280, kRelease2007, "the locked position"},
    {"BLOCK_RECORD", "AcDbBlockTableRecord", 280, 280, kRelease2007, "the explodable setting of a block"},
    {"BLOCK_RECORD", "AcDbBlockTableRecord", 281, 281, kRelease2007, "uniform block scaling"},
    {"LAYER", "AcDbLayerTableRecord", 420, 420, kRelease2004, "the true color"},
    {"LAYER", "AcDbLayerTableRecord", 347, 347, kRelease2007, "the material"},
    {"LAYER", "AcDbLayerTableRecord", 348, 348, kRelease2007, "the visual style"},
    {"LAYER", "AcDbLayerTableRecord", 430, 430, kRelease2004, "the color name"},
    {"DIMENSION", "AcDbDimension", 73, 75, kRelease2007, "flipped arrows", 0},
    {"DIMSTYLE", "AcDbDimStyleTableRecord", 69, 69, kRelease2007, "the background fill of dimension texts", 0},
    {"DIMSTYLE", "AcDbDimStyleTableRecord", 345, 347, kRelease2007, "linetypes of dimensions"},
    {"DIMSTYLE", "AcDbDimStyleTableRecord", 294, 294, kRelease2010, "the direction of dimension texts"},
    {"HATCH", "AcDbHatch", 450, 479, kRelease2004, "the gradient"},
    {"LAYOUT", "AcDbPlotSettings", 76, 78, kRelease2004, "shaded plotting"},
    {"PLOTSETTINGS", "AcDbPlotSettings", 76, 78, kRelease2004, "shaded plotting"},
    {"MTEXT", "AcDbMText", 90, 90, kRelease2004, "the text background", 0},
    {"MTEXT", "AcDbMText", 63, 63, kRelease2004, "the text background"},
    {"MTEXT", "AcDbMText", 420, 449, kRelease2004, "the text background"},
    {"MTEXT", "AcDbMText", 45, 45, kRelease2004, "the text background"},
    {"MTEXT", "AcDbMText", 46, 46, kRelease2007, "the column height"},
    {"VIEW", "AcDbViewTableRecord", 73, 73, kRelease2007, "the camera flag", 0},
    {"VIEW", "AcDbViewTableRecord", 348, 348, kRelease2007, "the visual style"},
    {"VIEWPORT", "AcDbViewport", 61, 63, kRelease2007, "grid and light settings"},
    {"VIEWPORT", "AcDbViewport", 141, 142, kRelease2007, "grid and light settings"},
    {"VIEWPORT", "AcDbViewport", 170, 170, kRelease2007, "the shade plot mode", 0},
    {"VIEWPORT", "AcDbViewport", 282, 292, kRelease2007, "grid and light settings"},
    {"VIEWPORT", "AcDbViewport", 348, 348, kRelease2007, "the visual style"},
    {"VIEWPORT", "AcDbViewport", 420, 449, kRelease2007, "grid and light settings"},
    {"VPORT", "AcDbViewportTableRecord", 60, 63, kRelease2007, "grid and light settings"},
    {"VPORT", "AcDbViewportTableRecord", 141, 142, kRelease2007, "grid and light settings"},
    {"VPORT", "AcDbViewportTableRecord", 282, 292, kRelease2007, "grid and light settings"},
    {"VPORT", "AcDbViewportTableRecord", 348, 348, kRelease2007, "the visual style"},
    {"VPORT", "AcDbViewportTableRecord", 420, 449, kRelease2007, "grid and light settings"},
    {"IMAGE", "AcDbRasterImage", 290, 290, kRelease2010, "the inverted clip flag", 0},
    {"WIPEOUT", "AcDbWipeout", 290, 290, kRelease2010, "the inverted clip flag", 0},
    {"WIPEOUT", "AcDbRasterImage", 290, 290, kRelease2010, "the inverted clip flag", 0},
    {"MULTILEADER", "AcDbMLeader", 270, 270, kRelease2010, "the version of the class", 2},
    {"MULTILEADER", "AcDbMLeader", 271, 271, kRelease2010, "attachment of leaders from above and below", 0},
    {"MULTILEADER", "AcDbMLeader", 272, 273, kRelease2010, "attachment of leaders from above and below", 9},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", 179, 179, kRelease2010, "the version of the class", 2},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", 271, 271, kRelease2010, "attachment of leaders from above and below", 0},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", 272, 273, kRelease2010, "attachment of leaders from above and below", 9},
    {"MLEADERSTYLE", "AcDbMLeaderStyle", 298, 298, kRelease2010, "an unknown flag", 0},
    {"TABLESTYLE", "AcDbTableStyle", 1, 1, kRelease2007, "cell formats"},
    {"TABLESTYLE", "AcDbTableStyle", 90, 91, kRelease2007, "cell types"},
};

struct HeaderVariable {
  std::string_view name;
  DwgVersion since;
};

// Sorted by name.
constexpr HeaderVariable kNewer[] = {
    {"3DDWFPREC", kRelease2007},
    {"CAMERADISPLAY", kRelease2007},
    {"CAMERAHEIGHT", kRelease2007},
    {"CMATERIAL", kRelease2007},
    {"CSHADOW", kRelease2007},
    {"DGNFRAME", kRelease2007},
    {"DIMARCSYM", kRelease2007},
    {"DIMASSOC", kRelease2004},
    {"DIMFXL", kRelease2007},
    {"DIMFXLON", kRelease2007},
    {"DIMJOGANG", kRelease2007},
    {"DIMLTEX1", kRelease2007},
    {"DIMLTEX2", kRelease2007},
    {"DIMLTYPE", kRelease2007},
    {"DIMTFILL", kRelease2007},
    {"DIMTFILLCLR", kRelease2007},
    {"DIMTXTDIRECTION", kRelease2010},
    {"DWFFRAME", kRelease2007},
    {"HALOGAP", kRelease2004},
    {"HIDETEXT", kRelease2004},
    {"INDEXCTL", kRelease2004},
    {"INTERFERECOLOR", kRelease2007},
    {"INTERFEREOBJVS", kRelease2007},
    {"INTERFEREVPVS", kRelease2007},
    {"INTERSECTIONCOLOR", kRelease2004},
    {"INTERSECTIONDISPLAY", kRelease2004},
    {"LASTSAVEDBY", kRelease2004},
    {"LATITUDE", kRelease2007},
    {"LENSLENGTH", kRelease2007},
    {"LIGHTGLYPHDISPLAY", kRelease2007},
    {"LOFTANG1", kRelease2007},
    {"LOFTANG2", kRelease2007},
    {"LOFTMAG1", kRelease2007},
    {"LOFTMAG2", kRelease2007},
    {"LOFTNORMALS", kRelease2007},
    {"LOFTPARAM", kRelease2007},
    {"LONGITUDE", kRelease2007},
    {"NORTHDIRECTION", kRelease2007},
    {"OBSCOLOR", kRelease2004},
    {"OBSLTYPE", kRelease2004},
    {"PROJECTNAME", kRelease2004},
    {"PSOLHEIGHT", kRelease2007},
    {"PSOLWIDTH", kRelease2007},
    {"REALWORLDSCALE", kRelease2007},
    {"REQUIREDVERSIONS", kRelease2013},
    {"SHADOWPLANELOCATION", kRelease2007},
    {"SHOWHIST", kRelease2007},
    {"SOLIDHIST", kRelease2007},
    {"SORTENTS", kRelease2004},
    {"STEPSIZE", kRelease2007},
    {"STEPSPERSEC", kRelease2007},
    {"TILEMODELIGHTSYNCH", kRelease2007},
    {"TIMEZONE", kRelease2007},
    {"XCLIPFRAME", kRelease2004},
};

// Those of R12, sorted.
constexpr std::string_view kOfR12[] = {
    "ACADVER",    "ANGBASE",   "ANGDIR",      "ATTDIA",    "ATTMODE",    "ATTREQ",     "AUNITS",     "AUPREC",
    "BLIPMODE",   "CECOLOR",   "CELTYPE",     "CHAMFERA",  "CHAMFERB",   "CLAYER",     "COORDS",     "DIMALT",
    "DIMALTD",    "DIMALTF",   "DIMAPOST",    "DIMASO",    "DIMASZ",     "DIMBLK",     "DIMBLK1",    "DIMBLK2",
    "DIMCEN",     "DIMCLRD",   "DIMCLRE",     "DIMCLRT",   "DIMDLE",     "DIMDLI",     "DIMEXE",     "DIMEXO",
    "DIMGAP",     "DIMLFAC",   "DIMLIM",      "DIMPOST",   "DIMRND",     "DIMSAH",     "DIMSCALE",   "DIMSE1",
    "DIMSE2",     "DIMSHO",    "DIMSOXD",     "DIMSTYLE",  "DIMTAD",     "DIMTFAC",    "DIMTIH",     "DIMTIX",
    "DIMTM",      "DIMTOFL",   "DIMTOH",      "DIMTOL",    "DIMTP",      "DIMTSZ",     "DIMTVP",     "DIMTXT",
    "DIMZIN",     "DRAGMODE",  "DWGCODEPAGE", "ELEVATION", "EXTMAX",     "EXTMIN",     "FILLETRAD",  "FILLMODE",
    "HANDLING",   "HANDSEED",  "INSBASE",     "LIMCHECK",  "LIMMAX",     "LIMMIN",     "LTSCALE",    "LUNITS",
    "LUPREC",     "MAXACTVP",  "MENU",        "MIRRTEXT",  "ORTHOMODE",  "OSMODE",     "PDMODE",     "PDSIZE",
    "PELEVATION", "PEXTMAX",   "PEXTMIN",     "PLIMCHECK", "PLIMMAX",    "PLIMMIN",    "PLINEGEN",   "PLINEWID",
    "PSLTSCALE",  "PUCSNAME",  "PUCSORG",     "PUCSXDIR",  "PUCSYDIR",   "QTEXTMODE",  "REGENMODE",  "SHADEDGE",
    "SHADEDIF",   "SKETCHINC", "SKPOLY",      "SPLFRAME",  "SPLINESEGS", "SPLINETYPE", "SURFTAB1",   "SURFTAB2",
    "SURFTYPE",   "SURFU",     "SURFV",       "TDCREATE",  "TDINDWG",    "TDUPDATE",   "TDUSRTIMER", "TEXTSIZE",
    "TEXTSTYLE",  "THICKNESS", "TILEMODE",    "TRACEWID",  "UCSNAME",    "UCSORG",     "UCSXDIR",    "UCSYDIR",
    "UNITMODE",   "USERI1",    "USERI2",      "USERI3",    "USERI4",     "USERI5",     "USERR1",     "USERR2",
    "USERR3",     "USERR4",    "USERR5",      "USRTIMER",  "VISRETAIN",  "WORLDVIEW",
};

} // namespace

const GroupRule* missingGroup(std::string_view kind, std::string_view marker, int code, OdDb::DwgVersion version) {
  const auto* found = std::find_if(std::begin(kGroups), std::end(kGroups), [&](const GroupRule& rule) {
    return rule.since > version && code >= rule.first && code <= rule.last && rule.marker == marker &&
           (rule.kind == "*" || rule.kind == kind);
  });
  return found == std::end(kGroups) ? nullptr : found;
}

bool hasHeaderVariable(std::string_view name, OdDb::DwgVersion version) {
  if (version < kRelease13)
    return std::binary_search(std::begin(kOfR12), std::end(kOfR12), name);
  const auto* newer = std::lower_bound(std::begin(kNewer), std::end(kNewer), name,
                                       [](const HeaderVariable& v, std::string_view n) { return v.name < n; });
  return newer == std::end(kNewer) || newer->name != name || newer->since <= version;
}

} // namespace drawing::dxf
