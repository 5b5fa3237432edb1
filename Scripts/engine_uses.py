"""What Source uses of the engine, read from the compiler's own tree: one parse for each module, all of its sources at once.

A symbol is anything that a header below Editor/*/Public declares: a class, a member, a function, an enumerator, a macro. It
is told by its header, its owner, its name and its declaration as it stands there, without a body.
"""

import collections
import os
import re
import sys

sys.path.append("/usr/lib/python3/dist-packages")
import clang.cindex as cindex

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MODULES = ("MorvaneCore", "MorvaneToolkit", "MorvaneToolkit_Blueprint")
DEFINES = [f"-D{module.upper()}_API=" for module in MODULES]
Kind = cindex.CursorKind

# What a header of the engine has, and here stands behind it in a folder that Source cannot name.
BEHIND = {
    "Property.h": "UObject/UnrealType.h",
    "ObjectProperty.h": "UObject/UnrealType.h",
    "ContainerProperty.h": "UObject/UnrealType.h",
    "FieldIterator.h": "UObject/UnrealType.h",
    "OrderedTable.h": "Containers/Set.h",
}

Symbol = collections.namedtuple("Symbol", "header owner name signature")

TYPES = (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE, Kind.UNION_DECL)
SCOPES = TYPES + (Kind.NAMESPACE, Kind.ENUM_DECL, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION)
REFERENCES = (
    Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR, Kind.MEMBER_REF, Kind.TYPE_REF, Kind.TEMPLATE_REF, Kind.CALL_EXPR,
    Kind.OVERLOADED_DECL_REF, Kind.CXX_BASE_SPECIFIER, Kind.MACRO_INSTANTIATION,
)
DECLARED = TYPES + (
    Kind.FIELD_DECL, Kind.VAR_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.FUNCTION_DECL, Kind.FUNCTION_TEMPLATE,
    Kind.ENUM_DECL, Kind.ENUM_CONSTANT_DECL, Kind.TYPEDEF_DECL, Kind.TYPE_ALIAS_DECL, Kind.TYPE_ALIAS_TEMPLATE_DECL,
    Kind.CONVERSION_FUNCTION, Kind.MACRO_DEFINITION,
)


def include_folders():
    folders = []
    for top in ("Editor", "Source"):
        for module in sorted(os.listdir(os.path.join(ROOT, top))):
            folders.append(os.path.join(ROOT, top, module, "Public"))
            folders.append(os.path.join(ROOT, top, module))
    generated = os.path.join(ROOT, "Generated")
    return folders + [os.path.join(generated, module) for module in sorted(os.listdir(generated))]


def sources_of(module):
    base = os.path.join(ROOT, "Source", module, "Private")
    found = [os.path.join(folder, file) for folder, _, files in os.walk(base) for file in files if file.endswith(".cpp")]
    return sorted(found)


def load_library():
    # The library carries the version of the compiler; the newest that is installed will do.
    folder = "/usr/lib/x86_64-linux-gnu"
    candidates = sorted(name for name in os.listdir(folder) if re.fullmatch(r"libclang-\d+\.so(\.\d+)*", name))
    if candidates:
        cindex.Config.set_library_file(os.path.join(folder, candidates[-1]))


def parse(module):
    """The tree of a file that includes every source of the module."""
    text = "".join(f'#include "{path}"\n' for path in sources_of(module))
    arguments = ["-std=c++20", "-x", "c++", "-w", "-I", os.path.join(ROOT, "Source", module, "Private"), *DEFINES]
    for folder in include_folders():
        arguments += ["-I", folder]
    path = os.path.join(ROOT, "Source", module, "AllSources.cpp")
    options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
    unit = cindex.Index.create().parse(path, arguments, [(path, text)], options)
    errors = [str(entry) for entry in unit.diagnostics if entry.severity >= cindex.Diagnostic.Error]
    if errors:
        raise SystemExit("check_engine_api: Source does not compile in one piece:\n" + "\n".join(errors[:20]))
    return unit


class Reader:
    """Gathers the uses of one module, by the file that uses."""

    def __init__(self):
        self.texts = {}
        self.symbols = {}
        self.uses = collections.defaultdict(set)
        self.complete = collections.defaultdict(set)
        self.bases = collections.defaultdict(set)

    def text(self, path):
        if path not in self.texts:
            with open(path, "rb") as file:
                self.texts[path] = file.read()
        return self.texts[path]

    def read(self, module):
        unit = parse(module)
        inside = os.path.join(ROOT, "Source", module) + os.sep
        for cursor in unit.cursor.get_children():
            file = cursor.location.file
            if file and file.name.startswith(inside):
                self.walk(cursor, file.name)

    def walk(self, cursor, path):
        if cursor.kind in REFERENCES:
            self.note(cursor, path)
        for child in cursor.get_children():
            self.walk(child, path)

    def note(self, cursor, path):
        place = cursor.location.file
        path = place.name if place and place.name.startswith(os.path.join(ROOT, "Source")) else path
        targets = [cursor.referenced]
        if cursor.kind == Kind.OVERLOADED_DECL_REF:
            library = cindex.conf.lib
            count = library.clang_getNumOverloadedDecls(cursor)
            targets = [library.clang_getOverloadedDecl(cursor, index) for index in range(count)]
            # In a template an operator stands for every one that there is.
            targets = [target for target in targets if not target.spelling.startswith("operator")]
        for target in targets:
            symbol = self.symbol(target)
            if symbol:
                relative = os.path.relpath(path, ROOT)
                self.uses[symbol].add(relative)
                if cursor.kind != Kind.TYPE_REF or target.kind not in TYPES:
                    self.complete[symbol].add(relative)

    def symbol(self, target):
        if not target or target.kind not in DECLARED or not target.location.file:
            return None
        pattern = cindex.conf.lib.clang_getSpecializedCursorTemplate(target)
        if pattern and pattern.location.file and pattern.kind in DECLARED:
            target = pattern
        if target.kind in TYPES and target.get_definition():
            target = target.get_definition()
        path = target.location.file.name
        match = re.match(re.escape(ROOT) + r"/Editor/\w+/(Public|Standalone)/(.*)", os.path.normpath(path))
        if not match or self.is_implicit(target):
            return None
        header = match[2] if match[1] == "Public" else BEHIND.get(match[2])
        if not header:
            return None
        key = (path, target.location.offset, target.extent.start.offset, target.kind)
        if key not in self.symbols:
            name = target.spelling.split("<")[0] if target.kind == Kind.CONSTRUCTOR else target.spelling
            self.symbols[key] = Symbol(header, self.owner(target), name, self.signature(target))
            self.note_bases(target, header)
        return self.symbols[key]

    @staticmethod
    def is_implicit(target):
        """What the compiler made by itself stands where its class does."""
        parent = target.semantic_parent
        return target.kind in (Kind.CONSTRUCTOR, Kind.CXX_METHOD) and parent and target.location == parent.location

    def note_bases(self, target, header):
        if target.kind in TYPES:
            for child in target.get_children():
                if child.kind == Kind.CXX_BASE_SPECIFIER:
                    base = self.symbol(child.referenced)
                    if base:
                        self.bases[header].add(base.header)

    @staticmethod
    def owner(target):
        names = []
        parent = target.semantic_parent
        while parent and parent.kind in SCOPES:
            if parent.spelling:
                names.append(parent.spelling)
            parent = parent.semantic_parent
        return "::".join(reversed(names))

    def signature(self, target):
        start, end = target.extent.start.offset, target.extent.end.offset
        text = self.text(target.location.file.name)[start:end].decode("utf-8", "replace")
        if target.kind == Kind.MACRO_DEFINITION:
            return re.match(r"\w+(\([^)]*\))?", text)[0]
        if target.kind not in (Kind.FIELD_DECL, Kind.VAR_DECL, Kind.ENUM_CONSTANT_DECL):
            text = cut_body(text)
        elif target.kind == Kind.VAR_DECL:
            text = text.split("=")[0]
        text = re.sub(r"//[^\n]*|/\*.*?\*/", " ", text, flags=re.S)
        return re.sub(r"\s+", " ", text).strip()


def cut_body(text):
    """The declaration before its body and before a constructor's list of members."""
    depth = 0
    for index, char in enumerate(text):
        if char in "(<[":
            depth += 1
        elif char in ")]" or (char == ">" and text[index - 1] != "-"):
            depth -= 1
        elif char == "{" and depth <= 0:
            return re.sub(r"\)\s*:\s(?!:).*$", ")", text[:index], flags=re.S)
    return text


def read_all():
    load_library()
    reader = Reader()
    for module in MODULES:
        reader.read(module)
    return reader
