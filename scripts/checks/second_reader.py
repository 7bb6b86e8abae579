"""Runs `morvane make` and `morvane convert` on real drawings and reads what they write with another reader.

Usage: second_reader.py MORVANE CORPUS WORK_FOLDER
"""

import collections
import json
import multiprocessing
import pathlib
import re
import subprocess
import sys
import time
from dataclasses import dataclass, field

import drawing_facts as facts
import inserted_drawings as inserted
import written_blocks as written
from ezdxf.math import OCS, Matrix44, Vec3

EARLY = "12"  # has few kinds: what the others become is not compared, only audited
VERSIONS = {"AC1015": "2000", "AC1018": "2004", "AC1021": "2007", "AC1024": "2010", "AC1027": "2013", "AC1032": "2018"}
LEAST_DRAWINGS = 360  # fewer means that the drawings are not all there
NEW_TEXT = "Дверь_门"
# Kinds that are kept as they are and cannot be moved; nothing else may be left out of a block.
UNMOVABLE = {"3DSOLID", "ACAD_PROXY_ENTITY", "BODY", "OLE2FRAME", "REGION", "SURFACE"}


@dataclass
class Make:
    """A block to make: the drawing, who is selected, and what becomes of them."""

    file: str
    select: list  # ("all",), ("layer", name), ("type", name) or ("handle", text)
    after: str = "convert"
    base: tuple = (0.0, 0.0, 0.0)
    ucs: tuple = ()  # origin, X axis, Y axis
    name: str = "second reader"
    redefine: bool = False
    more: list = field(default_factory=list)


TILTED = ((10, 20, 5), (0.6, 0.8, 0), (0, 0, 1))
TURNED = ((5, -3, 0), (0, 1, 0), (-1, 0, 0))

MAKES = [
    Make("sample-versions/sample_AC1015_ascii.dxf", [("all",)], base=(100.5, -20.25, 0)),
    Make("sample-versions/sample_AC1021_ascii.dxf", [("type", "INSERT"), ("type", "MTEXT")], "keep"),
    Make("sample-versions/sample_AC1032_ascii.dxf", [("all",)], "delete", base=(1, 2, 3), ucs=TURNED),
    Make("dwg-pairs/example_2000.dxf", [("type", "DIMENSION"), ("type", "HATCH")], ucs=TURNED),
    Make("dwg-pairs/example_2018.dxf", [("all",)], base=(7, 8, 0)),
    Make("dwg-pairs/Leader_2004.dxf", [("all",)], "keep"),
    Make("dwg-pairs/Leader_2007.dxf", [("all",)], "delete"),
    Make("dwg-pairs/gh209_1_2010.dxf", [("all",)], base=(12.125, 4, 0)),
    Make("dwg-pairs/gh109_1_2013.dxf", [("all",)], name="门 двери"),
    Make("dynamic-blocks/BLOCKVISIBILITYPARAMETER.dxf", [("all",)]),
    Make("dynamic-blocks/dynblk1.dxf", [("type", "INSERT")], "keep", ucs=TURNED),
    Make("feature-drawings/multi_insert_with_attribs.dxf", [("all",)], base=(3, 3, 0)),
    Make("feature-drawings/hatches_1.dxf", [("type", "HATCH")], base=(3, 3, 0)),
    Make("feature-drawings/images.dxf", [("type", "IMAGE")], "keep"),
    Make("feature-drawings/wipeout_door.dxf", [("all",)], ucs=TURNED),
    Make("feature-drawings/dimension_in_nested_blocks.dxf", [("all",)], more=["--units", "mm"]),
    Make("feature-drawings/mtext_columns_R2000.dxf", [("all",)]),
    Make("feature-drawings/xclip.dxf", [("all",)], base=(-4, 0.5, 0)),
    Make("block-commands/flange.dxf", [("layer", "0")], base=(10, 10, 0)),
    Make("block-commands/attributes.dxf", [("all",)], base=(2, 1, 0)),
    Make("electrical-cyrillic/_ss.dxf", [("all",)], base=(3, 0, 0)),
    Make("electrical-cyrillic/_callpanels.dxf", [("type", "INSERT")], "keep", name="панель"),
    Make("electrical-cyrillic/elscheme.dxf", [("all",)], "delete", name="схема"),
    Make("parts/elektro/relay/r10.dxf", [("all",)], base=(1, 1, 0), ucs=TILTED),
    Make("parts/elektro/capacitor/cap.dxf", [("handle", "43"), ("handle", "44")], base=(5, 0, 0), ucs=TILTED),
    Make("parts/elektro/transistor/vt1.dxf", [("type", "LINE")], "keep"),
]


def version_of(path):
    """The version of a drawing, in either form; empty for others."""
    with open(path, "rb") as file:
        start = file.read(4096)
    found = re.search(rb"\$ACADVER[\s\0\1]+(?:1\s+)?(AC\d+)", start)
    return found.group(1).decode() if found else ""


def run_program(words):
    return subprocess.run(words, capture_output=True, check=False, timeout=120, stdin=subprocess.DEVNULL)


class Check:
    """One run of the program and the faults that the second reader finds in its result."""

    def __init__(self, program, source, work):
        self.program, self.source = program, source
        self.result = work / f"{abs(hash(str(source)))}-{multiprocessing.current_process().pid}.dxf"
        self.faults, self.runs = [], 0

    def fault(self, text):
        self.faults.append(f"{text}")

    def run(self, *words):
        """Runs the program; its report, or None when it failed."""
        self.result.unlink(missing_ok=True)
        self.runs += 1
        done = run_program([self.program, *words, "-o", str(self.result), "--json"])
        if done.returncode not in (0, 4) or not self.result.exists():
            self.fault(f"ended with {done.returncode}: {done.stderr.decode(errors='replace')[:300]}")
            return None
        return json.loads(done.stdout)

    def open_result(self, source_recovered):
        document, recovered = facts.open_drawing(self.result)
        if recovered and not source_recovered:
            self.fault("it opens only after recovery")
        return document

    def compare_audits(self, before, document, allowed=()):
        new = facts.audit(document) - before
        for trouble in allowed:
            del new[trouble]
        if new:
            self.fault(f"the audit finds what the source did not have: {dict(new)}")


def check_conversions(task):
    program, corpus, work, name, versions = task
    check = Check(program, corpus / name, work)
    source, recovered = facts.open_drawing(check.source)
    layers, contents = facts.layers(source), facts.contents(source)
    before = facts.audit(facts.open_drawing(check.source)[0])  # the audit changes what it looks at
    for version, form in versions:
        check.faults.append(f"{version} {form}")
        found = len(check.faults)
        report = check.run("convert", str(check.source), form, *(["--as", version] if version else []))
        if report is not None:
            try:
                document = check.open_result(recovered)
                unlike = {"MTEXT"} if version and facts.joins_columns(source) else set()
                # The reader completes drawings of before 2000 with definitions of its own.
                if version != EARLY and version_of(check.source) in VERSIONS:
                    compare_drawings(check, layers, without_left_out(contents, source, report), document, report, unlike)
                    if not version and not recovered and not renamed(report):
                        compare_entities(check, source, document)
                check.compare_audits(before, document)
            except Exception as error:  # the reader fails in many ways on what it does not expect
                check.fault(f"the reader fails: {error!r}")
        if len(check.faults) == found:
            check.faults.pop()
    return f"convert {name}", check.faults, check.runs


def check_damaged(task):
    """What is written of a damaged drawing has no trouble that the drawing did not have; some the reader cannot audit."""
    program, corpus, work, name = task
    check = Check(program, corpus / name, work)
    try:
        before = facts.audit(facts.open_drawing(check.source)[0])
    except Exception:  # the reader fails in many ways on damage
        before = collections.Counter()
    if check.run("convert", str(check.source)) is not None:
        try:
            check.compare_audits(before, check.open_result(False))
        except Exception as error:
            check.fault(f"the reader fails: {error!r}")
    return f"mended {name}", check.faults, check.runs


def without_left_out(contents, source, report):
    """The contents without the entities that the version cannot hold, as the program told."""
    gone = {issue["handle"] for issue in report["issues"] if issue["code"] == "dxf.kind-not-in-version"}
    if not gone:
        return contents
    return {decoded: collections.Counter(entity.dxftype() for entity in block if entity.dxf.handle not in gone)
            for decoded, block in ((facts.plain(block.name), block) for block in source.blocks)}


def renamed(report):
    return any(issue["code"] == "dxf.duplicate-name" for issue in report["issues"])


def compare_drawings(check, layers, contents, document, report, unlike=()):
    if layers != facts.layers(document):
        check.fault(f"layers: {sorted(layers ^ facts.layers(document))}")
    after = facts.contents(document)
    if renamed(report):
        # The reader heaps blocks of one name into one; here the second has another name.
        contents, after = ({"all": sum(c.values(), collections.Counter())} for c in (contents, after))
    for name in sorted(set(contents) | set(after)):
        before, now = (types and {t: n for t, n in types.items() if t not in unlike}
                       for types in (contents.get(name), after.get(name)))
        if before != now:
            check.fault(f"block {name!r}: {contents.get(name)} became {after.get(name)}")


def compare_entities(check, source, document):
    """Every entity of every block: one that has a handle in the file is there with the same attributes."""
    after = {entity.dxf.handle: entity for block in document.blocks for entity in block}
    for block in source.blocks:
        for entity in block:
            other = after.get(entity.dxf.handle)
            changed = ["gone"] if other is None else facts.differences(entity, other)
            if changed:
                check.fault(f"{entity} of {block.name}: {'; '.join(changed)[:200]}")


def selected(space, locked, make):
    """The entities that the selectors of the command fit, as the second reader sees them."""
    fits = {
        "all": lambda entity, _: True,
        "layer": lambda entity, value: facts.layer_of(entity).lower() == value.lower(),
        "type": lambda entity, value: entity.dxftype() == value,
        "handle": lambda entity, value: entity.dxf.handle == value,
    }
    return [entity for entity in space
            if facts.layer_of(entity).lower() not in locked
            and any(fits[kind](entity, value[0] if value else None) for kind, *value in make.select)]


def point(values):
    return ",".join(repr(float(value)) for value in values)


def words_of(make):
    words = ["--name", make.name, f"--base={point(make.base)}", f"--{make.after}", *make.more]
    for kind, *value in make.select:
        words += ["--select", "all"] if kind == "all" else [f"--{kind}", value[0]]
    if make.ucs:
        words.append("--ucs=" + "/".join(point(part) for part in make.ucs))
    if make.redefine:
        words.append("--redefine")
    return words


def base_in_world(make):
    if not make.ucs:
        return Vec3(make.base)
    origin, x, y = (Vec3(part) for part in make.ucs)
    return Matrix44.ucs(x, y, x.cross(y), origin).transform(Vec3(make.base))


def check_make(task):
    program, corpus, work, make = task
    check = Check(program, corpus / make.file, work)
    try:
        make_and_compare(check, make)
    except Exception as error:  # the reader fails in many ways on what it does not expect
        check.fault(f"the reader fails: {error!r}")
    return f"make {make.file} --{make.after}", check.faults, check.runs


def make_and_compare(check, make):
    source, recovered = facts.open_drawing(check.source)
    locked = {layer.dxf.name.lower() for layer in source.layers if layer.is_locked()}
    wanted = selected(source.modelspace(), locked, make)
    if not wanted:
        check.fault("the selectors fit nothing")
    report = check.run("make", str(check.source), *words_of(make))
    if report is None:
        return
    facts_told = report["results"]
    document = check.open_result(recovered)
    dropped = collections.Counter(facts_told["dropped"])
    if set(dropped) - UNMOVABLE:
        check.fault(f"left out without need: {dict(dropped)}")
    taken = [entity for entity in wanted if entity.dxftype() not in dropped]
    compare_block(check, make, document, taken, facts_told)
    compare_space(check, make, source, document, taken, facts_told["reference"])
    # A group of which all members went into the block is empty.
    check.compare_audits(facts.audit(source), document, () if make.after == "keep" else ("REMOVE_EMPTY_GROUP -",))


def compare_block(check, make, document, taken, told):
    block = next((block for block in document.blocks if facts.plain(block.name) == make.name), None)
    if block is None:
        check.fault("the block is not there")
        return
    found = facts.types_of(block)
    # The reader joins texts in columns that lie in the file one by one.
    if found != facts.types_of(taken) or told["objects"] < len(taken):
        check.fault(f"the block holds {dict(found)}, selected were {dict(facts.types_of(taken))}")


def compare_space(check, make, source, document, taken, reference):
    before = {entity.dxf.handle: entity for entity in source.modelspace()}
    after = {entity.dxf.handle: entity for entity in document.modelspace()}
    gone = set() if make.after == "keep" else {entity.dxf.handle for entity in taken}
    new = {reference} if make.after == "convert" else set()
    if set(after) != (set(before) - gone) | new:
        check.fault(f"model space: handles {sorted(set(after) ^ ((set(before) - gone) | new))[:8]}")
    for handle in sorted((set(before) - gone) & set(after)):
        changed = facts.differences(before[handle], after[handle])
        if changed:
            check.fault(f"{before[handle].dxftype()} {handle} changed: {'; '.join(changed)[:200]}")
    if new:
        compare_reference(check, make, after.get(reference), taken)


def compare_reference(check, make, insert, taken):
    if insert is None or insert.dxftype() != "INSERT" or facts.plain(insert.dxf.name) != make.name:
        check.fault(f"the reference is {insert}")
        return
    at = OCS(insert.dxf.extrusion).to_wcs(insert.dxf.insert)
    if not at.isclose(base_in_world(make), abs_tol=1e-9):
        check.fault(f"the reference stands at {at}, not at {base_in_world(make)}")
    originals, shown = facts.places_of(taken), facts.places_of(insert.block())
    shown = [insert.matrix44().transform(place) for place in shown]
    if len(originals) != len(shown):
        check.fault(f"the reference shows {len(shown)} places of {len(originals)}")
    scale = max((place.magnitude for place in originals), default=1)
    moved = [pair for pair in zip(originals, shown) if not pair[0].isclose(pair[1], abs_tol=1e-9 * (1 + scale))]
    if moved:
        check.fault(f"{len(moved)} places moved, first {moved[0][0]} to {moved[0][1]}")


def check_new_drawing(task):
    """A drawing begun in the console, saved in a version, and a block made of it."""
    program, work, version = task
    drawn = work / f"new-{version}.dxf"
    check = Check(program, drawn, work)
    script = f"LINE 0,0 1,1 \n\nCIRCLE 5,5 2\nTEXT 0,0 2.5 0 {NEW_TEXT}\nSAVEAS {drawn}\n{version}\n"
    done = run_program([program, "-c", script])
    try:
        document, recovered = facts.open_drawing(drawn)
        texts = [facts.plain(entity.dxf.text) for entity in document.modelspace().query("TEXT")]
        if recovered or texts != [NEW_TEXT] or VERSIONS[document.dxfversion] != version:
            check.fault(f"recovered: {recovered}, texts: {texts}, version: {document.dxfversion}")
        check.compare_audits(collections.Counter(), document)
        make_and_compare(check, Make(drawn.name, [("all",)], base=(1, 1, 0), name=NEW_TEXT))
    except Exception as error:  # the reader fails in many ways on what it does not expect
        check.fault(f"the reader fails: {error!r}; {done.stderr.decode(errors='replace')[-300:]}")
    return f"new {version}", check.faults, 1


def check_attributes(task):
    """A block with attributes, inserted under scales and turns with values."""
    program, work, place = task
    scale, degrees, at = inserted.PLACES[place]
    part, empty = work / f"tags-{place}.dxf", work / f"empty-{place}.dxf"
    check = Check(program, part, work)
    try:
        run_program([program, "-c", inserted.attribute_script(part)])
        run_program([program, "-c", f"SAVEAS {empty} 2018\n"])
        values = {tag: f"значение {number}" for number, tag in enumerate(inserted.TAGS)}
        given = [word for tag, value in values.items() for word in ("--attr", f"{tag}={value}")]
        told = check.run("insert", str(empty), "--file", str(part), "--at", f"{at[0]},{at[1]}", "--rotate",
                         str(degrees), "--scale", ",".join(map(str, scale)), *given)
        if told is not None:
            document = check.open_result(False)
            check.compare_audits(collections.Counter(), document)
            inserted.compare_attributes(check.fault, document.modelspace().query("INSERT")[0], values)
    except Exception as error:  # the reader fails in many ways on what it does not expect
        check.fault(f"the reader fails: {error!r}")
    return f"inserted {place}", check.faults, 1


def check_library(task):
    """All parts in one drawing."""
    program, corpus, work = task
    parts = sorted(str(path) for path in (corpus / "parts").rglob("*.dxf"))
    listed, empty = work / "parts.txt", work / "empty.dxf"
    listed.write_text("\n".join(parts))
    check = Check(program, listed, work)
    try:
        run_program([program, "-c", f"SAVEAS {empty} 2018\n"])
        told = check.run("insert", str(empty), "--file-list", str(listed), "--grid", "20,1000,1000", "--defaults")
        if told is not None:
            document = check.open_result(False)
            check.compare_audits(collections.Counter(), document)
            inserted.compare_library(check.fault, document, told["results"]["inserted"], facts.open_drawing)
    except Exception as error:  # the reader fails in many ways on what it does not expect
        check.fault(f"the reader fails: {error!r}")
    return "library", check.faults, len(parts)


def check_written(task):
    """Every block of a drawing in a file of its own."""
    program, corpus, work, name = task
    check = Check(program, corpus / name, work)
    folder = work / f"blocks-{abs(hash(name))}"
    count = 0
    try:
        done = run_program([program, "wblock", str(check.source), "--every-block", str(folder), "--no-previews", "--json"])
        if done.returncode not in (0, 4):
            check.fault(f"ended with {done.returncode}: {done.stderr.decode(errors='replace')[:300]}")
        else:
            source, _ = facts.open_drawing(check.source)
            before = facts.audit(facts.open_drawing(check.source)[0])
            manifest = json.loads((folder / "manifest.json").read_text())
            heaped = renamed(json.loads(done.stdout))
            count = written.compare_written(check.fault, source, before, folder, manifest, heaped)
    except Exception as error:  # the reader fails in many ways on what it does not expect
        check.fault(f"the reader fails: {error!r}")
    return f"written {name}", check.faults, count


def tasks_of(program, corpus, work):
    yield check_library, (program, corpus, work)
    for place in range(len(inserted.PLACES)):
        yield check_attributes, (program, work, place)
    for make in MAKES:
        yield check_make, (program, corpus, work, make)
    for version in VERSIONS.values():
        yield check_new_drawing, (program, work, version)
    names = sorted(str(path.relative_to(corpus)) for path in corpus.rglob("*.dxf"))
    names = [name for name in names if not name.startswith("damaged") and version_of(corpus / name)]
    if len(names) < LEAST_DRAWINGS:
        sys.exit(f"second reader: only {len(names)} drawings under {corpus}")
    for path in sorted((corpus / "damaged").glob("*.dxf")):
        yield check_damaged, (program, corpus, work, str(path.relative_to(corpus)))
    for number, name in enumerate(names):
        own = [("", "--text"), ("", "--binary")]
        others = [(version, form) for version in [EARLY, *VERSIONS.values()] for form in ("--text", "--binary")]
        yield check_written, (program, corpus, work, name)
        yield check_conversions, (program, corpus, work, name, own + others[number % 2::2] if number % 3 == 0 else own)


def run(task):
    check, arguments = task
    return check(arguments)


def main():
    program, corpus, work = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    started, runs, failed = time.monotonic(), collections.Counter(), 0
    with multiprocessing.Pool(2) as pool:
        for name, faults, count in pool.imap(run, list(tasks_of(program, corpus, work)), chunksize=1):
            runs[name.split()[0]] += count
            failed += bool(faults)
            for fault in faults:
                print(f"{name}: {fault}", flush=True)
    print(f"second reader: {runs['make']} blocks made, {runs['convert']} drawings converted, {runs['new']} begun, {runs['mended']} mended, {runs['inserted']} inserted, "
          f"{runs['library']} parts in a library, {runs['written']} blocks written, "
          f"{failed} with faults, {time.monotonic() - started:.0f} s")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
