"""What the second reader finds in a drawing: the facts that two drawings are compared by."""

import collections
import logging
import math

import ezdxf
from ezdxf import recover
from ezdxf.lldxf.const import DXFError
from ezdxf.lldxf.encoding import decode_dxf_unicode
from ezdxf.lldxf.tagwriter import TagCollector
from ezdxf.math import Vec3

logging.getLogger("ezdxf").setLevel(logging.CRITICAL)

# Groups that tell the shape of what has no attribute for it: texts, corners, bulges.
SHAPE_CODES = {1, 3, 10, 20, 30}
BULGED = {"LWPOLYLINE", "VERTEX", "HATCH"}
# Where a file leaves these out, readers do not agree on what that means.
NO_COMMON_DEFAULT = {"actual_measurement", "control_point_tolerance", "defined_height", "has_hookline",
                     "knot_tolerance", "line_spacing_factor", "text_height", "text_width", "width"}
ANGLE_WORDS = ("angle", "rotation", "oblique")


def open_drawing(path):
    """The drawing, and whether the reader had to recover it."""
    try:
        return ezdxf.readfile(path), False
    except (DXFError, ValueError):
        return recover.readfile(path)[0], True


def audit(document):
    """How often the reader's audit finds each trouble, mended or not, by code and kind of object."""
    auditor = document.audit()
    troubles = collections.Counter()
    for entry in [*auditor.errors, *auditor.fixes]:
        if document.dxfversion <= "AC1009" and entry.message.startswith("Deleted SEQEND"):
            continue  # the reader knows no owner of these in early files, whoever wrote them
        kind = entry.entity.dxftype() if entry.entity is not None else "-"
        troubles[f"{getattr(entry.code, 'name', entry.code)} {kind}"] += 1
    return troubles


def types_of(entities):
    return collections.Counter(entity.dxftype() for entity in entities)


def layer_of(entity):
    if entity.dxf.is_supported("layer"):
        return entity.dxf.layer
    if not entity.xtags.has_subclass("AcDbEntity"):
        return entity.xtags.noclass.get_first_value(8, "0")  # early files have no sections
    return entity.xtags.get_subclass("AcDbEntity").get_first_value(8, "0")  # a kind that is kept as bare groups


def layers(document):
    """Names of the layers that are defined or used, folded."""
    used = {layer_of(entity) for block in document.blocks for entity in block}
    return {decode_dxf_unicode(name).lower() for name in used | {layer.dxf.name for layer in document.layers}}


def joins_columns(document):
    """Whether the reader joins texts that lie in the file column by column; files of 2018 hold them in one."""
    return any(entity.dxftype() == "MTEXT" and entity.has_columns for block in document.blocks for entity in block)


def contents(document):
    """Types of what each block and layout holds, by name."""
    return {decode_dxf_unicode(block.name): types_of(block) for block in document.blocks}


def plain(value):
    """Texts without escapes."""
    if not isinstance(value, str):
        return value
    # Binary files may hold line breaks, which the reader takes for those of the text.
    return decode_dxf_unicode(value).replace("^J", "\\P").replace("\n", "\\P")


def shape_of(entity):
    try:
        tags = TagCollector.dxftags(entity)
    except (AssertionError, DXFError, AttributeError, TypeError):
        return None  # the reader reads the kind and cannot write it
    codes = SHAPE_CODES | {42} if entity.dxftype() in BULGED else SHAPE_CODES
    return [(tag.code, plain(tag.value)) for tag in tags if tag.code in codes and tag.value != ""]


def is_same_value(name, one, other):
    one, other = plain(one), plain(other)
    if name.endswith("_handle") and {one, other} == {"0", None}:
        return True
    if isinstance(one, float) and any(word in name for word in ANGLE_WORDS):
        return math.isclose(one, other, rel_tol=1e-14, abs_tol=1e-13)  # files count in degrees
    if name in ("layer", "linetype", "style", "dimstyle", "name"):
        return str(one).lower() == str(other).lower()
    if isinstance(one, Vec3) and isinstance(other, Vec3):
        return one.xyz == other.xyz  # its own comparison is not exact
    return one is other or (one is not None and other is not None and one == other)


def differences(one, other):
    """Names of the attributes in which two entities differ; what is left out has its default."""
    if one.dxftype() != other.dxftype():
        return [f"{one.dxftype()} became {other.dxftype()}"]
    names = set(one.dxfattribs()) | set(other.dxfattribs())
    differing = []
    for name in sorted(names):
        if name in NO_COMMON_DEFAULT and not (one.dxf.hasattr(name) and other.dxf.hasattr(name)):
            continue
        if name == "align_point" and one.dxf.get("halign", 0) == 0 and one.dxf.get("valign", 0) == 0:
            continue  # not used
        before, after = one.dxf.get_default(name), other.dxf.get_default(name)
        if not is_same_value(name, before, after):
            differing.append(f"{name}: {before!r} became {after!r}")
    before, after = shape_of(one), shape_of(other)
    if before is not None and after is not None and before != after:
        differing.append("shape")
    return differing


def places_of(entities):
    """Points of the simple kinds in the world, in order."""
    places = []
    for entity in entities:
        if entity.dxftype() == "LINE":
            places += [entity.dxf.start, entity.dxf.end]
        elif entity.dxftype() == "POINT":
            places.append(entity.dxf.location)
        elif entity.dxftype() in ("CIRCLE", "ARC"):
            places.append(entity.ocs().to_wcs(entity.dxf.center))
    return places
