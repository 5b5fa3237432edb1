"""An agent's session with the server: the short form of a task's calls, written out and sent."""

import json
import subprocess


def node_record(node):
    """The tool's own form of a node: id, title, class, fn, target, fn_any, category, meta, set, add and params are short for its keys."""
    keys = {"id": "node_guid", "class": "class_name", "title": "menu_title", "target": "target_class", "fn_any": "target_function",
            "category": "menu_category", "meta": "node_metadata"}
    record = {keys[key]: value for key, value in node.items() if key in keys}
    pins = [{"action": "add", "name": name} for name in node.get("add", [])]
    pins += [{"action": "add", "name": name, "type": kind} for name, kind in node.get("params", {}).items()]
    pins += [{"name": name, "value": value, "action": "modify"} for name, value in node.get("set", {}).items()]
    return {**record, "pins": pins} if pins else record


def connection(wire):
    source, target = wire.split(" -> ")
    (source_node, source_pin), (target_node, target_pin) = source.split(".", 1), target.split(".", 1)
    return {"source_node_guid": source_node, "source_pin_name": source_pin, "target_node_guid": target_node,
            "target_pin_name": target_pin}


def tool_call(call):
    """Tool and arguments of a call in its short form."""
    if "tool" in call:
        return call["tool"], call["arguments"]
    if "make" in call:
        native = "parent" in call
        parent = {"type": "native" if native else "blueprint", "parent_path": call["parent" if native else "blueprint_parent"]}
        return "bp_create_asset", {"path": call["make"], "blueprint_parent_class": parent}
    if "structure" in call:
        return "modify_blueprint_class_structure", {"path": call["structure"], **{k: v for k, v in call.items() if k != "structure"}}
    if "graph" in call:
        return "bp_create_graph", {"path": call["graph"], "functions": call["functions"]}
    arguments = {"path": call["fill"], "graph_name": call["in"], "nodes": [node_record(node) for node in call["nodes"]],
                 "connections": [connection(wire) for wire in call["wires"]]}
    if "locals" in call:
        arguments["local_variables"] = call["locals"]
    return "bp_populate_graph", arguments


class Session:
    def __init__(self, morvane, folder):
        self.server = subprocess.Popen([morvane, "serve", "--project", folder], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True, encoding="utf-8")
        self.guids = {}
        self.asked = 0
        self.request("initialize", {"protocolVersion": "2025-11-25", "capabilities": {}, "clientInfo": {"name": "tasks", "version": "1"}})

    def close(self):
        self.server.stdin.close()
        self.server.wait()
        self.server.stdout.close()

    def request(self, method, params):
        self.asked += 1
        self.server.stdin.write(json.dumps({"jsonrpc": "2.0", "id": self.asked, "method": method, "params": params}) + "\n")
        self.server.stdin.flush()
        return json.loads(self.server.stdout.readline())["result"]

    def call(self, tool, arguments):
        text = json.dumps(arguments)
        for name, guid in self.guids.items():
            text = text.replace(f'"${name}"', f'"{guid}"')
        return self.request("tools/call", {"name": tool, "arguments": json.loads(text)})["structuredContent"]

    def play(self, call):
        """One call of the task; what the agent reads of failure."""
        tool, arguments = tool_call(call)
        result = self.call(tool, arguments)
        created = result["data"].get("created_nodes_summary")
        for item in json.loads(created)["items"] if created else []:
            self.guids[item["request_guid"]] = item["node_guid"]
        told = result["errors"] + [text for text in result["warnings"] if not text.startswith("[Warning]")]
        return [f"{tool}: " + text.split("\n")[0] for text in told]

    def compile(self, assets):
        result = self.call("compile_blueprint", {"blueprint_paths": assets})
        return [] if result["success"] else ["compile: " + text for text in result["errors"][:3] or result["messages"][:3]]
