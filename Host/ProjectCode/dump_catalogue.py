"""Writes what the running editor's reflection says of a project's own modules, in the form of the class catalogue.

Run it once inside the editor (Tools > Execute Python Script; the Python plug-in must be on), and again when the C++ has
changed. It writes Config/Catalogue/<Module>.editor.jsonl, one file a module, and changes nothing else.

Python sees properties and parameters under its own spelling and tells their types in the documentation of each class; the
names are turned back by rule ("open_angle" -> "OpenAngle", a bool "is_open" -> "bIsOpen"), which names that ignore case bear.
"""

import json
import os
import re

import unreal

PLAIN = {
    "bool": "bool", "uint8": "byte", "int8": "int:int8", "int16": "int:int16", "uint16": "int:uint16", "int32": "int",
    "uint32": "int:uint32", "int64": "int64", "uint64": "int64:uint64", "float": "real:float", "double": "real:double",
    "str": "string", "string": "string", "Name": "name", "Text": "text", "FieldPath": "fieldpath",
}
PROPERTY = re.compile(r"^- ``(\w+)`` \((.*?)\):\s+\[(Read-Write|Read-Only)\]", re.MULTILINE)
ARGUMENT = re.compile(r"^\s+(\w+) \((.*?)\):", re.MULTILINE)


def project_modules():
    """Names of the modules that the project and its plug-ins declare."""
    root = unreal.Paths.convert_relative_path_to_full(unreal.Paths.project_dir())
    names = set()
    for folder, folders, files in os.walk(root):
        folders[:] = [name for name in folders if name not in ("Content", "Intermediate", "Saved", "Binaries", "DerivedDataCache")]
        for file in files:
            if file.endswith((".uproject", ".uplugin")):
                with open(os.path.join(folder, file), encoding="utf-8-sig") as opened:
                    names.update(module["Name"] for module in json.load(opened).get("Modules", []))
    return names


def reflected(python_type):
    """The reflected type behind a Python one and its word in the catalogue; nothing for other Python objects."""
    for base, method, word in ((unreal.Object, "static_class", "object"), (unreal.StructBase, "static_struct", "struct"),
                               (unreal.EnumBase, "static_enum", "byte")):
        if isinstance(python_type, type) and issubclass(python_type, base):
            found = getattr(python_type, method, None)
            return (found().get_path_name(), word) if found else None
    return None


def describe(text):
    """A type of the documentation in the catalogue's words; None for one that it has no word for."""
    text = text.strip()
    inner = re.fullmatch(r"(Array|Set)\[(.*)\]", text)
    if inner:
        element = describe(inner.group(2))
        return element and inner.group(1).lower() + " " + element
    inner = re.fullmatch(r"Map\[([^,\[\]]*),\s*(.*)\]", text)
    if inner:
        key, value = describe(inner.group(1)), describe(inner.group(2))
        return key and value and "map %s -> %s" % (key, value)
    inner = re.fullmatch(r"(?:type\(|Type\[|type\[)(\w+)[)\]]", text)
    found = reflected(getattr(unreal, inner.group(1) if inner else text, None))
    if inner:
        return found and "class " + found[0].replace("/Script/CoreUObject.Class", "/Script/CoreUObject.Object")
    return PLAIN.get(text) or (found and "%s %s" % (found[1], found[0]))


def member_name(name, type_text):
    words = "".join(word[:1].upper() + word[1:] for word in name.split("_"))
    return "b" + words if type_text == "bool" else words


def properties(python_type):
    own = python_type.__doc__ or ""
    above = {found.group(1) for base in python_type.__mro__[1:] for found in PROPERTY.finditer(base.__doc__ or "")}
    for name, type_text, access in (found.groups() for found in PROPERTY.finditer(own)):
        described = describe(type_text)
        if described and name not in above:
            readable = ["edit", "bp_read"] + (["bp_write"] if access == "Read-Write" else [])
            yield {"property": member_name(name, type_text), "type": described, "flags": readable}


def function_names():
    """Exact names of functions by class path and by their letters alone."""
    names = {}
    for function in unreal.ObjectIterator(unreal.Function):
        outer = function.get_outer()
        if outer:
            letters = re.sub(r"^(K2|BP)_|_", "", function.get_name()).lower()
            names.setdefault((outer.get_path_name(), letters), function.get_name())
    return names


def functions(python_type, path, exact):
    for name, member in sorted(vars(python_type).items()):
        real = exact.get((path, name.replace("_", "").lower()))
        text = getattr(member, "__doc__", None) or ""
        if not real or not callable(getattr(python_type, name, None)):
            continue
        arguments, _, returned = text.partition("Returns:")
        params = [(found.group(1), found.group(2)) for found in ARGUMENT.finditer(arguments.partition("Args:")[2])]
        types = [describe(type_text) for _, type_text in params]
        answer = re.match(r"\s*([^\s:]+):", returned)
        answer_type = describe(answer.group(1)) if answer else None
        if all(types) and (answer_type or not answer or answer.group(1) in ("None", "tuple")):
            line = {"function": real, "flags": (["static"] if isinstance(member, (classmethod, staticmethod)) else []) + ["callable"]}
            if params:
                line["params"] = [{"name": member_name(param[0], param[1]), "type": kind} for param, kind in zip(params, types)]
            if answer_type:
                line["returns"] = {"type": answer_type}
            yield line


def ancestry(python_type):
    bases = (("actor", "Actor"), ("component", "ActorComponent"), ("widget", "Widget"), ("function_library", "BlueprintFunctionLibrary"))
    return [word for word, base in bases if issubclass(python_type, getattr(unreal, base))] + ["blueprintable", "blueprint_type"]


def block(python_type, path, word, exact):
    """The lines of one type."""
    if word == "byte":
        values = [{"name": entry.name, "value": entry.value} for entry in python_type]
        return [{"enum": path, "form": "class", "flags": ["blueprint_type"], "values": values}]
    base = reflected(python_type.__mro__[1])
    if word == "struct":
        head = {"struct": path, "flags": ["blueprint_type"]}
        if base and base[1] == "struct" and base[0] != path:
            head["parent"] = base[0]
        return [head] + list(properties(python_type))
    head = {"class": path, "parent": base[0] if base else "/Script/CoreUObject.Object", "flags": ancestry(python_type)}
    return [head] + list(properties(python_type)) + list(functions(python_type, path, exact))


def main():
    modules, exact, files = project_modules(), function_names(), {}
    for name in sorted(dir(unreal)):
        found = reflected(getattr(unreal, name))
        module = found[0].split(".")[0].rpartition("/")[2] if found and found[0].startswith("/Script/") else None
        if module in modules:
            files.setdefault(module, {})[found[0]] = block(getattr(unreal, name), found[0], found[1], exact)
    folder = os.path.join(unreal.Paths.convert_relative_path_to_full(unreal.Paths.project_dir()), "Config", "Catalogue")
    os.makedirs(folder, exist_ok=True)
    for module, blocks in files.items():
        with open(os.path.join(folder, module + ".editor.jsonl"), "w", encoding="utf-8", newline="\n") as opened:
            for path in sorted(blocks):
                opened.writelines(json.dumps(line, ensure_ascii=False) + "\n" for line in blocks[path])
        unreal.log("%s: %d types" % (module, len(blocks)))


main()
