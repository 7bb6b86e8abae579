"""What `morvane insert` makes, read with another reader: attributes, and a library of many parts."""

import itertools
import math

from ezdxf.math import Vec3

TAGS = ["LEFT", "CENTER", "RIGHT", "MIDDLE", "FIT"]
# Scales, degrees, point; the base point of the block lies off its origin.
PLACES = list(itertools.product([(1, 1, 1), (2, 2, 2), (-1, 1, 1), (3, 0.5, 1)], [0, 30, 180], [(0, 0), (1e4, -250)]))


def attribute_script(path):
    """Definitions of all kinds, in a file with a base point."""
    lines = ["SETVAR INSBASE 7,-3,0"]
    for number, tag in enumerate(TAGS):
        lines += ["ATTDEF", tag, f"Value of {tag}", f"default {number}", "Justify", tag[0] + tag[1:].lower()]
        lines += [f"{number},{2 * number}"] + ([f"{number + 8},{2 * number}"] if tag == "FIT" else []) + ["1"]
    lines += ["LINE", "0,0", "5,5", "", "SAVEAS", str(path), "2018", ""]
    return "\n".join(lines)


def compare_attributes(fault, reference, values):
    """Each attribute hangs on the reference with its tag and value, where the reference shows its definition."""
    definitions = {definition.dxf.tag: definition for definition in reference.block().query("ATTDEF")}
    found = {attribute.dxf.tag: attribute for attribute in reference.attribs}
    if list(found) != TAGS:
        fault(f"attributes are {list(found)}")
        return
    to_world = reference.matrix44()
    for tag, attribute in found.items():
        if attribute.dxf.text != values[tag]:
            fault(f"{tag} is {attribute.dxf.text!r}, not {values[tag]!r}")
        own = definitions[tag]
        point = "insert" if tag == "LEFT" else "align_point"
        shown = Vec3(attribute.ocs().to_wcs(attribute.dxf.get(point)))
        wanted = to_world.transform(Vec3(own.ocs().to_wcs(own.dxf.get(point))))
        if not shown.isclose(wanted, abs_tol=1e-6):
            fault(f"{tag} stands at {shown}, not at {wanted}")
        if not math.isfinite(attribute.dxf.height) or attribute.dxf.height <= 0:
            fault(f"{tag} is {attribute.dxf.height} high")


def compare_library(fault, document, inserted, open_drawing):
    """Every reference shows as many entities of each kind as its own file has in model space."""
    references = {reference.dxf.handle: reference for reference in document.modelspace().query("INSERT")}
    if len(references) != len(inserted):
        fault(f"{len(references)} references for {len(inserted)} files")
    for row in inserted:
        reference = references.get(row["reference"])
        if reference is None or reference.dxf.name != row["block"]:
            fault(f"{row['file']}: the reference is {reference}")
            continue
        part, _ = open_drawing(row["file"])
        counted = [sorted(entity.dxftype() for entity in contents) for contents in (reference.block(), part.modelspace())]
        if counted[0] != counted[1]:
            fault(f"{row['file']}: {len(counted[0])} entities of {len(counted[1])}, or of other kinds")
