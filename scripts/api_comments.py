#!/usr/bin/env python3
"""Input filter of Doxygen: prints a public header with its plain comments as documentation.

A comment documents the declaration below it and every further one up to the next comment or blank line, so that one
comment heads a group. A comment at the end of a declaration is added to that. The first comment of a file documents the
file. Lines keep their numbers.

No comment is required for data members and enumerators of a documented type, aliases, functions that override another
one, destructors, copying and moving, and defaulted or deleted functions; Doxygen itself exempts default constructors.
"""
import re
import sys

SPECIAL = re.compile(r'([\\@&$#<>%"])')
TOKEN = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'|\n|\s|\w+|.', re.S)
TYPE = re.compile(r"^(?:template\s*<.*?>\s*)?(?:class|struct|union|enum)\b")
HEADING = re.compile(r"^-- .* --$")  # of a part of a class or namespace; it documents nothing
# Declarations that Doxygen skips; a comment before one would document the next declaration.
UNDOCUMENTED = re.compile(r"^(?:(?:template\s*<.*?>\s*)?(?:friend )?(?:class|struct|enum)[\w\s:<>]*|namespace\b.*|OD\w+_MEMBERS.*)$")


class Declaration:
    def __init__(self, offset, line, scope):
        self.offset, self.line, self.last_line, self.scope = offset, line, line, scope
        self.text, self.comment, self.trailing = "", "", ""
        self.is_definition = False
        self.further = []  # offsets of the variables after its commas
        self.column = None  # of the trailing comment

    def name(self):
        words = re.findall(r"\w+", re.split(r"[:{]", self.text)[0])
        return words[-1] if words else ""

    def is_type(self):
        return bool(TYPE.match(self.text)) and "(" not in self.text

    def is_function(self):
        return "operator" in self.text or "(" in re.sub(r"<.*>", "", self.text.split("=")[0])

    def needs_none(self):
        text = " ".join(self.text.split())
        owner = self.scope.name
        copies = owner and re.search(r"(\b%s|operator=) ?\( ?(const )?%s ?&+ ?\w* ?\)" % (owner, owner), text)
        return copies or re.search(
            r"^(template ?<.*?> ?)?(using|friend|typedef)\b|\boverride\b|= ?(default|delete)$|^(virtual )?~", text)


class Scope:
    """An open brace: a namespace, a type, or a body, whose contents are ignored."""

    def __init__(self, kind, owner=None):
        self.kind, self.owner = kind, owner
        self.name = owner.name() if owner else ""


def scope_of(declaration):
    text = declaration.text.strip() if declaration else ""
    if text.startswith("namespace"):
        return Scope("namespace", declaration)
    if declaration and declaration.is_type():
        declaration.is_definition = True
        return Scope("enum" if text.startswith("enum") else "class", declaration)
    return Scope("body")


class Header:
    """The declarations of a file, in order."""

    def __init__(self, text):
        self.text, self.lines = text, text.split("\n")
        self.declarations, self.scopes = [], [Scope("file")]
        self.open = None  # the declaration that is being read
        self.last = None  # the one that ended last
        self.parentheses = 0
        line, position = 1, 0
        while position < len(text):
            length = self.directive(position, line)
            token = text[position:position + length] if length else TOKEN.match(text, position).group()
            if not length:
                self.take(token, position, line)
            line += token.count("\n")
            position += len(token)

    def scope(self):
        return self.scopes[-1]

    def directive(self, position, line):
        if self.text[position] != "#" or self.lines[line - 1].split("#")[0].strip():
            return 0
        return re.compile(r"(?:[^\n]*\\\n)*[^\n]*").match(self.text, position).end() - position

    def take(self, token, position, line):
        if token.startswith(("//", "/*")):
            self.take_comment(token, position, line)
        elif self.scope().kind == "body":
            self.take_in_body(token, line)
        elif token.isspace():
            if self.open:
                self.open.text += " "
        elif token == "{":
            self.open_braces(line)
        elif token == "}":
            self.end(line)
            self.scopes.pop()
        elif not self.parentheses and (token == ";" or token == "," and self.scope().kind == "enum"):
            self.end(line)
        elif token == "," and self.lists_variables():
            self.open.further.append(position + 1)
        elif token == ":" and self.open and self.open.text.strip() in ("public", "protected", "private"):
            self.declarations.pop()
            self.open = None
        else:
            self.take_word(token, position, line)

    def lists_variables(self):
        text = self.open.text if self.open else "("
        return "(" not in text and not self.parentheses and text.count("<") == text.count(">")

    def take_in_body(self, token, line):
        if token == "{":
            self.scopes.append(Scope("body"))
        elif token == "}":
            self.scopes.pop()
            if self.scope().kind != "body" and not self.parentheses:
                self.end(line)

    def take_word(self, token, position, line):
        self.parentheses += {"(": 1, ")": -1}.get(token, 0)
        if not self.open:
            self.open = Declaration(position, line, self.scope())
            self.declarations.append(self.open)
        self.open.text += token

    def take_comment(self, token, position, line):
        target = self.open or self.last
        column = position - self.text.rfind("\n", 0, position)
        starts_line = not self.lines[line - 1][:column - 1].strip()
        continues = target and (target.last_line, target.column) == (line - 1, column)
        if self.scope().kind != "body" and target and (not starts_line or continues):
            target.trailing += " " + token.strip("/* ")
            target.last_line, target.column = line, column

    def open_braces(self, line):
        scope = Scope("body") if self.parentheses else scope_of(self.open)
        self.scopes.append(scope)
        if scope.kind != "body":
            self.end(line)

    def end(self, line):
        if self.open:
            self.open.last_line = line
            self.last, self.open = self.open, None


def comment_text(line):
    match = re.match(r"\s*//+ ?(.*)", line)
    return match.group(1) if match else None


def comment_above(header, line):
    first = line - 1
    while first > 0 and comment_text(header.lines[first - 1]) is not None:
        first -= 1
    texts = [comment_text(text) for text in header.lines[first:line - 1]]
    return "" if first == 0 else " ".join(text for text in texts if not HEADING.match(text))


def attach(header):
    """Gives each declaration the comment above it, or that of its group."""
    group, previous = "", None
    for declaration in header.declarations:
        own = comment_above(header, declaration.line)
        if own:
            group = own
        elif previous and (previous.is_definition or previous.scope is not declaration.scope):
            group = ""
        elif previous and any(not text.strip() for text in header.lines[previous.last_line:declaration.line - 1]):
            group = ""
        declaration.comment = group
        previous = declaration


def plain(text):
    """As one line in which nothing is a command of Doxygen."""
    return " ".join(SPECIAL.sub(r"\\\1", text.replace("*/", "* /")).split())


def documentation(declaration):
    text = " ".join(part for part in (declaration.comment, declaration.trailing) if part.strip())
    owner = declaration.scope.owner
    if not text and declaration.needs_none():
        text = "See the type, or the function that it overrides."
    elif not text and owner and owner.is_type() and not declaration.is_type() and not declaration.is_function():
        text = owner.comment or owner.trailing
    return plain(text)


def documented(header):
    attach(header)
    head = header.text.split("#pragma once\n")[0]
    parts, at = ["/** @file\n" + plain(head.replace("//", "")) + " */" + "\n" * head.count("\n")], len(head) + 13
    for declaration in header.declarations:
        skipped = not declaration.is_definition and UNDOCUMENTED.match(declaration.text.strip())
        text = "" if skipped else documentation(declaration)
        for offset in [declaration.offset] + declaration.further:
            parts += [header.text[at:offset], "/** " + text + " */ " if text else ""]
            at = offset
    return macros("".join(parts) + header.text[at:])


def macros(text):
    """Macros are not declarations: the comment above one is turned into documentation where it is."""
    return re.sub(r"(?m)^((?:// .*\n)+)(?=#define )", lambda found: "/** %s */\n%s" % (
        plain(found.group(1).replace("//", "")), "\n" * (found.group(1).count("\n") - 1)), text)


if __name__ == "__main__":
    with open(sys.argv[1], encoding="utf-8") as source:
        sys.stdout.write(documented(Header(source.read())))
