#!/usr/bin/env node
// Plays one short session with the built server (environment variable MORVANE) in every mode that clients connect in, each in
// a project of its own. Exit status 0 when every session went as expected.

import { spawnSync } from 'node:child_process';
import { existsSync, mkdtempSync, readdirSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const SMOKE = fileURLToPath(new URL('smoke.mjs', import.meta.url));
const MODES = [
    ['--era', 'legacy'],
    ['--era', 'auto'],
    ['--era', 'auto', '--in-place'],
    ['--era', 'modern'],
    ['--era', 'modern', '--in-place'],
];
const DOOR = { path: '/Game/Doors/BP_Door', blueprint_parent_class: { type: 'native', parent_path: '/Script/Engine.Actor' } };
const GREETING = {
    nodes: [
        { node_guid: 'begin', class_name: 'K2Node_Event', node_metadata: { event_name: 'ReceiveBeginPlay' } },
        { node_guid: 'print', class_name: 'K2Node_CallFunction', target_class: 'KismetSystemLibrary', target_function: 'PrintString' },
    ],
    connections: [
        { source_node_guid: 'begin', source_pin_name: 'then', target_node_guid: 'print', target_pin_name: 'execute' },
    ],
};

// Tool, arguments, and whether the tool is expected to succeed.
const CALLS = [
    ['bp_create_asset', DOOR, true],
    ['bp_create_asset', DOOR, false],
    ['bp_create_asset', { path: '/Game/../Outside', blueprint_parent_class: DOOR.blueprint_parent_class }, false],
    ['bp_create_asset', {}, false],
    ['bp_create_graph', { path: DOOR.path, functions: [{ name: 'CanOpen', return_type: { category: 'bool' } }] }, true],
    ['bp_populate_graph', { path: DOOR.path, graph_name: 'EventGraph', nodes: GREETING.nodes, connections: GREETING.connections }, true],
    ['bp_populate_graph', { path: DOOR.path, graph_name: 'EventGraph' }, false],
    ['compile_blueprint', { blueprint_paths: [DOOR.path] }, true],
    ['read_blueprint_event', { path: DOOR.path, graph_name: 'EventGraph', event_name: 'BeginPlay' }, true],
    ['delete_blueprint', { path: 'nowhere' }, false],
    ['delete_blueprint', { path: DOOR.path }, true],
];

let faults = 0;

function expect(condition, what) {
    if (!condition) {
        faults += 1;
        console.log(`smoke: ${what}`);
    }
}

function checkCall(label, line, [tool, , succeeds]) {
    const result = line?.result;
    expect(line?.ok && line.tool === tool && result, `${label}: no result of ${tool}: ${JSON.stringify(line)}`);
    if (!result) return;
    expect(result.structuredContent?.success === succeeds, `${label}: ${tool} answered ${result.content?.[0]?.text}`);
    expect((result.isError ?? false) === !succeeds, `${label}: isError of ${tool} disagrees with success`);
    expect(
        JSON.stringify(JSON.parse(result.content[0].text)) === JSON.stringify(result.structuredContent),
        `${label}: text and structured content of ${tool} differ`,
    );
}

function playSession(program, mode) {
    const label = mode.join(' ');
    const project = mkdtempSync(join(tmpdir(), 'morvane-smoke-'));
    const calls = CALLS.flatMap(([tool, args]) => ['--call', tool, JSON.stringify(args)]);
    const words = [SMOKE, ...mode, ...calls, '--call-error', 'no_such_tool', '{}', '-32602', '--'];
    const run = spawnSync(process.execPath, [...words, program, 'serve', '--project', project], { encoding: 'utf8' });
    const lines = run.stdout.split('\n').filter(Boolean).map((line) => JSON.parse(line));
    for (const fault of lines.filter((line) => line.step === 'fault')) expect(false, `${label}: ${JSON.stringify(fault)}`);
    expect(run.status === 0, `${label}: status ${run.status}\n${run.stderr}`);
    const answers = lines.filter((line) => line.step === 'call');
    CALLS.forEach((call, index) => checkCall(label, answers[index], call));
    const left = existsSync(join(project, 'Content')) ? readdirSync(join(project, 'Content'), { recursive: true }) : [];
    expect(!left.some((name) => name.endsWith('.uatext')), `${label}: left behind ${left}`);
    rmSync(project, { recursive: true });
    console.log(`smoke: ${label}: ${answers.length} calls, ${lines.find((line) => line.step === 'tools')?.count ?? 0} tools`);
}

const program = process.env.MORVANE;
if (!program || !existsSync(program)) {
    console.error('smoke: set MORVANE to the program to test');
    process.exit(2);
}
for (const mode of MODES) playSession(program, mode);
process.exitCode = faults === 0 ? 0 : 1;
