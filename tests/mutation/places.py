"""Finds the places of a C++ source at which a program can be made wrong, and writes the source with a switch at each."""

import bisect
import collections
import re
from dataclasses import dataclass

import clang.cindex as cindex
from clang.cindex import CursorKind, TypeKind

cindex.Config.set_library_file("/usr/lib/llvm-14/lib/libclang.so.1")

INTEGERS = {
    TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.USHORT, TypeKind.UINT, TypeKind.ULONG, TypeKind.ULONGLONG, TypeKind.CHAR_S,
    TypeKind.SCHAR, TypeKind.SHORT, TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG
}
NUMBERS = INTEGERS | {TypeKind.FLOAT, TypeKind.DOUBLE}
FUNCTIONS = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.FUNCTION_TEMPLATE, CursorKind.CONSTRUCTOR,
             CursorKind.DESTRUCTOR, CursorKind.CONVERSION_FUNCTION)
LOGICAL = ("&&", "||")


@dataclass
class Place:
    """`kind` says what is wrong there: a condition negated, a border moved, a sum turned, a result changed, a call left out.
    `where` is the function that it stands in, with "#2" behind it for the second place of the same kind and text there."""
    number: int
    file: str
    line: int
    where: str
    kind: str
    text: str

    def key(self):
        """What tells it from all other places, also after lines have come and gone above it."""
        return self.file, self.where, self.kind, self.text


class Source:
    def __init__(self, path, arguments, first_number):
        self.path = path
        self.text = open(path, "rb").read()
        self.next = first_number
        self.function = ""
        self.alike = collections.Counter()
        self.places = []
        self.wraps = []
        self.replaced = {}
        unit = cindex.Index.create().parse(
            path, arguments, options=cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        self.errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        tokens = [t for t in unit.get_tokens(extent=unit.cursor.extent)]
        self.tokens = [(t.extent.start.offset, t.extent.end.offset, t.spelling) for t in tokens]
        self.starts = [t[0] for t in self.tokens]
        top = list(unit.cursor.get_children())
        self.macros = [(c.extent.start.offset, c.extent.end.offset) for c in top
                       if c.kind == CursorKind.MACRO_INSTANTIATION and self.is_here(c)]
        for cursor in top:
            if self.is_here(cursor) and not cursor.kind.is_preprocessing():
                self.walk(cursor)

    def is_here(self, cursor):
        return cursor.location.file is not None and cursor.location.file.name == self.path

    def token_at(self, offset):
        """The first token that begins there or behind."""
        index = bisect.bisect_left(self.starts, offset)
        return self.tokens[index] if index < len(self.tokens) else None

    def range(self, cursor):
        """Where an expression stands; None where a macro has made it."""
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        for first, last in self.macros:
            if first <= start < last and not (start == first and end > last):
                return None
        return (start, end) if start < end <= len(self.text) else None

    def place(self, kind, start, end):
        line = self.text.count(b"\n", 0, start) + 1
        text = re.sub(r"\s+", " ", self.text[start:end].decode())
        alike = (self.function, kind, text)
        self.alike[alike] += 1
        count = self.alike[alike]
        where = self.function + (f" #{count}" if count > 1 else "")
        found = Place(self.next, self.path, line, where, kind, text)
        self.places.append(found)
        self.next += 1
        return found.number

    def negate(self, cursor):
        where = self.range(cursor)
        if where is None or self.is_logical(cursor):
            return
        number = self.place("negated", *where)
        self.wraps.append((*where, f"(Mutants::IsWrong({number}) != static_cast<bool>(", "))"))

    def bare(self, cursor):
        while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
            children = list(cursor.get_children())
            if len(children) != 1:
                break
            cursor = children[0]
        return cursor

    def operator(self, cursor):
        """The token between the sides of a binary operator."""
        children = list(cursor.get_children())
        if len(children) != 2:
            return None
        return self.token_at(children[0].extent.end.offset)

    def is_logical(self, cursor):
        cursor = self.bare(cursor)
        if cursor.kind != CursorKind.BINARY_OPERATOR:
            return False
        token = self.operator(cursor)
        return token is not None and token[2] in LOGICAL

    def walk(self, cursor):
        kind = cursor.kind
        if kind in (CursorKind.STATIC_ASSERT, CursorKind.ENUM_DECL):
            return
        if kind in (CursorKind.VAR_DECL, CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.FUNCTION_TEMPLATE):
            if self.is_constant(cursor):
                return
        outer = self.function
        if kind in FUNCTIONS:
            self.function = self.name(cursor)
        children = list(cursor.get_children())
        if kind == CursorKind.IF_STMT or kind == CursorKind.WHILE_STMT:
            self.condition(cursor, children)
        elif kind == CursorKind.CONDITIONAL_OPERATOR:
            self.negate(children[0])
        elif kind == CursorKind.BINARY_OPERATOR:
            self.binary(cursor, children)
        elif kind == CursorKind.RETURN_STMT and children:
            self.result(children[0])
        for index, child in enumerate(children):
            if self.is_body(kind, index, children):
                self.statement(child)
            # What a case is told by is a constant.
            if kind != CursorKind.CASE_STMT or index > 0:
                self.walk(child)
        self.function = outer

    def name(self, function):
        """With the class or the function that it stands in, as Recordset::Value."""
        parent = function.semantic_parent
        if parent is None or parent.kind in (CursorKind.TRANSLATION_UNIT, CursorKind.NAMESPACE):
            return function.spelling
        return f"{parent.spelling}::{function.spelling}"

    def is_constant(self, cursor):
        start = cursor.extent.start.offset
        index = bisect.bisect_left(self.starts, start)
        first = [t[2] for t in self.tokens[index:index + 6]]
        return "constexpr" in first or "consteval" in first

    def condition(self, cursor, children):
        second = self.token_at(cursor.extent.start.offset + 2)
        # A declaration among the conditions comes first.
        if second[2] != "constexpr" and children[0].kind.is_expression():
            self.negate(children[0])

    def binary(self, cursor, children):
        token = self.operator(cursor)
        if token is None or self.range(cursor) is None:
            return
        start, end, sign = token
        if sign in LOGICAL:
            for child in children:
                self.negate(child)
        elif sign in ("<", "<=", ">", ">="):
            number = self.place("border", cursor.extent.start.offset, cursor.extent.end.offset)
            self.replaced[start] = (end, f"< Mutants::Less{{{number}}} {sign}")
        elif sign in ("+", "-") and all(c.type.get_canonical().kind in NUMBERS for c in children):
            number = self.place("turned", cursor.extent.start.offset, cursor.extent.end.offset)
            self.replaced[start] = (end, f"+ Mutants::Plus{{{number}}} {sign}")

    def result(self, value):
        where = self.range(value)
        kind = value.type.get_canonical().kind
        if where is None:
            return
        if kind == TypeKind.BOOL:
            self.negate(value)
        elif kind in NUMBERS:
            number = self.place("one more", *where)
            self.wraps.append((*where, "((", f") + (Mutants::IsWrong({number}) ? 1 : 0))"))

    def is_body(self, kind, index, children):
        if kind == CursorKind.COMPOUND_STMT:
            return True
        if kind == CursorKind.IF_STMT:
            return index > 0
        if kind in (CursorKind.FOR_STMT, CursorKind.WHILE_STMT, CursorKind.CXX_FOR_RANGE_STMT):
            return index == len(children) - 1
        return False

    def statement(self, cursor):
        inner = self.bare(cursor)
        left_out = inner.kind in (CursorKind.CALL_EXPR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR, CursorKind.UNARY_OPERATOR)
        if inner.kind == CursorKind.BINARY_OPERATOR:
            token = self.operator(inner)
            left_out = token is not None and token[2] == "="
        where = self.range(cursor)
        if not left_out or where is None:
            return
        end = self.token_at(where[1])
        text = self.text[where[0]:where[1]]
        if end is None or end[2] != ";" or b"setupUi" in text:
            return
        number = self.place("left out", *where)
        self.wraps.append((where[0], end[1], f"{{ if (!Mutants::IsWrong({number})) ", " }"))

    def rewritten(self):
        """The source with its switches. What encloses more opens before and closes behind."""
        edits = {}
        for start, end, opening, closing in self.wraps:
            edits.setdefault(start, [[], []])[1].append((-end, opening))
            edits.setdefault(end, [[], []])[0].append((-start, closing))
        out, at = [], 0
        for offset in sorted(set(edits) | set(self.replaced)):
            out.append(self.text[at:offset])
            at = offset
            closings, openings = edits.get(offset, ([], []))
            out += [c.encode() for _, c in sorted(closings, key=lambda e: e[0])]
            out += [o.encode() for _, o in sorted(openings, key=lambda e: e[0])]
            if offset in self.replaced:
                at, text = self.replaced[offset]
                out.append(text.encode())
        out.append(self.text[at:])
        return b"".join(out)
