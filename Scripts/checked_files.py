"""Runs a compiler-like check over many files, two at a time, and remembers which files have passed.

A file that passed is not looked at again until it, a project header it includes, or the check itself changes.
"""

import concurrent.futures
import functools
import hashlib
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


@functools.lru_cache(maxsize=None)
def include_folders():
    folders = []
    for top in ("Editor", "Source"):
        base = os.path.join(ROOT, top)
        modules = sorted(os.listdir(base)) if os.path.isdir(base) else []
        folders += [os.path.join(base, module, "Public") for module in modules]
        folders += [os.path.join(base, module) for module in modules]
    generated = os.path.join(ROOT, "Generated")
    folders += [os.path.join(generated, module) for module in sorted(os.listdir(generated))]
    folders += [os.path.join(ROOT, name) for name in ("Host", "Tests", "Tests/Support", "Benchmarks", ".")]
    return [folder for folder in folders if os.path.isdir(folder)]


@functools.lru_cache(maxsize=None)
def private_folders():
    """What only tests and benchmarks may reach, beside the module itself."""
    return [folder[: -len("Public")] + "Private" for folder in include_folders() if folder.endswith("Public")]


def sources(*suffixes):
    for top in ("Editor", "Source", "Host", "Tests", "Benchmarks"):
        for folder, names, files in os.walk(os.path.join(ROOT, top)):
            names[:] = sorted(name for name in names if name != "node_modules")
            for file in sorted(files):
                if file.endswith(suffixes):
                    yield os.path.join(folder, file)


@functools.lru_cache(maxsize=None)
def read(path):
    with open(path, "rb") as file:
        return file.read()


@functools.lru_cache(maxsize=None)
def direct_includes(path):
    own_private = re.sub(r"/(Private|Public)/.*", "/Private", path)
    found = []
    for name in INCLUDE.findall(read(path)):
        inside = private_folders() if os.path.relpath(path, ROOT).startswith(("Tests", "Benchmarks")) else ()
        for folder in (os.path.dirname(path), own_private, *include_folders(), *inside):
            candidate = os.path.normpath(os.path.join(folder, name.decode()))
            if os.path.isfile(candidate):
                found.append(candidate)
                break
    return found


def fingerprint(path, salt):
    reached, pending = set(), [path]
    while pending:
        file = pending.pop()
        if file not in reached:
            reached.add(file)
            pending.extend(direct_includes(file))
    digest = hashlib.sha256(salt.encode())
    for file in sorted(reached):
        digest.update(file.encode())
        digest.update(hashlib.sha256(read(file)).digest())
    return digest.hexdigest()


def run_one(command, stdin):
    result = subprocess.run(command, input=stdin, capture_output=True, cwd=ROOT, check=False)
    return result.returncode == 0, (result.stdout + result.stderr).decode(errors="replace")


def check_all(name, files, salt, command_for):
    """command_for(path) answers (command, standard input or None). Answers the process's exit status."""
    memory = os.path.join(ROOT, "build", "checks", name + ".json")
    passed = {}
    if os.path.exists(memory):
        with open(memory, encoding="utf-8") as file:
            passed = json.load(file)
    prints = {path: fingerprint(path, salt) for path in files}
    todo = [path for path in files if passed.get(os.path.relpath(path, ROOT)) != prints[path]]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count() or 2) as pool:
        runs = {pool.submit(run_one, *command_for(path)): path for path in todo}
        for run in concurrent.futures.as_completed(runs):
            relative = os.path.relpath(runs[run], ROOT)
            good, output = run.result()
            if good:
                passed[relative] = prints[runs[run]]
            else:
                passed.pop(relative, None)
                failed += 1
                print(f"{relative}: failed\n{output}", flush=True)
    os.makedirs(os.path.dirname(memory), exist_ok=True)
    with open(memory, "w", encoding="utf-8") as file:
        json.dump(passed, file, indent=0, sort_keys=True)
    print(f"{name}: {len(files)} files, {len(todo)} looked at, {failed} failed", file=sys.stderr)
    return 1 if failed else 0
