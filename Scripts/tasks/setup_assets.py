"""Writes what a task finds in its project: assets of the engine's classes, and structs, enums, tables and interfaces."""

import hashlib

PRIME = 0x9E3779B185EBCA87
MASK = (1 << 64) - 1


def checksum(data, seed=0):
    total = seed ^ (len(data) * PRIME & MASK)
    whole = len(data) - len(data) % 8
    words = [int.from_bytes(data[at:at + 8], "little") for at in range(0, whole, 8)] + list(data[whole:])
    for word in words:
        total = (total ^ word) * PRIME & MASK
        total ^= total >> 29
    return total


TAGS = {"/Script/Engine.Blueprint": "Tag.ParentClass=/Script/CoreUObject.Class'/Script/CoreUObject.Interface'\n"
                                    "Tag.GeneratedClass=/Script/Engine.BlueprintGeneratedClass'{path}.{name}_C'\nTag.BlueprintType=BPTYPE_Interface\n"}


def write_package(folder, path, kind, body):
    body = body.encode()
    name = path.rsplit("/", 1)[1]
    tags = TAGS.get(kind, "").format(path=path, name=name)
    fields = f"Size={len(body)}\nPackage={path}\nAsset={name}\nClass={kind}\n{tags}\n".encode()
    file = folder / "Content" / (path[len("/Game/"):] + ".uatext")
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_bytes(b"uatext 1\nChecksum=%016x\n" % checksum(body, checksum(fields)) + fields + body)


def guid(text):
    return hashlib.md5(text.encode()).hexdigest().upper()


def struct_text(name, members):
    lines = []
    for index, (shown, kind) in enumerate(members.items()):
        own, plain = guid(name + shown), shown.replace(" ", "")
        category = f'Category="{kind}"' if kind not in ("float", "double") else f'Category="real",SubCategory="{kind}"'
        lines.append(f'      VariablesDescriptions({index})=(VarName="{plain}_{index + 1}_{own}",VarGuid={own},FriendlyName="{shown}",{category})')
    return (f'Begin Object Class=/Script/Engine.UserDefinedStruct Name="{name}" Flags=Public|Standalone\n'
            f'   Begin Object Class=/Script/UnrealEd.UserDefinedStructEditorData Name="UserDefinedStructEditorData_0"\n   End Object\n'
            f'   Begin Object Name="UserDefinedStructEditorData_0"\n' + "\n".join(lines) + "\n   End Object\n"
            f'   EditorData="/Script/UnrealEd.UserDefinedStructEditorData\'{{path}}.{name}:UserDefinedStructEditorData_0\'"\n'
            f'   Guid={guid(name)}\nEnd Object\n')


def enum_text(name, entries):
    rows = ",".join(f'("NewEnumerator{index}", INVTEXT("{entry}"))' for index, entry in enumerate(entries))
    return (f'Begin Object Class=/Script/Engine.UserDefinedEnum Name="{name}" Flags=Public|Standalone\n'
            f'   DisplayNameMap=({rows})\nEnd Object\n')


def table_text(name, row):
    leaf = row.rsplit("/", 1)[1]
    return (f'Begin Object Class=/Script/Engine.DataTable Name="{name}" Flags=Public|Standalone\n'
            f'   RowStruct="/Script/Engine.UserDefinedStruct\'{row}.{leaf}\'"\nEnd Object\n')


def pin_text(guid_of, name, kind, extra=""):
    return f'         CustomProperties Pin (PinId={guid_of},PinName="{name}",Direction="EGPD_Output",PinType.PinCategory="{kind}"{extra},)\n'


def interface_text(path, functions):
    """A Blueprint interface whose functions take actors."""
    name = path.rsplit("/", 1)[1]
    actor = "PinCategory=\"object\",PinSubCategoryObject=\"/Script/CoreUObject.Class'/Script/Engine.Actor'\""
    heads = texts = lists = ""
    for index, (function, parameters) in enumerate(functions.items()):
        pins = pin_text(guid(path + function), "then", "exec")
        for parameter in parameters:
            pins += pin_text(guid(path + function + parameter), parameter, "object",
                             ",PinType.PinSubCategoryObject=\"/Script/CoreUObject.Class'/Script/Engine.Actor'\"")
            pins += f'         CustomProperties UserDefinedPin (PinName="{parameter}",PinType=({actor}),DesiredPinDirection=EGPD_Output)\n'
        heads += (f'   Begin Object Class=/Script/Engine.EdGraph Name="{function}"\n'
                  f'      Begin Object Class=/Script/BlueprintGraph.K2Node_FunctionEntry Name="K2Node_FunctionEntry_0"\n      End Object\n   End Object\n')
        texts += (f'   Begin Object Name="{function}"\n      Begin Object Name="K2Node_FunctionEntry_0"\n         ExtraFlags=201457664\n'
                  f'         FunctionReference=(MemberName="{function}")\n         bIsEditable=True\n'
                  f'         NodeGuid={guid(function + path)}\n{pins}      End Object\n'
                  "      Schema=\"/Script/CoreUObject.Class'/Script/BlueprintGraph.EdGraphSchema_K2'\"\n"
                  f"      Nodes(0)=\"/Script/BlueprintGraph.K2Node_FunctionEntry'{path}.{name}:{function}.K2Node_FunctionEntry_0'\"\n   End Object\n")
        lists += f"   FunctionGraphs({index})=\"/Script/Engine.EdGraph'{path}.{name}:{function}'\"\n"
    return (f'Begin Object Class=/Script/Engine.Blueprint Name="{name}" Flags=Public|Standalone\n{heads}{texts}'
            "   ParentClass=\"/Script/CoreUObject.Class'/Script/CoreUObject.Interface'\"\n   BlueprintType=BPTYPE_Interface\n"
            f"{lists}   GeneratedClass=\"/Script/Engine.BlueprintGeneratedClass'{path}.{name}_C'\"\nEnd Object\n"
            f'Begin Object Class=/Script/Engine.BlueprintGeneratedClass Name="{name}_C" Flags=Public\nEnd Object\n'
            f'Begin Object Class={path}.{name}_C Name="Default__{name}_C" Flags=Public|Archetype\nEnd Object\n')


def plain_text(name, kind):
    return f'Begin Object Class={kind} Name="{name}" Flags=Public|Standalone\nEnd Object\n'


def write_assets(assets, folder):
    for path, what in assets.items():
        name = path.rsplit("/", 1)[1]
        if isinstance(what, str):
            write_package(folder, path, what, plain_text(name, what))
        elif "struct" in what:
            write_package(folder, path, "/Script/Engine.UserDefinedStruct", struct_text(name, what["struct"]).replace("{path}", path))
        elif "enum" in what:
            write_package(folder, path, "/Script/Engine.UserDefinedEnum", enum_text(name, what["enum"]))
        elif "interface" in what:
            write_package(folder, path, "/Script/Engine.Blueprint", interface_text(path, what["interface"]))
        elif "table" in what:
            write_package(folder, path, "/Script/Engine.DataTable", table_text(name, what["table"]))
