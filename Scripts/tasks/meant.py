"""Compares a graph in its saved text with the graph that a task means."""

import re

NODE_FIELD = {
    "Event": "EventReference", "CallFunction": "FunctionReference", "CallParentFunction": "FunctionReference",
    "CallArrayFunction": "FunctionReference", "PromotableOperator": "FunctionReference", "Message": "FunctionReference",
    "CommutativeAssociativeBinaryOperator": "FunctionReference", "VariableGet": "VariableReference", "VariableSet": "VariableReference",
    "CustomEvent": "CustomFunctionName", "MacroInstance": "MacroGraphReference", "DynamicCast": "TargetType",
    "ComponentBoundEvent": "DelegatePropertyName", "Timeline": "TimelineName", "InputKey": "InputKey", "InputAxisEvent": "InputAxisName",
    "EnhancedInputAction": "InputAction", "GetSubsystemFromPC": "CustomClass", "MakeStruct": "StructType", "BreakStruct": "StructType",
    "SwitchEnum": "Enum", "CallDelegate": "DelegateReference", "AddDelegate": "DelegateReference",
}


class Node:
    def __init__(self, name, kind):
        self.name, self.kind = name, kind.rsplit(".", 1)[-1].replace("K2Node_", "")
        self.fields, self.pins = {}, {}

    @property
    def member(self):
        """The last name in the field that tells what the node stands for."""
        text = self.fields.get(NODE_FIELD.get(self.kind, ""), "")
        named = re.search(r'MemberName="([^"]*)"', text) or re.search(r"MacroGraph=.*?:([^']*)'", text)
        text = named.group(1) if named else text
        return re.split(r"[./:']", text.strip("\"'"))[-1]


def field_end(line, at):
    """Where the value that begins there ends: at a comma or a closing bracket outside of quotes and brackets."""
    depth, quoted = 0, False
    while at < len(line):
        letter = line[at]
        if quoted:
            at += letter == "\\"
            quoted = letter != '"'
        elif letter == '"':
            quoted = True
        elif letter == "(":
            depth += 1
        elif letter == "," and not depth or letter == ")" and not depth:
            break
        elif letter == ")":
            depth -= 1
        at += 1
    return at


def pin_fields(line):
    """The fields of one pin's line: quoted texts without their quotes, the rest as it stands."""
    fields, at = {}, 0
    while at < len(line) and line[at] != ")":
        equals = line.index("=", at)
        end = field_end(line, equals + 1)
        value = line[equals + 1:end]
        quoted = value[:1] == '"'
        fields[line[at:equals]] = value[1:-1].replace('\\"', '"').replace("\\\\", "\\") if quoted else value
        at = end + 1
    return fields


def read_graph(text, graph):
    """The nodes of a graph by their names."""
    kinds, nodes, stack = {}, {}, []
    for line in text.split("\n"):
        line = line.strip()
        begin = re.match(r'Begin Object (?:Class=(\S+) )?Name="([^"]*)"', line)
        if begin:
            stack.append(begin.group(2))
            if begin.group(1):
                kinds[tuple(stack)] = begin.group(1)
            continue
        if line == "End Object":
            stack.pop()
            continue
        if len(stack) < 2 or stack[-2] != graph:
            continue
        node = nodes.setdefault(stack[-1], Node(stack[-1], kinds.get(tuple(stack), "")))
        if line.startswith("CustomProperties Pin ("):
            pin = pin_fields(line[len("CustomProperties Pin ("):])
            node.pins[pin["PinId"]] = pin
        elif "=" in line:
            key, value = line.split("=", 1)
            node.fields[key] = value
    return nodes


def links(nodes, ids):
    """Every link as two ends, each a node's id and a pin's name."""
    found = set()
    for node in nodes.values():
        for pin in node.pins.values():
            if pin.get("Direction") != "EGPD_Output":
                continue
            for other, guid in re.findall(r"(\S+) ([0-9A-F]{32}),?", pin.get("LinkedTo", "").strip("()")):
                target = nodes.get(other)
                found.add(((ids.get(node.name, node.name), pin.get("PinName", "")),
                           (ids.get(other, other), target.pins[guid].get("PinName", "") if target else "?")))
    return found


def fits(node, meant):
    kinds, _, members = meant.partition(" ")
    return node.kind in kinds.split("|") and (not members or node.member in members.split("|"))


def name_nodes(nodes, meant, guids):
    """Ids by the names of nodes. An id with a plus is of a node that no one asked for and that is meant to come along."""
    by_guid = {node.fields.get("NodeGuid"): node for node in nodes.values()}
    ids = {by_guid[guids[name]].name: name for name in meant if guids.get(name) in by_guid}
    for name in (name for name in meant if name.startswith("+")):
        free = [node for node in nodes.values() if node.name not in ids and fits(node, meant[name])]
        if free:
            ids[free[0].name] = name
    return ids


def same_pin(asked, pin):
    """A star stands for what the editor appends to a struct's member; no name for the only input of a macro's flow."""
    return pin.split("_")[0].lower() == asked[:-1].lower() if asked.endswith("*") else not asked or asked.lower() == pin.lower()


NUMBER = re.compile(r"-?[0-9]+(?:\.[0-9]+)?")


def same_value(asked, pin):
    """Whether the pin holds the value: a number, the numbers of a struct, an object's path or a text."""
    value = pin.get("DefaultValue") or pin.get("DefaultTextValue") or ""
    held = re.search(r"'([^']*)'", pin.get("DefaultObject", ""))
    text = re.search(r'"([^"]*)"\)$', value)
    if asked in (value, held.group(1) if held else pin.get("DefaultObject"), text.group(1) if text else value):
        return True
    numbers = [[float(number) for number in NUMBER.findall(one)] for one in (asked, value)]
    return bool(numbers[0]) and numbers[0] == numbers[1] and (asked[0] in "(-" or asked[0].isdigit())


def differences(folder, asset, graph, meant, guids):
    path = folder / "Content" / (asset[len("/Game/"):] + ".uatext")
    nodes = read_graph(path.read_text(encoding="utf-8"), graph) if path.exists() else {}
    wanted = {name.lstrip("?"): what for name, what in meant["nodes"].items()}
    ids = name_nodes(nodes, wanted, guids)
    by_id = {name: nodes[node] for node, name in ids.items()}
    wrong = []
    for name, what in wanted.items():
        node = by_id.get(name)
        if not node:
            wrong.append(f"node {name} ({what}) is not there")
        elif not fits(node, what):
            wrong.append(f"node {name} is {node.kind} {node.member}, meant {what}")
    wrong += wrong_links(links(nodes, ids), meant, set(by_id))
    for place, value in meant.get("values", {}).items():
        name, pin = place.split(".", 1)
        pins = [one for one in (by_id[name].pins.values() if name in by_id else []) if same_pin(pin, one.get("PinName", ""))]
        if not any(same_value(value, one) for one in pins):
            held = [one.get("DefaultValue") or one.get("DefaultTextValue") or one.get("DefaultObject") for one in pins]
            wrong.append(f"value {place} is {held}, meant {value}")
    return wrong


def wrong_links(found, meant, ids):
    wrong, left = [], set(found)
    for link in meant["links"]:
        (source, source_pin), (target, target_pin) = (end.split(".", 1) for end in link.split(" -> "))
        fitting = [one for one in left if one[0][0] == source and one[1][0] == target and same_pin(source_pin, one[0][1])
                   and same_pin(target_pin, one[1][1])]
        if fitting:
            left.discard(fitting[0])
        else:
            wrong.append(f"link {link} is not there")
    return wrong + [f"link {a[0]}.{a[1]} -> {b[0]}.{b[1]} is not meant" for a, b in sorted(left)]
