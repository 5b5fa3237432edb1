"""The layout of a catalogue file: which keys a line may have, how a type is written, in which order lines stand.

Catalogue/README.md explains the fields for people; this module is the same page for the scripts beside it.
"""

import json
import re

OWNERS = ("class", "struct", "enum", "delegate")
MEMBERS = ("property", "dispatcher", "component", "function")

KEYS = {
    "class": ("class", "cpp", "header", "parent", "flags", "display", "category", "interfaces", "defaults",
              "meta"),
    "struct": ("struct", "cpp", "header", "parent", "flags", "native_make", "native_break", "meta"),
    "enum": ("enum", "form", "header", "flags", "values"),
    "delegate": ("delegate", "flags", "params", "returns"),
    "property": ("property", "type", "flags", "default", "display", "category", "meta"),
    "dispatcher": ("dispatcher", "signature", "flags", "category"),
    "component": ("component", "class", "property", "attach"),
    "function": ("function", "flags", "params", "returns", "display", "category", "compact", "keywords",
                 "world_context", "meta"),
}
REQUIRED = {
    "enum": ("form", "values"),
    "property": ("type",),
    "dispatcher": ("signature",),
    "component": ("class",),
    "function": ("flags",),
}
PARAM_KEYS = ("name", "type", "flags", "default", "display", "meta")
RETURN_KEYS = ("type", "flags", "display", "meta")
VALUE_KEYS = ("name", "value", "display", "hidden")

FLAGS = {
    "class": ("abstract", "interface", "actor", "component", "spawnable", "widget", "function_library", "async_action",
              "blueprintable", "blueprint_type", "const", "deprecated", "stub"),
    "struct": ("blueprint_type", "atomic"),
    "enum": ("blueprint_type", "bitflags"),
    "delegate": ("multicast",),
    "property": ("edit", "edit_const", "visible", "bp_read", "bp_write", "expose_on_spawn", "instanced", "transient",
                 "config", "replicated", "rep_notify", "binding", "advanced", "deprecated", "const", "raw"),
    "dispatcher": ("callable", "authority"),
    "component": (),
    "function": ("static", "event", "native_event", "callable", "pure", "latent", "const", "protected", "internal",
                 "deprecated"),
    "param": ("out", "const", "ref", "raw"),
    "return": ("const", "ref", "raw"),
}
ENUM_FORMS = ("regular", "namespaced", "class")

FUNCTION_META = (
    "AdvancedDisplay", "ArrayParm", "ArrayTypeDependentParams", "AutoCreateRefTerm", "BlueprintProtected",
    "CallableWithoutWorldContext",
    "CommutativeAssociativeBinaryOperator", "CustomStructureParam", "DefaultToSelf", "DeterminesOutputType",
    "DevelopmentOnly", "DynamicOutputParam", "ExpandBoolAsExecs", "ExpandEnumAsExecs", "HidePin", "HideSelfPin", "InternalUseParam",
    "LatentInfo", "MapKeyParam", "MapParam", "MapValueParam", "SetParam", "UnsafeDuringActorConstruction")

# Metadata that names parameters of any type; '|' and ',' part the names.
WILDCARD_META = ("ArrayParm", "ArrayTypeDependentParams", "CustomStructureParam", "MapKeyParam", "MapParam",
                 "MapValueParam", "SetParam")

# What a type may refer to, by category; None: no path, and a path is refused.
CATEGORIES = {
    "bool": None, "byte": "enum?", "int": None, "int64": None, "real": None, "name": None, "string": None,
    "text": None, "wildcard": None, "fieldpath": None, "struct": "struct", "object": "class", "weakobject": "class",
    "lazyobject": "class", "class": "class", "softobject": "class", "softclass": "class", "interface": "class",
    "delegate": "delegate", "mcdelegate": "delegate",
}
SUBTYPES = {"real": ("float", "double"), "int": ("int8", "int16", "uint16", "uint32"), "int64": ("uint64",)}

PATH = re.compile(r"^/Script/[A-Za-z_]\w*\.\w+(:\w+)?$")


class FormatError(Exception):
    """Text that is no catalogue line; the message has no file or line yet."""


def parse_type(text):
    """The parts of a type: a list of (category, subtype, path), the key first for a map, and the container."""
    words = text.split(" ")
    container = words.pop(0) if words[0] in ("array", "set", "map") else ""
    if container == "map":
        key, arrow, value = " ".join(words).partition(" -> ")
        if not arrow:
            raise FormatError(f"map type without ' -> ': '{text}'")
        return container, [parse_plain_type(key), parse_plain_type(value)]
    return container, [parse_plain_type(" ".join(words))]


def parse_plain_type(text):
    head, blank, path = text.partition(" ")
    category, colon, subtype = head.partition(":")
    if category not in CATEGORIES:
        raise FormatError(f"unknown type '{text}'")
    if (colon and subtype not in SUBTYPES.get(category, ())) or (category == "real" and not subtype):
        raise FormatError(f"unknown subtype in '{text}'")
    wanted = CATEGORIES[category]
    if blank and (wanted is None or not PATH.match(path)):
        raise FormatError(f"no path may stand in '{text}'" if wanted is None else f"no such path form: '{path}'")
    if wanted and not wanted.endswith("?") and not blank:
        raise FormatError(f"type '{text}' needs a path")
    return category, subtype, path


def line_kind(row):
    """The first key tells what a line is."""
    kind = next(iter(row), None)
    if kind not in KEYS:
        raise FormatError(f"unknown kind of line '{kind}'")
    return kind


def ordered(row, keys):
    """The same object with its keys in the order of the layout."""
    return {key: row[key] for key in keys if key in row}


def canonical(row):
    """A line as it stands in the file: fixed order of keys and flags, one blank after ',' and ':'."""
    kind = line_kind(row)
    out = ordered(row, KEYS[kind])
    for name, keys, flags in (("params", PARAM_KEYS, "param"), ("values", VALUE_KEYS, None)):
        if name in out:
            out[name] = [sort_flags(ordered(entry, keys), flags) for entry in out[name]]
    if "returns" in out:
        out["returns"] = sort_flags(ordered(out["returns"], RETURN_KEYS), "return")
    if "interfaces" in out:
        out["interfaces"] = sorted(out["interfaces"])
    for key in ("defaults", "meta"):
        if key in out:
            out[key] = dict(sorted(out[key].items()))
    return json.dumps(sort_flags(out, kind), ensure_ascii=False, separators=(", ", ": "))


def sort_flags(row, kind):
    if "flags" in row and kind:
        order = FLAGS[kind]
        row["flags"] = sorted(row["flags"], key=lambda flag: order.index(flag) if flag in order else len(order))
    return row


def sort_key(owner):
    """Classes, structs, enums, delegates; by path within a kind."""
    kind = line_kind(owner)
    return OWNERS.index(kind), owner[kind]
