"""What `morvane wblock --every-block` writes, read with another reader."""

import collections

import drawing_facts as facts


def compare_written(fault, source, before, folder, manifest, heaped):
    """Each file opens, is sound, and holds what its block holds in the drawing; nobody else's definitions are in it.

    `before` counts the troubles that the drawing has itself. Where the reader heaps blocks of one name into one, the
    drawing's own contents are not compared. Answers the number of files.
    """
    blocks = {} if heaped else facts.contents(source)
    for row in manifest["blocks"]:
        document, recovered = facts.open_drawing(folder / row["file"])
        label = row["block"]
        if recovered:
            fault(f"{label}: it opens only after recovery")
        new = facts.audit(facts.open_drawing(folder / row["file"])[0]) - before
        if new:
            fault(f"{label}: the audit finds what the drawing did not have: {dict(new)}")
        found = facts.types_of(document.modelspace())
        own = blocks.get(facts.plain(label))
        if found != collections.Counter(row["types"]) or (own is not None and found != own):
            fault(f"{label}: the file holds {dict(found)}, told were {row['types']}, the block holds {own}")
        if not heaped:
            compare_nested(fault, label, blocks, document)
    return len(manifest["blocks"])


def compare_nested(fault, label, blocks, document):
    """Named definitions are the drawing's; what is anonymous has new numbers."""
    for name, types in facts.contents(document).items():
        if name.startswith("*"):
            continue
        if blocks.get(name) != types:
            fault(f"{label}: the definition {name!r} holds {dict(types)}, in the drawing {blocks.get(name)}")
